#pragma once

#include <span>

namespace tavrel {

/// Plays short sounds. Where that cannot be done, nothing happens and nothing is said.
class SoundPlayer {
  public:
    virtual ~SoundPlayer() = default;

    /// Returns at once. `samples` are mono, between -1 and 1, `sampleRate` of them a second; a copy is taken.
    /// What still plays is heard to its end first.
    virtual void play(std::span<const float> samples, int sampleRate) = 0;
};

}  // namespace tavrel
