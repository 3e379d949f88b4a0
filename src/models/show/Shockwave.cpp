#include "models/show/Shockwave.h"

namespace tavrel {

void Shockwave::begin(double strength, Instant now) {
    if (strength_ != strength) {
        strength_ = strength;
        Q_EMIT strengthChanged();
    }
    start_ = now;
    Q_EMIT startChanged();
}

}  // namespace tavrel
