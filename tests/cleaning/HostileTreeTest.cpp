#include "cleaning/Removal.h"
#include "cleaning/RemovalSandbox.h"
#include "support/Isolation.h"

#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

// Trees built to make a removal hit something else. Each is put before every way of removing through every
// way of reaching things, and each time what lies outside has to survive to the byte.

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::bindMount;
using testing::Layout;
using testing::Ran;
using testing::RemovalSandbox;

constexpr const char* itemName = ".cache/app/item";

using Act = std::function<void(const RemovalSandbox&)>;

struct Hostile {
    std::string name;
    Act build;           // makes the item
    Act swap;            // what happens between the guard's answer and the removal
    std::string reason;  // how the refusal begins; empty when the removal succeeds
    bool mounts = false;
};

const Act nothing = [](const RemovalSandbox&) {};

void makeFolderItem(const RemovalSandbox& stage) {
    stage.sandbox.text(fs::path("home") / itemName / "sub/file", "junk");
}

void makeFileItem(const RemovalSandbox& stage) {
    stage.sandbox.text(fs::path("home") / itemName, "junk");
}

/// Renames `relative` of the home out of the way and puts something else in its place.
Act replaced(const std::string& relative,
             const std::function<void(const RemovalSandbox&, const fs::path&)>& put) {
    return [=](const RemovalSandbox& stage) {
        const auto at = relative.empty() ? stage.home() : stage.home() / relative;
        fs::rename(at, stage.sandbox.path("moved-away"));
        put(stage, at);
    };
}

void linkToMovedAway(const RemovalSandbox& stage, const fs::path& at) {
    fs::create_symlink(stage.sandbox.path("moved-away"), at);
}

const std::vector<Hostile>& hostileTrees() {
    const std::string changed = "Changed since it was checked";
    const std::string link = "Reached through a symbolic link";
    const std::string mounted = "A disk is mounted inside this folder";
    const std::string elsewhere = "It lies on another disk than your home";
    static const std::vector<Hostile> all = {
        {"rootSwappedForALink", makeFolderItem, replaced("", linkToMovedAway), link},
        {"middleSwappedForALink", makeFolderItem, replaced(".cache", linkToMovedAway), link},
        {"parentSwappedForALink", makeFolderItem, replaced(".cache/app", linkToMovedAway), link},
        {"folderSwappedForALink", makeFolderItem, replaced(itemName, linkToMovedAway), changed},
        {"fileSwappedForALink", makeFileItem, replaced(itemName, linkToMovedAway), changed},
        {"folderSwappedForAnother", makeFolderItem,
         replaced(itemName, [](const RemovalSandbox& stage,
                               const fs::path& at) { stage.sandbox.text(at / "precious", "keep"); }),
         changed},
        {"fileSwappedForAnother", makeFileItem,
         replaced(itemName, [](const RemovalSandbox& stage,
                               const fs::path& at) { stage.sandbox.text(at, "precious"); }),
         changed},
        {"fileSwappedForAFolder", makeFileItem,
         replaced(itemName, [](const RemovalSandbox& stage,
                               const fs::path& at) { stage.sandbox.text(at / "precious", "keep"); }),
         changed},
        {"gone", makeFolderItem, replaced(itemName, [](const RemovalSandbox&, const fs::path&) {}),
         "No such file or directory"},
        {"itemIsALink",
         [](const RemovalSandbox& stage) {
             stage.sandbox.link(fs::path("home") / itemName, stage.outside());
         },
         nothing, ""},
        {"linksInside",
         [](const RemovalSandbox& stage) {
             const auto item = fs::path("home") / itemName;
             stage.sandbox.link(item / "toFolder", stage.outside());
             stage.sandbox.link(item / "sub/toFile", stage.outside() / "canary");
             stage.sandbox.link(item / "sub/up", "../../../..");
             stage.sandbox.link(item / "self", ".");
         },
         nothing, ""},
        {"hardLinksToOutside",
         [](const RemovalSandbox& stage) {
             makeFolderItem(stage);
             fs::create_hard_link(stage.outside() / "canary", stage.home() / itemName / "hard");
         },
         nothing, ""},
        {"strangeNames",
         [](const RemovalSandbox& stage) {
             const auto item = fs::path("home") / itemName;
             for (const char* name : {"new\nline", "\xff\xfe", "-rf", "--", "...", " ", "*", "~", "\\"}) {
                 stage.sandbox.text(item / "files" / name, "junk");
                 stage.sandbox.text(item / "folders" / name / name, "junk");
             }
         },
         nothing, ""},
        {"folderBoundInside",
         [](const RemovalSandbox& stage) {
             fs::create_directories(stage.home() / itemName / "a/b");
             bindMount(stage.outside(), stage.home() / itemName / "a/b");
         },
         nothing, mounted, true},
        {"fileBoundInside",
         [](const RemovalSandbox& stage) {
             makeFolderItem(stage);
             bindMount(stage.outside() / "canary", stage.home() / itemName / "sub/file");
         },
         nothing, mounted, true},
        {"folderBoundOverTheItem", makeFolderItem,
         [](const RemovalSandbox& stage) { bindMount(stage.outside(), stage.home() / itemName); }, elsewhere,
         true},
        {"fileBoundOverTheItem", makeFileItem,
         [](const RemovalSandbox& stage) { bindMount(stage.outside() / "canary", stage.home() / itemName); },
         elsewhere, true},
        {"theItemBoundOverItself", makeFolderItem,
         [](const RemovalSandbox& stage) { bindMount(stage.home() / itemName, stage.home() / itemName); },
         elsewhere, true},
        {"folderBoundInTheMiddle", makeFolderItem,
         [](const RemovalSandbox& stage) {
             stage.sandbox.text("outside/app/item/sub/file", "not yours");
             bindMount(stage.outside(), stage.home() / ".cache");
         },
         elsewhere, true},
    };
    return all;
}

