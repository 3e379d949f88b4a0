#include "core/Files.h"
#include "support/Sandbox.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::contentOf;
using testing::Sandbox;

TEST(FilesTest, AnswersForTheThingItself) {
    const Sandbox box;
    const auto file = box.file("file", 3);
    const auto folder = box.folder("folder");
    const auto toFolder = box.link("toFolder", folder);
    const auto dangling = box.link("dangling", "nowhere");
    EXPECT_TRUE(Files::exists(toFolder));
    EXPECT_FALSE(Files::exists(dangling));
    EXPECT_TRUE(Files::isLink(dangling));
    EXPECT_FALSE(Files::isFolder(toFolder));
    EXPECT_TRUE(Files::isFolder(folder));
    EXPECT_TRUE(Files::isRegular(file));
    EXPECT_NE(Files::identifier(toFolder), Files::identifier(folder));
    EXPECT_EQ(Files::modificationDate(box.path("none")), std::nullopt);

    const Instant then = testing::daysAgo(3);
    Sandbox::date(dangling, then);
    EXPECT_EQ(Files::modificationDate(dangling), then);
}

TEST(FilesTest, ListsNamesInOrder) {
    const Sandbox box;
    for (const char* name : {"b", ".a", "c\nd", "\xff"}) box.file(name);
    EXPECT_EQ(Files::names(box.root()), (std::vector<std::string>{".a", "b", "c\nd", "\xff"}));
    EXPECT_EQ(Files::names(box.root(), Files::Hidden::skip), (std::vector<std::string>{"b", "c\nd", "\xff"}));
    EXPECT_TRUE(Files::names(box.path("b")).empty());
}

TEST(FilesTest, ReplacesAFileWholeAndLeavesNothingBehind) {
    const Sandbox box;
    const auto real = box.text("real", "old");
    const auto link = box.link("link", "real");
    EXPECT_FALSE(Files::writeAtomically(link, "new"));
    EXPECT_EQ(contentOf(real), "new");
    EXPECT_TRUE(Files::isLink(link));
    EXPECT_TRUE(Files::writeAtomically(box.path("no/such/file"), "x"));
    EXPECT_TRUE(Files::writeAtomically(box.folder("folder"), "x"));
    ASSERT_EQ(::mkfifo(box.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Files::writeAtomically(box.link("toPipe", "pipe"), "x"), std::errc::invalid_argument);
    EXPECT_EQ(std::filesystem::status(box.path("pipe")).type(), std::filesystem::file_type::fifo);
    EXPECT_FALSE(Files::writeAtomically(box.link("dangling", "nowhere"), "x"));
    EXPECT_EQ(contentOf(box.path("dangling")), "x");
    EXPECT_EQ(Files::names(box.root()),
              (std::vector<std::string>{"dangling", "folder", "link", "pipe", "real", "toPipe"}));
}

TEST(FilesTest, SetsDamagedFilesAsideWithoutLosingEarlierOnes) {
    const Sandbox box;
    EXPECT_EQ(Files::setAside(box.text("h.json", "one")), box.path("h.json.damaged"));
    EXPECT_EQ(Files::setAside(box.text("h.json", "two")), box.path("h.json.damaged-2"));
    EXPECT_EQ(Files::setAside(box.path("h.json")), std::nullopt);
    EXPECT_EQ(contentOf(box.path("h.json.damaged")), "one");
    EXPECT_EQ(contentOf(box.path("h.json.damaged-2")), "two");
}

}  // namespace
}  // namespace tavrel
