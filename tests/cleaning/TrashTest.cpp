#include "cleaning/FreedesktopTrash.h"
#include "cleaning/RemovalSandbox.h"
#include "cleaning/Trash.h"
#include "cleaning/TrashNames.h"
#include "support/Isolation.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Layout;
using testing::Ran;
using testing::reason;
using testing::RemovalSandbox;

const FolderAccess& access() {
    return systemFolderAccess();
}

std::string user() {
    return std::to_string(::getuid());
}

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// The value of "Path" in a note, as the bytes that it stands for.
std::string notedPath(const fs::path& note) {
    const std::string content = testing::contentOf(note);
    const auto begin = content.find("Path=") + 5;
    const std::string text = content.substr(begin, content.find('\n', begin) - begin);
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '%';
        bytes += escaped ? static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16)) : text[i];
        if (escaped) i += 2;
    }
    return bytes;
}

/// A home with a Trash of one layout; what the layouts share is tested for both.
class TrashTest : public ::testing::TestWithParam<Layout> {
  protected:
    [[nodiscard]] std::string put(const fs::path& path) const {
        return reason(makeTrash(GetParam(), access(), stage.home())->trash(stage.target(access(), path)));
    }
    [[nodiscard]] fs::path contents() const {
        return makeTrash(GetParam(), access(), stage.home())->contents();
    }

    RemovalSandbox stage;
};

INSTANTIATE_TEST_SUITE_P(, TrashTest, ::testing::Values(Layout::flat, Layout::freedesktop),
                         [](const auto& row) { return row.param == Layout::flat ? "flat" : "freedesktop"; });

TEST_P(TrashTest, thingsOfOneNameStandSideBySide) {
    for (const char* content : {"first", "second", "third"}) {
        EXPECT_EQ(put(stage.sandbox.text("home/a/report.txt", content)), "");
        EXPECT_EQ(put(stage.sandbox.text("home/b/folder/inside", content).parent_path()), "");
    }
    EXPECT_EQ(testing::contentOf(contents() / "report.txt"), "first");
    EXPECT_EQ(testing::contentOf(contents() / "report 2.txt"), "second");
    EXPECT_EQ(testing::contentOf(contents() / "report 3.txt"), "third");
    EXPECT_EQ(testing::contentOf(contents() / "folder 3/inside"), "third");
    EXPECT_EQ(modeOf(contents()), 0700U);
}

TEST_P(TrashTest, namesAtTheLimitFit) {
    const std::string name = std::string(120, 'n') + std::string(65, 'x') + std::string(70, 'y');
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(put(stage.sandbox.text("home/a" + std::to_string(i) + "/" + name, "x")), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(contents()), {}), 3);
}

TEST_P(TrashTest, aLinkOnTheWayToTheTrashIsRefused) {
    const auto item = stage.sandbox.text("home/item", "junk");
    for (auto at = contents(); at != stage.home(); at = at.parent_path()) {
        fs::remove_all(at);
        fs::create_directories(at.parent_path());
        fs::create_symlink(stage.outside(), at);
        const auto outside = testing::snapshot(stage.outside());
        EXPECT_EQ(put(item), "The Trash cannot be used: Reached through a symbolic link") << at;
        EXPECT_EQ(testing::snapshot(stage.outside()), outside);
        EXPECT_EQ(testing::contentOf(item), "junk");
        fs::remove(at);
    }
}

TEST_P(TrashTest, aFileInThePlaceOfTheTrashIsRefused) {
    const auto item = stage.sandbox.text("home/item", "junk");
    const auto blocked = stage.home() / contents().lexically_relative(stage.home()).begin()->native();
    stage.sandbox.text(blocked, "in the way");
    EXPECT_EQ(put(item), "The Trash cannot be used: Not a directory");
    EXPECT_EQ(testing::contentOf(item), "junk");
    EXPECT_EQ(testing::contentOf(blocked), "in the way");
}