struct Way {
    const char* name;
    std::function<Removal::Outcome(const FolderAccess&, const RemovalSandbox&, const Removal::Target&)>
        remove;
    bool keeps;  // whether the thing lives on in a Trash
};

Removal::Outcome intoTrash(Layout layout, const FolderAccess& access, const RemovalSandbox& stage,
                           const Removal::Target& target) {
    return makeTrash(layout, access, stage.home())->trash(target).map([](const auto& /*trashed*/) {});
}

const std::vector<Way>& ways() {
    static const std::vector<Way> all = {
        {"erase",
         [](const auto& access, const auto&, const auto& target) { return Removal::erase(access, target); },
         false},
        {"flat",
         [](const auto& access, const auto& stage, const auto& target) {
             return intoTrash(Layout::flat, access, stage, target);
         },
         true},
        {"freedesktop",
         [](const auto& access, const auto& stage, const auto& target) {
             return intoTrash(Layout::freedesktop, access, stage, target);
         },
         true},
    };
    return all;
}

bool livesBelow(const fs::path& folder, const FileIdentity& identity) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto found = systemFolderAccess().identify(AT_FDCWD, entry.path());
        if (found && found->sameThing(identity)) return true;
    }
    return false;
}

void perform(const Hostile& tree, const Way& way, const FolderAccess& access, const RemovalSandbox& stage) {
    tree.build(stage);
    const auto target = stage.target(access, stage.home() / itemName);
    tree.swap(stage);
    const auto all = testing::snapshot(stage.sandbox.root());
    const auto outside = testing::snapshot(stage.outside());

    const auto outcome = way.remove(access, stage, target);

    EXPECT_EQ(testing::snapshot(stage.outside()), outside);
    if (!tree.reason.empty()) {
        EXPECT_TRUE(testing::reason(outcome).starts_with(tree.reason)) << testing::reason(outcome);
        fs::remove_all(stage.home() / ".local");  // an empty Trash may have been made
        fs::remove(stage.home() / ".Trash");
        EXPECT_EQ(testing::snapshot(stage.sandbox.root()), all) << "a refusal leaves everything as it was";
        return;
    }
    EXPECT_EQ(testing::reason(outcome), "");
    EXPECT_FALSE(Removal::identify(access, stage.home() / itemName));
    EXPECT_EQ(livesBelow(stage.home(), target.seen), way.keeps);
}

class HostileTreeTest : public ::testing::TestWithParam<Hostile> {};

INSTANTIATE_TEST_SUITE_P(, HostileTreeTest, ::testing::ValuesIn(hostileTrees()),
                         [](const auto& row) { return row.param.name; });

TEST_P(HostileTreeTest, whatLiesOutsideSurvives) {
    for (const auto& named : testing::accesses()) {
        if (GetParam().mounts && !named.numbersMounts) continue;
        for (const auto& way : ways()) {
            SCOPED_TRACE(std::string(named.name) + ", " + way.name);
            const RemovalSandbox stage;  // goes when the mounts of the child have gone
            const auto run = [&] { perform(GetParam(), way, named.access, stage); };
            if (!GetParam().mounts) {
                run();
            } else if (testing::withPrivateMounts(run) == Ran::forbidden) {
                GTEST_SKIP() << "mounting is forbidden here";
            }
        }
    }
}

TEST(HostileMemoryTest, anotherFileSystemInsideIsNeverEntered) {
    for (const auto& named : testing::accesses()) {
        SCOPED_TRACE(named.name);
        const RemovalSandbox stage;
        const auto ran = testing::withPrivateMounts([&] {
            makeFolderItem(stage);
            const auto inside = stage.home() / itemName / "sub/disk";
            fs::create_directories(inside);
            testing::mountMemory(inside);
            stage.sandbox.text(inside / "canary", "alive");
            const auto outcome =
                Removal::erase(named.access, stage.target(named.access, stage.home() / itemName));
            EXPECT_TRUE(testing::reason(outcome).starts_with("A disk is mounted inside this folder"));
            EXPECT_EQ(testing::contentOf(inside / "canary"), "alive");
        });
        if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
    }
}

}  // namespace
}  // namespace tavrel
