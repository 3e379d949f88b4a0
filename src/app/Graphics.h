#pragma once

/// How windows are drawn.
namespace tavrel::Graphics {

/// Chooses Qt's own rasteriser where no graphics device would draw: it repaints only what has changed, which
/// an emulated device does not. To be called before the first window; what the environment asks for stands.
void choose();

}  // namespace tavrel::Graphics
