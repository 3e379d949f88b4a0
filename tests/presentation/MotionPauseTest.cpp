#include "presentation/MotionPause.h"

#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(MotionPause, RestsForEitherReasonAndTellsOnlyChanges) {
    MotionPause pause;
    std::string told;
    QObject::connect(&pause, &MotionPause::scrollingChanged, [&] { told += 's'; });
    QObject::connect(&pause, &MotionPause::hiddenChanged, [&] { told += 'h'; });
    QObject::connect(&pause, &MotionPause::pausedChanged, [&] { told += pause.paused() ? 'P' : 'R'; });

    pause.setScrolling(false);
    pause.setHidden(true);
    pause.setHidden(true);
    pause.setScrolling(true);
    pause.setHidden(false);
    pause.setScrolling(false);
    EXPECT_EQ(told, "hPshsR");
}

}  // namespace
}  // namespace tavrel
