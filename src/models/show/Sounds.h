#pragma once

namespace tavrel {

class Clock;
class Preferences;
class Shockwave;
class SoundPlayer;

/// What is seen and heard when a run ends. For the main thread; everything handed over outlives this object.
class Sounds {
  public:
    Sounds(const Preferences& preferences, Shockwave& shockwave, SoundPlayer& player, const Clock& clock)
        : preferences_(preferences), shockwave_(shockwave), player_(player), clock_(clock) {}

    /// Starts the shockwave at `strength` (0 to 1) and, where the user wants sounds, plays the one that there
    /// is, always at the same level.
    void whoomp(double strength);

  private:
    const Preferences& preferences_;
    Shockwave& shockwave_;
    SoundPlayer& player_;
    const Clock& clock_;
};

}  // namespace tavrel
