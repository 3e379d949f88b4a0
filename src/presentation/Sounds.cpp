#include "presentation/Sounds.h"

#include "core/Clock.h"
#include "core/Preferences.h"
#include "platform/SoundPlayer.h"
#include "presentation/Shockwave.h"
#include "presentation/Whoomp.h"

namespace tavrel {

void Sounds::whoomp(double strength) {
    shockwave_.begin(strength, clock_.now());
    if (!preferences_.sounds()) return;
    player_.play(Whoomp::render(Whoomp::usualSampleRate), Whoomp::usualSampleRate);
}

}  // namespace tavrel
