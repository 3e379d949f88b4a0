#pragma once

#include <span>

namespace tavrel {

/// Plays short sounds. Where that cannot be done, nothing happens and nothing is said.
class SoundPlayer {
  public:
    virtual ~SoundPlayer() = default;

    /// Queues `samples` (mono, -1 to 1, `sampleRate` of them a second; copied) after any sound that still
    /// plays. Does not block.
    virtual void play(std::span<const float> samples, int sampleRate) = 0;
};

}  // namespace tavrel
