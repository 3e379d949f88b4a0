// The walk by a team of threads against a plain fts walk over the same tree.
#include "disk/DiskIndex.h"
#include "disk/FileSizer.h"
#include "disk/FtsOracle.h"
#include "disk/Trees.h"
#include "support/Isolation.h"
#include "support/Sandbox.h"

#include <atomic>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

#include <gtest/gtest.h>

namespace tavrel::DiskIndex {

void PrintTo(const Info& info, std::ostream* out) {
    *out << info.size << " bytes in " << info.files << " files";
}
void PrintTo(const LargeFile& file, std::ostream* out) {
    *out << file.path << " of " << file.size << " bytes";
}

}  // namespace tavrel::DiskIndex

namespace tavrel::testing {
namespace {

constexpr unsigned teamSizes[] = {1, 2, 4};

std::string difference(const DiskIndex::Measurement& ours, const DiskIndex::Measurement& theirs) {
    if (ours.size != theirs.size) return std::to_string(ours.size - theirs.size) + " bytes too many";
    if (ours.files != theirs.files) return std::to_string(ours.files - theirs.files) + " files too many";
    if (ours.folders.size() != theirs.folders.size()) return "other folders";
    for (const auto& [path, info] : theirs.folders) {
        const auto found = ours.folders.find(path);
        if (found == ours.folders.end()) return "lacks " + path;
        if (found->second != info) return path + ": " + ::testing::PrintToString(found->second);
    }
    return {};
}

class HostileTree : public ::testing::TestWithParam<Tree> {};

TEST_P(HostileTree, MeasuresLikeASingleWalk) {
    const Sandbox sandbox;
    GetParam().grow(sandbox);
    for (const int depth : {0, 1, 2, 5}) {
        const DiskIndex::Measurement expected = ftsMeasure(sandbox.root(), depth);
        for (const unsigned threads : teamSizes) {
            EXPECT_EQ(difference(DiskIndex::measure(sandbox.root(), depth, {}, threads), expected), "")
                << threads << " threads, recorded to " << depth;
        }
    }
    EXPECT_EQ(FileSizer::size(sandbox.root()), ftsContentSize(sandbox.root()));
}

TEST_P(HostileTree, RanksLikeASingleWalk) {
    const Sandbox sandbox;
    GetParam().grow(sandbox);
    for (const std::int64_t minimum : {0, 1, 4096, 4097, 20'480}) {
        for (const std::size_t limit : {std::size_t{1}, std::size_t{7}, std::size_t{100'000}}) {
            const auto expected = ftsLargeFiles(sandbox.root(), minimum, limit);
            for (const unsigned threads : teamSizes) {
                EXPECT_EQ(DiskIndex::largeFiles(sandbox.root(), minimum, limit, {}, threads), expected)
                    << threads << " threads, at least " << minimum << " bytes, the first " << limit;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Walk, HostileTree, ::testing::ValuesIn(hostileTrees()),
                         [](const auto& tree) { return tree.param.name; });

/// Two thousand folders are far beyond what a path can name and what a process may hold open.
TEST(DeepTree, IsMeasuredExactlyWithFewHandles) {
    for (const Teeth teeth : {Teeth::none, Teeth::one}) {
        const Sandbox sandbox;
        growDeep(sandbox, 2000, teeth);
        const DiskIndex::Measurement expected = ftsMeasure(sandbox.root(), 2, Descent::byWorkingFolder);
        ASSERT_EQ(expected.files, teeth == Teeth::one ? 200 : 100);
        for (const unsigned threads : teamSizes) {
            inChild([&] {
                const rlimit few = {.rlim_cur = 64, .rlim_max = 64};
                ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
                EXPECT_EQ(difference(DiskIndex::measure(sandbox.root(), 2, {}, threads), expected), "")
                    << threads << " threads";
            });
        }
        ftsRemove(sandbox.root());
    }
}

/// Names come and go under the walk; what stands still must be in the sum, and nothing may be there twice.
TEST(ChangingTree, GivesSaneFigures) {
    const Sandbox sandbox;
    growBroad(sandbox, 60, 5);
    const DiskIndex::Measurement still = DiskIndex::measure(sandbox.root(), 0);
    std::atomic<bool> done = false;
    std::thread mischief([&] {
        while (!done) {
            for (int at = 0; at < 20; ++at) sandbox.file("going/" + std::to_string(at) + "/deep/file", 1);
            std::filesystem::remove_all(sandbox.path("going"));
        }
    });
    for (int round = 0; round < 100; ++round) {
        const DiskIndex::Measurement found = DiskIndex::measure(sandbox.root(), 1, {}, 2);
        EXPECT_GE(found.files, still.files);
        EXPECT_LE(found.files, still.files + 20);
        EXPECT_GE(found.size, still.size);
    }
    done = true;
    mischief.join();
}

TEST(ClosedFolder, CountsNothing) {
    const Sandbox sandbox;
    sandbox.file("open/file", 5000);
    sandbox.file("shut/file", 5000);
    ASSERT_EQ(::chmod(sandbox.root().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(sandbox.path("shut").c_str(), 0), 0);
    const auto ran = asOrdinaryUser([&] {
        const DiskIndex::Measurement found = DiskIndex::measure(sandbox.root(), 1);
        EXPECT_FALSE(found.folders.contains(sandbox.path("shut").native()));
        EXPECT_EQ(FileSizer::size(sandbox.root()), allocated(sandbox.path("open/file")));
        EXPECT_EQ(difference(found, ftsMeasure(sandbox.root(), 1)), "");
    });
    ASSERT_EQ(::chmod(sandbox.path("shut").c_str(), 0700), 0);
    if (ran == Ran::forbidden) GTEST_SKIP() << "cannot become another user here";
}

TEST(MountedFolders, AreMeasuredLikeASingleWalkDoes) {
    const Sandbox sandbox;
    for (const char* name : {"a/file", "a/disk/hidden", "b/c/file", "b/c/again/hidden", "b/twin/hidden"}) {
        sandbox.file(name, 10'000);
    }
    const auto ran = withPrivateMounts([&] {
        mountMemory(sandbox.path("a/disk"));
        sandbox.file("a/disk/other/device", 100'000);
        bindMount(sandbox.path("a"), sandbox.path("b/twin"));
        bindMount(sandbox.path("b"), sandbox.path("b/c/again"));

        const DiskIndex::Measurement expected = ftsMeasure(sandbox.root(), 5);
        EXPECT_EQ(expected.folders.at(sandbox.path("a/disk").native()).files, 0)
            << "the oracle entered the disk";
        EXPECT_EQ(FileSizer::size(sandbox.root()), ftsContentSize(sandbox.root()));
        for (const unsigned threads : teamSizes)
            EXPECT_EQ(difference(DiskIndex::measure(sandbox.root(), 5, {}, threads), expected), "");
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

}  // namespace
}  // namespace tavrel::testing
