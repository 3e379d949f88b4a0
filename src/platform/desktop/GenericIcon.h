#pragma once

class QImage;

namespace tavrel {

/// A sheet of paper with a folded corner, square, `side` pixels wide: what stands where no theme has an icon.
[[nodiscard]] QImage genericIcon(int side);

}  // namespace tavrel
