#include "models/analyze/BackgroundDiskWork.h"
#include "models/support/Background.h"
#include "support/EventLoop.h"
#include "support/Sandbox.h"

#include <QProcess>
#include <atomic>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;
using testing::settle;
using testing::waitUntil;
using Kind = Background::Kind;
using namespace std::chrono_literals;

/// A file whose opening for reading does not return before this object goes, as on a dead mount.
class DeadFile {
  public:
    DeadFile() { EXPECT_EQ(::mkfifo(path_.c_str(), 0600), 0); }
    ~DeadFile() {
        EXPECT_TRUE(waitUntil([this] {
            const int writer = ::open(path_.c_str(), O_WRONLY | O_NONBLOCK);
            if (writer >= 0) ::close(writer);
            return *left_ == 0;
        }));
    }
    DeadFile(const DeadFile&) = delete;
    DeadFile& operator=(const DeadFile&) = delete;

    /// Opens the file; counts those that have begun.
    [[nodiscard]] auto read() const {
        return [path = path_, inside = inside_, left = left_] {
            ++*left;
            ++*inside;
            ::close(::open(path.c_str(), O_RDONLY));
            --*left;
            return DiskWork::FoundPlaces();
        };
    }
    [[nodiscard]] int begun() const { return *inside_; }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    const Sandbox sandbox_;
    const std::filesystem::path path_ = sandbox_.path("dead");
    std::shared_ptr<std::atomic<int>> inside_ = std::make_shared<std::atomic<int>>(0);
    std::shared_ptr<std::atomic<int>> left_ = std::make_shared<std::atomic<int>>(0);
};

TEST(Background, AnswersComeHereOnceInTheOrderInWhichTheWorkEnded) {
    Background work(Kind::mayBeAbandoned, 2);
    std::vector<int> told;
    std::atomic<bool> mayEnd = false;
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    const auto here = std::this_thread::get_id();
    for (int at = 0; at < 40; ++at) {
        work.run(
            [&, at] {
                most = std::max<int>(++inside, most);
                EXPECT_TRUE(std::this_thread::get_id() != here);
                while (at == 0 && !mayEnd) std::this_thread::yield();
                --inside;
                return at;
            },
            [&](int value) {
                EXPECT_TRUE(std::this_thread::get_id() == here);
                told.push_back(value);
                if (value == 39) mayEnd = true;
            });
    }
    ASSERT_TRUE(waitUntil([&] { return told.size() == 40; }));
    EXPECT_EQ(most, 2);
    EXPECT_EQ(told.back(), 0);
    told.pop_back();
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
}

TEST(Background, NobodyIsToldAfterTheAskerHasGoneAndOnlyWhatMustFinishIsWaitedFor) {
    for (const Kind kind : {Kind::mustFinish, Kind::mayBeAbandoned}) {
        auto work = std::make_unique<Background>(kind, 1);
        auto ended = std::make_shared<std::atomic<int>>(0);
        int told = 0;
        for (int at = 0; at < 3; ++at) {
            work->run(
                [ended] {
                    std::this_thread::sleep_for(20ms);
                    return ++*ended;
                },
                [&](int) {
                    ++told;
                    work.reset();
                });
        }
        ASSERT_TRUE(waitUntil([&] { return told == 1; }));
        if (kind == Kind::mustFinish) {
            EXPECT_EQ(*ended, 3);
        } else {
            EXPECT_LT(*ended, 3);
        }
        settle();
        EXPECT_EQ(told, 1);
    }
}

TEST(Background, MoreReadsHangThanMayRunAtOnceAndOtherFoldersAreStillListed) {
    const DeadFile dead;
    BackgroundDiskWork work({}, 50ms);
    int answered = 0;
    for (int at = 0; at < 20; ++at) work.findPlaces(dead.read(), [&](const auto&) { ++answered; });
    std::optional<FolderListing> listing;
    work.list(dead.path().parent_path(), {}, [&](FolderListing found) { listing = std::move(found); });
    ASSERT_TRUE(waitUntil([&] { return listing.has_value(); }));
    EXPECT_EQ(listing->all.size(), 1U);
    EXPECT_EQ(dead.begun(), 20);
    EXPECT_EQ(answered, 0);
}

TEST(Background, AProgramEndsWithHungReadsAtOnceAndWithItsRemovalsFinished) {
    const DeadFile dead;
    const std::string written = dead.path().native() + ".written";
    QElapsedTimer timer;
    QProcess child;
    timer.start();
    child.start(QStringLiteral(TEST_QUITTING), {QString::fromStdString(dead.path().native()),
                                                QString::fromStdString(written), QStringLiteral("300")});
    ASSERT_TRUE(child.waitForFinished(20'000));
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(child.exitCode(), 7);
    EXPECT_EQ(child.readAllStandardOutput(), "the end\n");
    EXPECT_EQ(child.readAllStandardError(), "");
    std::ifstream file(written);
    EXPECT_EQ(std::string(std::istreambuf_iterator(file), {}), "all of it");
    EXPECT_LT(timer.elapsed(), 300 + 1'000);
}

}  // namespace
}  // namespace tavrel
