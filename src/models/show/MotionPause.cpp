#include "models/show/MotionPause.h"

namespace tavrel {

void MotionPause::setScrolling(bool scrolling) {
    assign(scrolling_, scrolling, &MotionPause::scrollingChanged);
}

void MotionPause::setHidden(bool hidden) {
    assign(hidden_, hidden, &MotionPause::hiddenChanged);
}

void MotionPause::assign(bool& field, bool value, void (MotionPause::*changed)()) {
    if (field == value) return;
    const bool before = paused();
    field = value;
    Q_EMIT(this->*changed)();
    if (paused() != before) Q_EMIT pausedChanged();
}

}  // namespace tavrel
