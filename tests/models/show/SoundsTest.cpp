#include "models/program/Preferences.h"
#include "models/show/MotionPause.h"
#include "models/show/Shockwave.h"
#include "models/show/Sounds.h"
#include "platform/desktop/QtSoundPlayer.h"
#include "support/FakeSoundPlayer.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <QElapsedTimer>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::ManualClock;
using testing::Sandbox;

TEST(Sounds, TheWaveRunsWithOrWithoutItsSound) {
    const Sandbox box;
    UserDefaults defaults(box.path("settings.plist"));
    Preferences preferences(defaults, box.root());
    Shockwave wave;
    testing::FakeSoundPlayer player;
    ManualClock clock;
    Sounds sounds(preferences, wave, player, clock);
    int starts = 0;
    int strengths = 0;
    QObject::connect(&wave, &Shockwave::startChanged, [&] { ++starts; });
    QObject::connect(&wave, &Shockwave::strengthChanged, [&] { ++strengths; });
    EXPECT_FALSE(wave.start());

    preferences.setSounds(false);
    sounds.whoomp(0.4);
    EXPECT_EQ(wave.start(), clock.now());
    EXPECT_EQ(wave.strength(), 0.4);
    EXPECT_EQ(player.sounds, 0);

    preferences.setSounds(true);
    clock.advance(5.0);
    sounds.whoomp(0.4);
    EXPECT_EQ(wave.start(), clock.now());
    EXPECT_EQ(player.sounds, 1);
    EXPECT_EQ(player.lasted, 1.7);
    EXPECT_EQ(starts, 2);
    EXPECT_EQ(strengths, 1);
}

TEST(MotionPause, RestsForEitherReasonAndTellsOnlyChanges) {
    MotionPause pause;
    std::string told;
    QObject::connect(&pause, &MotionPause::scrollingChanged, [&] { told += 's'; });
    QObject::connect(&pause, &MotionPause::hiddenChanged, [&] { told += 'h'; });
    QObject::connect(&pause, &MotionPause::pausedChanged, [&] { told += pause.paused() ? 'P' : 'R'; });
    for (const bool hidden : {true, true, false}) {
        pause.setHidden(hidden);
        pause.setScrolling(true);
    }
    pause.setScrolling(false);
    EXPECT_EQ(told, "hPshsR");
}

TEST(QtSoundPlayer, NeitherWaitsNorComplainsWhateverTheMachineHas) {
    const std::vector<float> silence(4'410);
    ::testing::internal::CaptureStderr();
    {
        QtSoundPlayer unused;
        QtSoundPlayer player;
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 3; ++i) player.play(silence, 44'100);
        EXPECT_LT(timer.elapsed(), 100);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace tavrel
