#include "disk/DiskIndex.h"
#include "disk/Trees.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stop_token>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

std::stop_token alreadyStopped() {
    std::stop_source source;
    source.request_stop();
    return source.get_token();
}

TEST(Measure, TakesAFileOrALinkAsATreeOfOne) {
    const Sandbox sandbox;
    const auto file = sandbox.file("file", 10'000);
    const auto link = sandbox.link("link", "file");
    for (const auto& path : {file, link}) {
        const DiskIndex::Measurement found = DiskIndex::measure(path, 2);
        EXPECT_EQ(found.size, allocated(path));
        EXPECT_EQ(found.files, 1);
        EXPECT_THAT(found.folders, IsEmpty());
    }
}

TEST(Measure, GivesZerosForWhatIsNotThere) {
    const Sandbox sandbox;
    for (const auto& path : {sandbox.path("absent"), std::filesystem::path()}) {
        const DiskIndex::Measurement found = DiskIndex::measure(path, 2);
        EXPECT_EQ(found.size, 0);
        EXPECT_EQ(found.files, 0);
        EXPECT_THAT(found.folders, IsEmpty());
    }
}

TEST(Measure, CountsAFileOfTwoNamesOnce) {
    const Sandbox sandbox;
    const auto file = sandbox.file("one", 10'000);
    std::filesystem::create_hard_link(file, sandbox.path("two"));
    const DiskIndex::Measurement found = DiskIndex::measure(sandbox.root(), 0);
    EXPECT_EQ(found.size, allocated(sandbox.root()) + allocated(file));
    EXPECT_EQ(found.files, 1);
}

TEST(Measure, JoinsPathsWithOneSlash) {
    const Sandbox sandbox;
    sandbox.file("folder/file", 1);
    const std::string folder = sandbox.path("folder").native();
    const DiskIndex::Info info = {allocated(folder) + 4096, 1};
    for (const char* ending : {"", "/"}) {
        EXPECT_THAT(DiskIndex::measure(sandbox.root().native() + ending, 1).folders,
                    UnorderedElementsAre(Pair(folder, info)));
    }
}

/// A tree of enough entries for a walk to look whether it was stopped.
class StoppedWalk : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        sandbox = std::make_unique<Sandbox>();
        growBroad(*sandbox, 70, 65);
    }
    static void TearDownTestSuite() { sandbox.reset(); }

    inline static std::unique_ptr<Sandbox> sandbox;
};

TEST_F(StoppedWalk, MeasuresTheFoldersThatWereFinished) {
    const DiskIndex::Measurement whole = DiskIndex::measure(sandbox->root(), 1);
    const DiskIndex::Measurement part = DiskIndex::measure(sandbox->root(), 1, alreadyStopped(), 1);
    EXPECT_EQ(part.size, 0);
    EXPECT_EQ(part.files, 0);
    EXPECT_GT(part.folders.size(), 0U);
    EXPECT_LT(part.folders.size(), whole.folders.size());
    EXPECT_THAT(whole.folders, IsSupersetOf(part.folders));
}

TEST_F(StoppedWalk, RanksWhatItFound) {
    const auto whole = DiskIndex::largeFiles(sandbox->root(), 8192, 10'000);
    const auto part = DiskIndex::largeFiles(sandbox->root(), 8192, 10'000, alreadyStopped(), 1);
    EXPECT_GT(part.size(), 0U);
    EXPECT_LT(part.size(), whole.size());
    EXPECT_THAT(whole, IsSupersetOf(part));
    EXPECT_TRUE(std::ranges::is_sorted(part, std::greater(), &DiskIndex::LargeFile::size));
}

TEST(LargeFiles, LeavesAloneALibraryThatItIsAskedAbout) {
    const Sandbox sandbox;
    const auto file = sandbox.file("My.photoslibrary/originals/one", 50'000);
    EXPECT_THAT(DiskIndex::largeFiles(sandbox.path("My.photoslibrary"), 0, 10), IsEmpty());
    EXPECT_EQ(DiskIndex::largeFiles(sandbox.path("My.photoslibrary/originals"), allocated(file), 10).size(),
              1U);
    EXPECT_EQ(DiskIndex::largeFiles(file, allocated(file), 10).size(), 1U);
}

TEST(LargeFiles, FollowsNoLinkAtItsRoot) {
    const Sandbox sandbox;
    sandbox.file("folder/file", 50'000);
    EXPECT_THAT(DiskIndex::largeFiles(sandbox.link("link", "folder"), 0, 10), IsEmpty());
}

}  // namespace
}  // namespace tavrel::testing
