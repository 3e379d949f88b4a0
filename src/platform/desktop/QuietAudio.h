#pragma once

namespace tavrel {

/// Keeps what Qt's audio says of a machine without sound to itself: no device means no sound and no message.
/// Everything else is still said. To be called before the first sound.
void keepAudioQuiet();

}  // namespace tavrel
