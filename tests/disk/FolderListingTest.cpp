#include "disk/FileCount.h"
#include "disk/FolderListing.h"
#include "disk/FolderPath.h"
#include "support/Sandbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
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

TEST(FileCount, IsShortAndRounded) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "0"},        {999, "999"},      {1'000, "1.0k"},     {1'500, "1.5k"},
        {12'000, "12k"}, {999'400, "999k"}, {1'000'000, "1.0M"}, {2'500'000, "2.5M"},
    };
    for (const auto& [count, text] : rows) EXPECT_EQ(FileCount::format(count), text);
}

}  // namespace
}  // namespace tavrel
