#include "disk/AnalyzeOrder.h"
#include "disk/ExplorerPlaces.h"
#include "disk/FileCount.h"
#include "disk/FolderListing.h"
#include "disk/FolderPath.h"
#include "disk/RowOrder.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using testing::Sandbox;

TEST(FolderListing, HoldsEverythingButLinksByName) {
    const Sandbox sandbox;
    sandbox.folder("z folder/below");
    sandbox.file(".hidden", 5'000);
    sandbox.file("A.App/inside", 1);
    sandbox.file("not.app", 9'000);
    sandbox.link("link", "z folder");
    std::vector<std::string> lines;
    const auto listing = FolderListing::of(sandbox.root(), {"app"});
    for (const auto& each : listing.all) {
        const std::string kind = each.size ? " file" : each.isFolder ? " folder" : " package";
        lines.push_back(each.url.filename().native() + kind);
        EXPECT_EQ(each.size.value_or(testing::allocated(each.url)), testing::allocated(each.url));
    }
    EXPECT_THAT(lines, ElementsAre(".hidden file", "A.App package", "not.app file", "z folder folder"));
    ASSERT_EQ(listing.paths->size(), 4U);
    EXPECT_EQ(listing.paths->front(), sandbox.path(".hidden"));
    EXPECT_THAT(FolderListing::of(sandbox.path("absent"), {}).all, IsEmpty());
    EXPECT_THAT(FolderListing::of(sandbox.path("not.app"), {}).all, IsEmpty());
}

TEST(AnalyzeOrder, WhatIsNotMeasuredStandsWhereAHundredMebibytesWould) {
    constexpr std::int64_t mebibyte = 1024LL * 1024;
    // Ids in the order of names; sizes in the order that is wanted.
    const std::vector<AnalyzeOrder::Key> wanted = {
        {200 * mebibyte, 9},
        {100 * mebibyte, 7},
        {100 * mebibyte, 8},
        {std::nullopt, 2},
        {std::nullopt, 5},
        {100 * mebibyte - 1, 0},
        {50 * mebibyte, 1},
        {0, 3},
        {0, 4},
    };
    std::vector<AnalyzeOrder::Key> keys = wanted;
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        std::shuffle(keys.begin(), keys.end(), random);
        std::vector<std::uint32_t> ids;
        for (const auto at : AnalyzeOrder::sorted(keys)) ids.push_back(keys[at].id);
        ASSERT_THAT(ids, ElementsAre(9, 7, 8, 2, 5, 0, 1, 3, 4));
    }
}

TEST(FolderPath, LeadsOverTheHomeOrFromTheRoot) {
    struct Row {
        const char* root;
        const char* home;
        const char* to;
        const char* way;  // where it leads, each folder behind a blank
    };
    const Row rows[] = {
        {"/", "/home/ana", "/", " /"},
        {"/", "/home/ana", "/home/ana/", " / /home/ana"},
        {"/", "/home/ana", "/home/ana/a/../b/c", " / /home/ana /home/ana/b /home/ana/b/c"},
        {"/", "/home/ana", "/home/anabel", " / /home /home/anabel"},
        {"/", "/", "/usr", " / /usr"},
        {"/mnt", "/mnt/ana", "/mnt/ana/x", " /mnt /mnt/ana /mnt/ana/x"},
        {"/mnt", "/mnt/ana", "/mnt", " /mnt"},
        {"/mnt", "/mnt/ana", "/mntx/ana", " /mnt /mnt/ana"},  // not on this disk: stays at home
    };
    for (const Row& row : rows) {
        FolderPath path(row.root, row.home);
        path.navigate(row.to);
        std::string way;
        for (const auto& each : path.stack()) way += ' ' + each.native();
        EXPECT_EQ(way, row.way) << row.to;
    }
}

TEST(FolderPath, StepsInBesideBackAndUp) {
    FolderPath path("/", "/home/ana");
    path.enter("/home/ana/a");
    path.enter("/home/ana/b");  // a row that was still in sight
    EXPECT_THAT(path.stack(), ElementsAre("/", "/home/ana", "/home/ana/b"));
    EXPECT_TRUE(path.goBack());
    EXPECT_TRUE(path.goBack());
    EXPECT_TRUE(path.goForward());
    EXPECT_TRUE(path.goForward());
    EXPECT_FALSE(path.goForward());
    EXPECT_EQ(path.current(), "/home/ana/b");
    path.goBack();
    path.enter("/var/log");
    EXPECT_FALSE(path.goForward()) << "another way was taken";
    EXPECT_THAT(path.stack(), ElementsAre("/", "/var", "/var/log"));
    EXPECT_FALSE(path.cutTo(2));
    EXPECT_FALSE(path.cutTo(7));
    EXPECT_TRUE(path.cutTo(0));
    EXPECT_FALSE(path.goBack());
    EXPECT_THAT(path.stack(), ElementsAre("/"));
}

TEST(ExplorerPlaces, AreTheFoldersThatExistAndWhatIsMounted) {
    using ExplorerPlaces::Found;
    const Sandbox sandbox;
    sandbox.folder("home/Music");
    sandbox.folder("media/ana/no volume");
    const Places places(sandbox.root(), sandbox.path("home"), {});
    const std::vector<ExplorerPlace> offered = {{"~/Music", "", "music.note"}, {"~/Films", "", "film.fill"}};
    EXPECT_THAT(ExplorerPlaces::folders(places, offered),
                ElementsAre(Found{sandbox.path("home/Music"), "Music", "music.note"}));
    const std::vector<std::string_view> parents = {"/media", "/media/*", "/none"};
    EXPECT_THAT(ExplorerPlaces::volumes(places, parents), IsEmpty());
#ifdef __linux__
    const std::vector<std::string_view> root = {"/"};
    EXPECT_THAT(ExplorerPlaces::volumes(Places("/", "/root", {}), root),
                Contains(Field(&Found::path, "/proc")));
#endif
}

TEST(RowOrder, MovesAsFewAsPossible) {
    EXPECT_THAT(RowOrder::movers({0, 1, 2, 3}, {0, 1, 2, 3}, 4), IsEmpty());
    EXPECT_THAT(RowOrder::movers({0, 1, 2, 3, 4}, {4, 0, 1, 2, 3}, 5), ElementsAre(4));
    EXPECT_THAT(RowOrder::movers({0, 1, 2, 3, 4}, {1, 2, 0, 4, 3}, 5).size(), 2U);
    EXPECT_THAT(RowOrder::movers({5, 2, 7}, {7, 2, 5}, 8).size(), 2U);
}

TEST(FileCount, IsShortAndRounded) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "0"},        {999, "999"},      {1'000, "1.0k"},     {1'500, "1.5k"},
        {12'000, "12k"}, {999'400, "999k"}, {1'000'000, "1.0M"}, {2'500'000, "2.5M"},
    };
    for (const auto& [count, text] : rows) EXPECT_EQ(FileCount::format(count), text);
}

}  // namespace
}  // namespace tavrel
