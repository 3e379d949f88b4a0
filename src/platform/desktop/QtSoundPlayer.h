#pragma once

#include "platform/desktop/SoundPlayer.h"

#include <QThread>

namespace tavrel {

class SoundOutput;

/// Plays on the default output of the system. The audio library and its connection are made with the first
/// sound, on a thread of their own, since a sound server may take its time; both go with the player. All
/// sounds have one sample rate; a sound of another cuts off the one before it.
class QtSoundPlayer final : public SoundPlayer {
  public:
    QtSoundPlayer() = default;
    ~QtSoundPlayer() override;
    QtSoundPlayer(const QtSoundPlayer&) = delete;
    QtSoundPlayer& operator=(const QtSoundPlayer&) = delete;

    void play(std::span<const float> samples, int sampleRate) override;

  private:
    QThread thread_;
    SoundOutput* output_ = nullptr;  // lives on the thread and goes with it
};

}  // namespace tavrel
