#include "cleaning/Removal.h"
#include "cleaning/RemovalSandbox.h"
#include "support/Isolation.h"

#include <fcntl.h>
#include <filesystem>
#include <linux/fs.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Interrupted;
using testing::once;
using testing::Ran;
using testing::reason;
using testing::RemovalSandbox;

/// Folders "d" in each other below `top`, as many as `depth`, with a file in the deepest.
void makeChain(const fs::path& top, int depth) {
    fs::create_directories(top);
    FileHandle here(::open(top.c_str(), O_RDONLY | O_DIRECTORY));
    for (int i = 0; i < depth; ++i) {
        ASSERT_EQ(::mkdirat(here.get(), "deeper", S_IRWXU), 0);
        here = FileHandle(::openat(here.get(), "deeper", O_RDONLY | O_DIRECTORY));
    }
    const FileHandle file(::openat(here.get(), "file", O_CREAT | O_WRONLY, S_IRUSR));
    ASSERT_TRUE(file);
}

void makeSocket(const fs::path& at) {
    const FileHandle socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    at.native().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

TEST(RemovalTest, everyKindOfThingGoesAndItsNeighboursStay) {
    for (const auto& [name, access, numbersMounts] : testing::accesses()) {
        SCOPED_TRACE(name);
        const RemovalSandbox stage;
        stage.sandbox.text("home/c/item/a/b/file", "junk");
        stage.sandbox.folder("home/c/item/empty");
        stage.sandbox.text("home/c/file", "junk");
        stage.sandbox.link("home/c/dangling", "nowhere");
        ::mkfifo((stage.home() / "c/fifo").c_str(), S_IRUSR);
        ::mkfifo((stage.home() / "c/item/fifo").c_str(), S_IRUSR);
        makeSocket(stage.home() / "c/socket");
        stage.sandbox.text("home/c/item2", "neighbour");
        for (const char* thing : {"item", "file", "dangling", "fifo", "socket"}) {
            EXPECT_EQ(reason(Removal::erase(access, stage.target(access, stage.home() / "c" / thing))), "")
                << thing;
        }
        const std::map<std::string, std::string> left = {{stage.home() / "c", "folder"},
                                                         {stage.home() / "c/item2", "file neighbour"}};
        EXPECT_EQ(testing::snapshot(stage.home()), left);
    }
}

TEST(RemovalTest, aChainDeeperThanAnyPathGoesWithFewOpenFiles) {
    for (const auto& [name, access, numbersMounts] : testing::accesses()) {
        SCOPED_TRACE(name);
        // Long chains take a while to make; one way of reaching things has to show the whole length.
        const int depth = &access == &systemFolderAccess() ? 2'000 : 700;
        testing::inChild([&access = access, depth] {
            const RemovalSandbox stage;
            makeChain(stage.home() / "item", depth);
            const auto target = stage.target(access, stage.home() / "item");
            rlimit few{};
            ::getrlimit(RLIMIT_NOFILE, &few);
            few.rlim_cur = 48;
            ::setrlimit(RLIMIT_NOFILE, &few);
            EXPECT_EQ(reason(Removal::erase(access, target)), "");
            EXPECT_TRUE(fs::is_empty(stage.home()));
        });
    }
}

TEST(RemovalTest, aThingBelowTheLongestPathCanBeTheTarget) {
    const RemovalSandbox stage;
    makeChain(stage.home() / "top", 700);
    const auto& access = systemFolderAccess();
    std::string path = stage.home() / "top";
    for (int i = 0; i < 700; ++i) path += "/deeper";
    EXPECT_FALSE(Removal::identify(access, path + "/none"));
    EXPECT_EQ(reason(Removal::erase(access, stage.target(access, path + "/file"))), "");
    EXPECT_FALSE(Removal::identify(access, path + "/file"));
    EXPECT_TRUE(Removal::identify(access, path));
    EXPECT_EQ(reason(Removal::erase(access, stage.target(access, stage.home() / "top"))), "");
}

TEST(RemovalTest, aFolderMovedOutDuringTheWalkIsNotClimbedOutOf) {
    const RemovalSandbox stage;
    makeChain(stage.home() / "item", 40);
    // Two levels below the item: a walk that did climb on would empty the outside of the stage and then be at
    // its end, still far from the folders above the sandbox.
    const auto middle = stage.home() / "item/deeper/deeper";

    Interrupted access;
    access.beforeClimbing = once([&] { fs::rename(middle, stage.outside() / "folder/deeper"); });
    const auto outcome = Removal::erase(access, stage.target(access, stage.home() / "item"));

    EXPECT_EQ(reason(outcome).substr(0, 28), "Changed since it was checked");
    EXPECT_EQ(testing::contentOf(stage.outside() / "canary"), "alive");
    EXPECT_EQ(testing::contentOf(stage.outside() / "folder/canary"), "alive too");
}

TEST(RemovalTest, aFolderSwappedInAtTheLastMomentIsLeftAlone) {
    const RemovalSandbox stage;
    stage.sandbox.text("home/item/file", "junk");
    Interrupted access;
    access.beforeOpening = [&](const std::string& name) {
        const auto aside = stage.sandbox.path("aside");
        if (name != "item" || fs::exists(aside)) return;
        fs::rename(stage.home() / "item", aside);
        fs::rename(stage.outside(), stage.home() / "item");
    };
    EXPECT_EQ(reason(Removal::erase(access, stage.target(access, stage.home() / "item"))),
              "Changed since it was checked");
    EXPECT_EQ(testing::contentOf(stage.home() / "item/canary"), "alive");
}

TEST(RemovalTest, aFileSwappedInAtTheLastMomentIsPutBack) {
    const RemovalSandbox stage;
    const auto item = stage.sandbox.text("home/item", "junk");
    Interrupted access;
    access.beforeMoving = once([&] { fs::rename(stage.outside() / "canary", item); });
    EXPECT_EQ(reason(Removal::erase(access, stage.target(access, item))), "Changed since it was checked");
    EXPECT_EQ(testing::snapshot(stage.home()), (std::map<std::string, std::string>{{item, "file alive"}}));
}

TEST(RemovalTest, aFileThatCannotBePutBackIsNamed) {
    const RemovalSandbox stage;
    const auto item = stage.sandbox.text("home/item", "junk");
    Interrupted access;
    int moves = 0;
    access.beforeMoving = [&] {
        if (++moves == 1) fs::rename(stage.outside() / "canary", item);
        if (moves == 2) stage.sandbox.text(item, "newcomer");
    };
    const auto words = reason(Removal::erase(access, stage.target(access, item)));
    const auto left = testing::snapshot(stage.home());
    ASSERT_EQ(left.size(), 2U);
    const fs::path hidden = left.begin()->first;
    EXPECT_EQ(testing::contentOf(hidden), "alive");
    EXPECT_NE(words.find(hidden.filename()), std::string::npos) << words;
    EXPECT_EQ(testing::contentOf(item), "newcomer");
}

TEST(RemovalTest, aFolderSwappedForALinkDuringTheWalkIsTakenAsALink) {
    const RemovalSandbox stage;
    stage.sandbox.text("home/item/sub/file", "junk");
    Interrupted access;
    access.beforeOpening = [&](const std::string& name) {
        const auto sub = stage.home() / "item/sub";
        if (name != "sub" || fs::is_symlink(sub)) return;
        fs::rename(sub, stage.sandbox.path("aside"));
        fs::create_symlink(stage.outside(), sub);
    };
    const auto outside = testing::snapshot(stage.outside());
    EXPECT_EQ(reason(Removal::erase(access, stage.target(access, stage.home() / "item"))), "");
    EXPECT_EQ(testing::snapshot(stage.outside()), outside);
    EXPECT_TRUE(fs::exists(stage.sandbox.path("aside/file")));
}

TEST(RemovalTest, aFolderThatKeepsFillingIsGivenUp) {
    const RemovalSandbox stage;
    stage.sandbox.folder("home/item/0");
    Interrupted access;
    int made = 0;
    access.beforeOpening = [&](const std::string& name) {
        if (name == std::to_string(made)) stage.sandbox.folder("home/item/" + std::to_string(++made));
    };
    const auto outcome = Removal::erase(access, stage.target(access, stage.home() / "item"));
    EXPECT_EQ(reason(outcome), "Files keep being added to this folder");
}

TEST(RemovalTest, theReasonNamesWhatStoppedIt) {
    const RemovalSandbox stage;
    const auto file = stage.sandbox.text("home/item/sub/im\nmovable", "junk");
    const FileHandle handle(::open(file.c_str(), O_RDONLY));
    int flags = FS_IMMUTABLE_FL;
    if (::ioctl(handle.get(), FS_IOC_SETFLAGS, &flags) != 0) GTEST_SKIP() << "no immutable files here";
    const auto& access = systemFolderAccess();
    const auto inside = reason(Removal::erase(access, stage.target(access, stage.home() / "item")));
    const auto itself = reason(Removal::erase(access, stage.target(access, file)));
    flags = 0;
    ::ioctl(handle.get(), FS_IOC_SETFLAGS, &flags);
    EXPECT_EQ(inside, "Operation not permitted: sub/im\\nmovable");
    EXPECT_EQ(itself, "Operation not permitted");
    EXPECT_EQ(testing::contentOf(file), "junk");
}

TEST(RemovalTest, foldersThatTheirOwnerMayNotChangeGoAllTheSame) {
    const auto ran = testing::asOrdinaryUser([] {
        for (const auto& [name, access, numbersMounts] : testing::accesses()) {
            SCOPED_TRACE(name);
            const RemovalSandbox stage;
            stage.sandbox.text("home/item/module/sub/file", "junk");
            stage.sandbox.text("home/item/unlisted/file", "junk");
            stage.sandbox.text("home/item/barred/file", "junk");
            const auto item = stage.home() / "item";
            const auto canBeOpened = numbersMounts ? fs::perms::none : fs::perms::owner_read;
            fs::permissions(item / "module/sub", fs::perms(0555));
            fs::permissions(item / "module", fs::perms(0555));
            fs::permissions(item / "unlisted", fs::perms(0444));
            fs::permissions(item / "barred", canBeOpened);
            fs::permissions(item, fs::perms(0555));
            EXPECT_EQ(reason(Removal::erase(access, stage.target(access, item))), "");
            EXPECT_TRUE(fs::is_empty(stage.home()));
        }
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "cannot become another user here";
}

TEST(RemovalTest, anotherUsersFilesAreRefusedInWords) {
    if (::getuid() != 0) GTEST_SKIP() << "only root can make another user's files";
    const RemovalSandbox stage;
    const auto file = stage.sandbox.text("home/item/sub/file", "junk");
    fs::permissions(stage.sandbox.root(), fs::perms::all);
    const auto ran = testing::asOrdinaryUser([&] {
        const auto& access = systemFolderAccess();
        const auto item = stage.home() / "item";
        EXPECT_EQ(reason(Removal::erase(access, stage.target(access, item))), "Permission denied: sub/file");
    });
    ASSERT_EQ(ran, Ran::yes);
    EXPECT_EQ(testing::contentOf(file), "junk");
}

TEST(RemovalTest, aRootItselfIsNoTarget) {
    const RemovalSandbox stage;
    const auto seen = Removal::identify(systemFolderAccess(), stage.home());
    const auto target = Removal::target(stage.home(), SafetyGuard::Verdict::allowed(stage.home()), *seen);
    EXPECT_FALSE(Removal::erase(systemFolderAccess(), target));
    EXPECT_TRUE(fs::exists(stage.home()));
}

}  // namespace
}  // namespace tavrel
