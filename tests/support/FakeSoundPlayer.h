#pragma once

#include "platform/desktop/SoundPlayer.h"

namespace tavrel::testing {

/// Nothing is heard: it counts the sounds.
class FakeSoundPlayer final : public SoundPlayer {
  public:
    int sounds = 0;
    double lasted = 0;  // seconds, of the last one

    void play(std::span<const float> samples, int sampleRate) override {
        ++sounds;
        lasted = static_cast<double>(samples.size()) / sampleRate;
    }
};

}  // namespace tavrel::testing
