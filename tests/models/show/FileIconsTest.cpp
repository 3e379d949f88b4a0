#include "cleaning/CleanItem.h"
#include "models/show/FakeIconSource.h"
#include "models/show/FileIcons.h"
#include "models/show/ItemIcons.h"
#include "support/Sandbox.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::FakeIconSource;
using testing::Sandbox;

class FileIconsTest : public ::testing::Test {
  protected:
    FileIconsTest() {
        source.byName["Notes"] = {"/Applications/Notes.app", "Notes"};
        source.byIdentifier["com.example.mail"] = {"/Applications/Mail.app", "Mail"};
        source.byIdentifier["com.brave.Browser"] = {"/Applications/Brave.app", "Brave"};
        source.byIdentifier["firefox-esr"] = {"/usr/share/applications/firefox-esr.desktop", "Firefox"};
    }

    /// What the pictures show for each of these as a batch of its own.
    [[nodiscard]] std::vector<std::string> shown(const std::vector<std::string>& urls, OwnIcons own) {
        std::vector<CleanItem> items;
        items.reserve(urls.size());
        for (const std::string& url : urls) items.push_back({.url = url});
        const ItemIcons pictures(items, own, icons);
        std::vector<std::string> labels;
        labels.reserve(urls.size());
        for (std::size_t i = 0; i < urls.size(); ++i)
            labels.push_back(FakeIconSource::label(pictures(i, i + 1)));
        return labels;
    }

    FakeIconSource source;
    FileIcons icons{source, IconOwners::macos("/Users/ana")};
};

TEST_F(FileIconsTest, TheOwnerIsTheNearestApplicationOrElseTheType) {
    struct Row {
        const char* url;
        const char* key;
        const char* picture;
    };
    constexpr Row rows[] = {
        // A bundle is its own owner, the outermost one where they are nested, even with a known name in the
        // path.
        {"/Applications/Big.app/Contents/Small.app/x", "/Applications/Big.app", "file /Applications/Big.app"},
        {"/Users/ana/Library/Application Support/Notes/Up.app",
         "/Users/ana/Library/Application Support/Notes/Up.app",
         "file /Users/ana/Library/Application Support/Notes/Up.app"},
        // A name or an identifier counts below the folders for applications, and nowhere else.
        {"/Users/ana/Library/Application Support/Notes/Cache", "/Applications/Notes.app",
         "file /Applications/Notes.app"},
        {"/Users/ana/Library/Containers/com.example.mail/x.db", "/Applications/Mail.app",
         "file /Applications/Mail.app"},
        {"/Users/ana/Documents/Notes/a.txt", "type:txt", "type txt"},
        {"/Users/ana/Library/Application Supports/Notes/a", "type:", "type "},
        // The table: by bundle identifier or by what the application is called elsewhere, if it is installed.
        {"/Users/ana/Library/Caches/BraveSoftware/x", "/Applications/Brave.app",
         "file /Applications/Brave.app"},
        {"/Users/ana/Library/Caches/Firefox/p.bin", "/usr/share/applications/firefox-esr.desktop",
         "file /usr/share/applications/firefox-esr.desktop"},
        {"/Users/ana/Library/Caches/Vivaldi/p.bin", "type:bin", "type bin"},
        {"/Users/ana/x/.app", "type:", "type "},
    };
    for (const Row& row : rows) {
        const FileIcons::Owner owner = icons.owner(row.url);
        EXPECT_EQ(owner.key, row.key) << row.url;
        EXPECT_EQ(FakeIconSource::label(owner.image), row.picture) << row.url;
    }
    EXPECT_EQ(icons.owner("/Users/ana/Library/Containers/com.example.mail/x").name, "Mail");
    EXPECT_EQ(icons.owner("/Applications/Big.app/Contents").name, "Big");

    const Sandbox box;
    EXPECT_EQ(icons.owner(box.folder("v1.2")).key, "type:folder");
}

TEST_F(FileIconsTest, FoldersOfLinuxLeadToTheirApplications) {
    FileIcons linuxIcons(source, IconOwners::linux("/home/ana"));
    for (const char* url : {"/home/ana/.mozilla/firefox/x", "/home/ana/.cache/mozilla/firefox/x",
                            "/home/ana/.config/firefox-esr/x", "/home/ana/snap/firefox-esr/common"}) {
        EXPECT_EQ(linuxIcons.owner(url).name, "Firefox") << url;
    }
}

TEST_F(FileIconsTest, NothingIsLookedUpTwice) {
    for (int i = 0; i < 3; ++i) {
        for (const char* file : {"/Users/ana/Library/Containers/nobody.knows/a.log", "/tmp/b.log"}) {
            EXPECT_EQ(FakeIconSource::label(icons.icon({.url = file})), "type log");
        }
    }
    EXPECT_EQ(source.lookups, 1);
    EXPECT_EQ(source.searches, 2);  // for the two folders' names that led nowhere
}

TEST_F(FileIconsTest, ThingsWithIconsOfTheirOwnShowThem) {
    const Sandbox box;
    const std::string file = box.file("a.bin");
    EXPECT_THAT(shown({file, "/gone/Gone.app", "/gone/x.bin"}, OwnIcons::yes),
                ElementsAre("file " + file, "file /gone/Gone.app", "type bin"));
}

TEST_F(FileIconsTest, OnlyTheFirstItemOfAnApplicationShowsTheApplication) {
    const Sandbox box;
    FileIcons owned(source, {{box.root()}, {}});
    const std::string first = box.file("Notes/a.db");
    const std::string second = box.file("Notes/b.db");
    const std::string other = box.file("other.db");
    const ItemIcons pictures(
        {{.url = first}, {.url = second}, {.url = box.path("Notes/gone.db")}, {.url = other}}, OwnIcons::no,
        owned);
    const auto label = [&](std::size_t i) { return FakeIconSource::label(pictures(i, i + 1)); };
    EXPECT_EQ(label(0), "file /Applications/Notes.app");
    EXPECT_EQ(label(1), "file " + second);
    EXPECT_EQ(label(2), "file /Applications/Notes.app");  // it has no icon of its own any more
    EXPECT_EQ(label(3), "file " + other);
}

TEST_F(FileIconsTest, TheLargestOfABatchStandsForIt) {
    std::vector<CleanItem> items(41, {.url = "/gone/small.txt", .size = 20'000});
    items[23] = {.url = "/gone/huge.iso", .size = 5'000'000'000};
    items[30] = {.url = "/gone/alike.dmg", .size = 5'000'000'000};
    const ItemIcons pictures(items, OwnIcons::no, icons);
    EXPECT_EQ(FakeIconSource::label(pictures(0, 41)), "type iso");
    EXPECT_EQ(FakeIconSource::label(pictures(24, 41)), "type dmg");
    EXPECT_EQ(FakeIconSource::label(pictures(0, 23)), "type txt");
}

TEST_F(FileIconsTest, LookingUpStopsAtThreeHundred) {
    std::vector<CleanItem> items;
    items.reserve(1000);
    for (int i = 0; i < 1000; ++i) items.push_back({.url = "/gone/x.t" + std::to_string(i), .size = i});
    const ItemIcons pictures(items, OwnIcons::no, icons);
    EXPECT_EQ(source.lookups, 300);
    EXPECT_EQ(FakeIconSource::label(pictures(0, 1000)), "type t999");
    EXPECT_EQ(source.lookups, 301);
}

}  // namespace
}  // namespace tavrel
