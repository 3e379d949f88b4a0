#include "models/show/Sounds.h"

#include "models/program/Preferences.h"
#include "models/show/Shockwave.h"
#include "models/support/Clock.h"
#include "platform/desktop/SoundPlayer.h"
#include "presentation/Whoomp.h"

namespace tavrel {

void Sounds::whoomp(double strength) {
    shockwave_.begin(strength, clock_.now());
    if (!preferences_.sounds()) return;
    player_.play(Whoomp::render(Whoomp::usualSampleRate), Whoomp::usualSampleRate);
}

}  // namespace tavrel