TEST_P(TrashTest, whatIsInTheTrashAlreadyStaysThereWithItsNote) {
    EXPECT_EQ(put(stage.sandbox.text("home/item", "junk")), "");
    EXPECT_EQ(put(stage.sandbox.text("home/folder/sub/inside", "junk").parent_path().parent_path()), "");
    auto inside =
        std::vector{contents(), contents() / "item", contents() / "folder", contents() / "folder/sub/inside"};
    if (GetParam() == Layout::freedesktop) {
        const auto whole = contents().parent_path();
        inside.insert(inside.end(), {whole, whole / "info", whole / "info/item.trashinfo"});
    }
    const auto before = testing::snapshot(stage.home());
    for (const auto& path : inside) EXPECT_EQ(put(path), "Already in the Trash") << path;
    EXPECT_EQ(testing::snapshot(stage.home()), before);
}

TEST_P(TrashTest, anotherThingSwappedInGoesBackWithoutATrace) {
    const auto item = stage.sandbox.text("home/item", "junk");
    testing::Interrupted swapping;
    swapping.beforeMoving = testing::once([&] { fs::rename(stage.outside() / "canary", item); });
    const auto trash = makeTrash(GetParam(), swapping, stage.home());
    EXPECT_EQ(reason(trash->trash(stage.target(swapping, item))), "Changed since it was checked");
    EXPECT_EQ(testing::contentOf(item), "alive");
    EXPECT_TRUE(fs::is_empty(contents()));
    EXPECT_TRUE(fs::is_empty(GetParam() == Layout::flat ? contents() : contents().parent_path() / "info"));
}

TEST_P(TrashTest, aReadOnlyFolderMovesAndKeepsItsMode) {
    const auto ran = testing::asOrdinaryUser([] {
        const RemovalSandbox own;
        own.sandbox.text("home/module/file", "junk");
        fs::permissions(own.home() / "module", fs::perms(0555));
        const auto trash = makeTrash(GetParam(), access(), own.home());
        EXPECT_EQ(reason(trash->trash(own.target(access(), own.home() / "module"))), "");
        EXPECT_EQ(modeOf(trash->contents() / "module"), 0555U);
        fs::permissions(trash->contents() / "module", fs::perms::owner_all);
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "cannot become another user here";
}

TEST_P(TrashTest, anotherVolumeHasItsOwnTrashOrNone) {
    const auto ran = testing::withPrivateMounts([&] {
        const auto top = stage.sandbox.folder("home/disk");
        testing::mountMemory(top);
        const auto own =
            top / (GetParam() == Layout::flat ? ".Trashes/" + user() : ".Trash-" + user() + "/files");
        const auto target = [&](const fs::path& path) {
            const auto seen = Removal::identify(access(), path);
            return Removal::target(path, SafetyGuard::Verdict::allowed(top), *seen);
        };
        const auto trash = makeTrash(GetParam(), access(), stage.home());
        const auto item = stage.sandbox.text(top / "a/b/item", "junk");
        EXPECT_EQ(reason(trash->trash(target(item))), "");
        EXPECT_EQ(reason(trash->trash(target(own / "item"))), "Already in the Trash");
        EXPECT_EQ(testing::contentOf(own / "item"), "junk");
        EXPECT_EQ(modeOf(own), 0700U);
        EXPECT_FALSE(fs::exists(stage.home() / ".local") || fs::exists(stage.home() / ".Trash"));

        stage.sandbox.text(item, "junk again");
        ASSERT_EQ(::mount(nullptr, top.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        EXPECT_TRUE(reason(trash->trash(target(item))).ends_with("Read-only file system"));
        EXPECT_EQ(testing::contentOf(item), "junk again");
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

TEST_P(TrashTest, someoneElsesTrashOnAVolumeIsNotUsed) {
    if (::getuid() != 0) GTEST_SKIP() << "only root can make another user's folder";
    const auto ran = testing::withPrivateMounts([&] {
        const auto top = stage.sandbox.folder("disk");
        testing::mountMemory(top);
        const auto theirs = top / (GetParam() == Layout::flat ? ".Trashes/" + user() : ".Trash-" + user());
        fs::create_directories(theirs);
        ASSERT_EQ(::chown(theirs.c_str(), 65534, 65534), 0);
        const auto item = stage.sandbox.text(top / "item", "junk");
        const auto seen = Removal::identify(access(), item);
        const auto target = Removal::target(item, SafetyGuard::Verdict::allowed(top), *seen);
        EXPECT_EQ(reason(makeTrash(GetParam(), access(), stage.home())->trash(target)),
                  "The Trash cannot be used: Operation not permitted");
        EXPECT_EQ(testing::contentOf(item), "junk");
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

class FreedesktopTrashTest : public ::testing::Test {
  protected:
    [[nodiscard]] fs::path trashFolder() const { return stage.home() / ".local/share/Trash"; }
    [[nodiscard]] Trash& trash() { return *trash_; }

    RemovalSandbox stage;

  private:
    std::unique_ptr<Trash> trash_ = makeTrash(Layout::freedesktop, access(), stage.home());
};

TEST_F(FreedesktopTrashTest, theNoteTellsTheVeryBytesAndTheLocalTime) {
    for (const std::string name : {"plain", "100% new\nline & ü", "\xff\xfe", "a=b;c"}) {
        const auto item = stage.sandbox.text("home/some folder/" + name, "junk");
        ASSERT_EQ(reason(trash().trash(stage.target(access(), item))), "");
        const auto note = trashFolder() / "info" / (name + ".trashinfo");
        EXPECT_EQ(notedPath(note), item.native());
        const std::regex form(
            "\\[Trash Info\\]\nPath=[!-~]+\nDeletionDate=\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\n");
        EXPECT_TRUE(std::regex_match(testing::contentOf(note), form)) << testing::contentOf(note);
    }
}

TEST_F(FreedesktopTrashTest, aNoteOrAnEntryAloneAlsoTakesTheName) {
    stage.sandbox.text(trashFolder() / "files/item", "an entry without a note");
    stage.sandbox.text(trashFolder() / "info/item 2.trashinfo", "a note without an entry");
    const auto item = stage.sandbox.text("home/item", "junk");
    ASSERT_EQ(reason(trash().trash(stage.target(access(), item))), "");
    EXPECT_EQ(testing::contentOf(trashFolder() / "files/item 3"), "junk");
    EXPECT_EQ(testing::contentOf(trashFolder() / "files/item"), "an entry without a note");
    EXPECT_EQ(testing::contentOf(trashFolder() / "info/item 2.trashinfo"), "a note without an entry");
    EXPECT_FALSE(fs::exists(trashFolder() / "info/item.trashinfo"));
}

TEST_F(FreedesktopTrashTest, aLinkAtTheNotesIsRefused) {
    stage.sandbox.folder(trashFolder());
    fs::create_symlink(stage.outside(), trashFolder() / "info");
    const auto item = stage.sandbox.text("home/item", "junk");
    const auto outside = testing::snapshot(stage.outside());
    EXPECT_EQ(reason(trash().trash(stage.target(access(), item))),
              "The Trash cannot be used: Reached through a symbolic link");
    EXPECT_EQ(testing::snapshot(stage.outside()), outside);
    EXPECT_EQ(testing::contentOf(item), "junk");
}

TEST_F(FreedesktopTrashTest, onAFullDiskTheThingStaysAndNoNoteRemains) {
    const auto ran = testing::withPrivateMounts([&] {
        testing::mountMemory(stage.home(), "size=256k");
        const auto item = stage.sandbox.text("home/item", "junk");
        stage.sandbox.folder(trashFolder() / "info");
        stage.sandbox.folder(trashFolder() / "files");
        std::ofstream(stage.home() / "filler") << std::string(1 << 20, 'x');
        EXPECT_EQ(reason(trash().trash(stage.target(access(), item))),
                  "The Trash cannot be used: No space left on device");
        EXPECT_EQ(testing::contentOf(item), "junk");
        EXPECT_TRUE(fs::is_empty(trashFolder() / "info"));
        EXPECT_TRUE(fs::is_empty(trashFolder() / "files"));
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

TEST_F(FreedesktopTrashTest, aVolumesSharedTrashIsUsedWhenItIsSound) {
    struct Case {
        std::string name;
        std::function<void(const fs::path& shared)> make;
        bool used;
    };
    const std::vector<Case> cases = {
        {"sticky", [](const auto& at) { fs::create_directory(at), fs::permissions(at, fs::perms(01777)); },
         true},
        {"notSticky", [](const auto& at) { fs::create_directory(at), fs::permissions(at, fs::perms(0777)); },
         false},
        {"link", [&](const auto& at) { fs::create_directory_symlink(stage.outside(), at); }, false},
        {"file", [](const auto& at) { std::ofstream(at) << "in the way"; }, false},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto ran = testing::withPrivateMounts([&] {
            const auto top = stage.sandbox.folder("disk");
            testing::mountMemory(top);
            row.make(top / ".Trash");
            const auto item = stage.sandbox.text(top / "a/item", "junk");
            const auto seen = Removal::identify(access(), item);
            const auto target = Removal::target(item, SafetyGuard::Verdict::allowed(top / "a"), *seen);
            ASSERT_EQ(reason(trash().trash(target)), "");
            const auto used = row.used ? top / ".Trash" / user() : top / (".Trash-" + user());
            EXPECT_EQ(testing::contentOf(used / "files/item"), "junk");
            EXPECT_EQ(notedPath(used / "info/item.trashinfo"), "a/item");

            fs::remove(used / "files/item");
            trash().erased(used / "files/item");
            EXPECT_TRUE(fs::is_empty(used / "info"));
        });
        if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
    }
}

TEST_F(FreedesktopTrashTest, theNoteOfAnErasedEntryGoesAndNoOther) {
    for (const char* name : {"gone", "kept"}) {
        stage.sandbox.text(trashFolder() / "info" / (std::string(name) + ".trashinfo"), "note");
    }
    const auto stranger = stage.sandbox.text("home/elsewhere/info/gone.trashinfo", "not ours");
    stage.sandbox.text(trashFolder() / "files/kept", "still here");
    stage.sandbox.folder("home/elsewhere/files");
    for (const auto& path :
         {trashFolder() / "files/gone", trashFolder() / "files/kept", stage.home() / "elsewhere/files/gone",
          trashFolder() / "files/kept/files/gone"}) {
        trash().erased(path);
    }
    EXPECT_FALSE(fs::exists(trashFolder() / "info/gone.trashinfo"));
    EXPECT_TRUE(fs::exists(trashFolder() / "info/kept.trashinfo"));
    EXPECT_TRUE(fs::exists(stranger));
}

TEST(TrashNamesTest, numbersStandBeforeTheExtensionAndCutsBetweenCharacters) {
    struct Case {
        std::string name;
        unsigned number;
        std::size_t room;
        std::string expected;
    };
    const std::vector<Case> cases = {
        {"a.txt", 1, 255, "a.txt"},
        {"a.tar.gz", 2, 255, "a.tar 2.gz"},
        {".hidden", 2, 255, ".hidden 2"},
        {"folder", 10, 255, "folder 10"},
        {"abcdef.txt", 1, 8, "abcd.txt"},
        {"abcdef.txt", 2, 8, "ab 2.txt"},
        {"aüüü", 1, 6, "aüü"},
        {"aüüü", 2, 6, "aü 2"},
        {"\xf0\x9f\x92\xbe.txt", 1, 7, ".txt"},
        {"\xbf\xbf\xbf\xbf\xbf\xbf", 1, 5, "\xbf\xbf\xbf\xbf\xbf"},
        {"a." + std::string(40, 'e'), 2, 10, "a.eeeeee 2"},
    };
    for (const auto& [name, number, room, expected] : cases) {
        EXPECT_EQ(TrashNames::numbered(name, number, room), expected) << name << " " << number;
    }
}

}  // namespace
}  // namespace tavrel
