#include "platform/FolderAccess.h"
#include "platform/linux/files/LinuxFolderAccess.h"
#include "support/Isolation.h"
#include "support/Sandbox.h"

#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::bindMount;
using testing::mountMemory;
using testing::Ran;
using testing::Sandbox;

template <int code>
int withheld(int /*at*/, const char* /*path*/, std::uint64_t /*flags*/) {
    errno = code;
    return -1;
}

const LinuxFolderAccess oldKernel(withheld<ENOSYS>);
const LinuxFolderAccess sandboxed(withheld<EPERM>);

struct Way {
    const char* name;
    const FolderAccess& access;
    bool numbersMounts;
};

class FolderAccessTest : public ::testing::TestWithParam<Way> {
  protected:
    [[nodiscard]] static const FolderAccess& access() { return GetParam().access; }
    [[nodiscard]] FileHandle anchor() const { return std::move(*access().openAnchor(sandbox.root())); }

    Sandbox sandbox;
};

INSTANTIATE_TEST_SUITE_P(, FolderAccessTest,
                         ::testing::Values(Way{"posix", posixFolderAccess(), false},
                                           Way{"system", systemFolderAccess(), true},
                                           Way{"oldKernel", oldKernel, true},
                                           Way{"sandboxed", sandboxed, true}),
                         [](const auto& row) { return row.param.name; });

TEST_P(FolderAccessTest, openBeneathTakesRealFoldersOnly) {
    sandbox.file("a/b/file");
    sandbox.link("a/link", "b");
    sandbox.link("a/out", "/");
    struct Case {
        std::vector<std::string> components;
        int error;
    };
    const std::vector<Case> cases = {
        {{}, 0},
        {{"a", "b"}, 0},
        {{"a", "link"}, ELOOP},
        {{"a", "out", "etc"}, ELOOP},
        {{"a", "b", "file"}, ENOTDIR},
        {{"a", "b", "file", "x"}, ENOTDIR},
        {{"a", "none"}, ENOENT},
        {{"a", ".."}, EINVAL},
        {{"."}, EINVAL},
        {{""}, EINVAL},
        {{"a/b"}, EINVAL},
        {{std::string("a\0b", 3)}, EINVAL},
    };
    for (const auto& [components, error] : cases) {
        const auto opened = access().openBeneath(anchor().get(), components);
        EXPECT_EQ(opened ? 0 : opened.error().value(), error) << ::testing::PrintToString(components);
    }
    const auto b = access().openBeneath(anchor().get(), {"a", "b"});
    struct stat status {};
    ASSERT_EQ(::stat(sandbox.path("a/b").c_str(), &status), 0);
    EXPECT_EQ(access().identify(b->get())->inode, status.st_ino);
}

TEST_P(FolderAccessTest, anAnchorThatIsALinkIsRefused) {
    sandbox.folder("real");
    sandbox.link("link", "real");
    EXPECT_FALSE(access().openAnchor(sandbox.path("link")));
    sandbox.folder("real/inside");
    EXPECT_FALSE(access().openAnchor(sandbox.path("link/inside")));
    EXPECT_TRUE(access().openAnchor(sandbox.path("real/inside")));
    EXPECT_TRUE(access().openAnchor(sandbox.path("real")));
}

TEST_P(FolderAccessTest, opensWaysLongerThanAnyPathMayBe) {
    const std::vector<std::string> components(700, std::string(40, 'd'));
    auto here = anchor();
    for (const auto& component : components) {
        ASSERT_EQ(::mkdirat(here.get(), component.c_str(), S_IRWXU), 0);
        here = FileHandle(::openat(here.get(), component.c_str(), O_RDONLY | O_DIRECTORY));
    }
    const auto opened = access().openBeneath(anchor().get(), components);
    ASSERT_TRUE(opened);
    EXPECT_TRUE(access().identify(opened->get())->sameThing(*access().identify(here.get())));
}

TEST_P(FolderAccessTest, noWayLeadsIntoOrOutOfAMount) {
    const auto ran = testing::withPrivateMounts([&] {
        sandbox.folder("outside/inner");
        sandbox.folder("in/memory");
        sandbox.folder("in/bind");
        mountMemory(sandbox.path("in/memory"));
        sandbox.folder("in/memory/deep");
        bindMount(sandbox.path("outside"), sandbox.path("in/bind"));

        const auto root = anchor();
        EXPECT_EQ(access().openBeneath(root.get(), {"in", "memory", "deep"}).error().value(), EXDEV);
        const auto top = access().openAnchor(sandbox.path("in/memory"));
        EXPECT_EQ(access().openAbove(top->get()).error().value(), EXDEV);
        EXPECT_TRUE(access().openBeneath(top->get(), {"deep"}));
        if (!GetParam().numbersMounts) return;
        EXPECT_EQ(access().openBeneath(root.get(), {"in", "bind"}).error().value(), EXDEV);
        EXPECT_EQ(access().openBeneath(root.get(), {"in", "bind", "inner"}).error().value(), EXDEV);
        const auto bound = access().identify(AT_FDCWD, sandbox.path("in/bind/inner"));
        EXPECT_FALSE(bound->sameMount(*access().identify(root.get())));
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

TEST_P(FolderAccessTest, openAboveComesBackAndEndsAtTheTop) {
    sandbox.folder("a/b");
    const auto b = access().openBeneath(anchor().get(), {"a", "b"});
    const auto a = access().openAbove(b->get());
    ASSERT_TRUE(a);
    EXPECT_TRUE(access().identify(a->get())->sameThing(*access().identify(AT_FDCWD, sandbox.path("a"))));
    EXPECT_EQ(access().openAbove(access().openAnchor("/")->get()).error().value(), ENOENT);
}

TEST_P(FolderAccessTest, aMoveNeverReplaces) {
    const auto from = access().openAnchor(sandbox.folder("from"));
    const auto to = access().openAnchor(sandbox.folder("to"));
    for (const std::string kind : {"file", "folder", "link"}) {
        for (const std::string taken : {"file", "folder", "link"}) {
            const auto name = std::string(kind).append("-").append(taken);
            if (kind == "file") sandbox.text("from/" + name, "mine");
            if (kind == "folder") sandbox.text("from/" + name + "/inside", "mine");
            if (kind == "link") sandbox.link("from/" + name, "mine");
            if (taken == "file") sandbox.text("to/" + name, "theirs");
            if (taken == "folder") sandbox.folder("to/" + name);
            if (taken == "link") sandbox.link("to/" + name, "theirs");
            const auto mine = *access().identify(from->get(), name);
            const auto theirs = *access().identify(to->get(), name);

            EXPECT_EQ(access().moveExclusively(from->get(), name, to->get(), name).value(), EEXIST) << name;
            EXPECT_TRUE(access().identify(from->get(), name)->sameThing(mine)) << name;
            EXPECT_TRUE(access().identify(to->get(), name)->sameThing(theirs)) << name;

            EXPECT_FALSE(access().moveExclusively(from->get(), name, to->get(), name + " 2")) << name;
            EXPECT_TRUE(access().identify(to->get(), name + " 2")->sameThing(mine)) << name;
        }
    }
    EXPECT_TRUE(fs::is_empty(sandbox.path("from")));
    EXPECT_EQ(std::distance(fs::directory_iterator(sandbox.path("to")), {}), 18)
        << "no helper names stay behind";
    EXPECT_EQ(access().moveExclusively(from->get(), "none", to->get(), "x").value(), ENOENT);
}

TEST_P(FolderAccessTest, aFailedMoveLeavesBothFoldersAsTheyWere) {
    const auto ran = testing::withPrivateMounts([&] {
        sandbox.folder("other");
        mountMemory(sandbox.path("other"));
        sandbox.text("from/file", "mine");
        sandbox.text("from/folder/file", "mine");
        const auto from = access().openAnchor(sandbox.path("from"));
        const auto to = access().openAnchor(sandbox.path("other"));
        EXPECT_EQ(access().moveExclusively(from->get(), "file", to->get(), "file").value(), EXDEV);
        EXPECT_EQ(access().moveExclusively(from->get(), "folder", to->get(), "folder").value(), EXDEV);
        EXPECT_EQ(testing::contentOf(sandbox.path("from/file")), "mine");
        EXPECT_EQ(testing::contentOf(sandbox.path("from/folder/file")), "mine");
        EXPECT_TRUE(fs::is_empty(sandbox.path("other")));
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

/// A file system or a kernel that refuses hard links from a certain one on, as often as is said.
class FewLinks : public PosixFolderAccess {
  public:
    FewLinks(int allowed, int refused) : allowed_(allowed), refused_(refused) {}

  private:
    std::error_code link(int from, const std::string& fromName, int to,
                         const std::string& toName) const override {
        if (allowed_-- > 0 || refused_-- <= 0) return PosixFolderAccess::link(from, fromName, to, toName);
        return std::make_error_code(std::errc::operation_not_permitted);
    }
    mutable int allowed_;
    mutable int refused_;
};

TEST(PosixFolderAccessTest, aFileThatCannotBeLinkedStaysUnderItsName) {
    const Sandbox sandbox;
    sandbox.text("from/file", "mine");
    sandbox.folder("to");
    constexpr int always = 100;
    for (const auto& access : {FewLinks(0, always), FewLinks(0, 1), FewLinks(1, 1)}) {
        const auto from = access.openAnchor(sandbox.path("from"));
        const auto to = access.openAnchor(sandbox.path("to"));
        EXPECT_EQ(access.moveExclusively(from->get(), "file", to->get(), "file").value(), EPERM);
        EXPECT_EQ(testing::contentOf(sandbox.path("from/file")), "mine");
        EXPECT_EQ(std::distance(fs::directory_iterator(sandbox.path("from")), {}), 1);
        EXPECT_TRUE(fs::is_empty(sandbox.path("to")));
    }
}

TEST_P(FolderAccessTest, aFolderThatMayNotBeReadCanStillBeMadeReadable) {
    if (!GetParam().numbersMounts) GTEST_SKIP() << "the portable way cannot open it";
    const auto ran = testing::asOrdinaryUser([] {
        const Sandbox own;
        fs::permissions(own.folder("barred"), fs::perms::none);
        const auto root = access().openAnchor(own.root());
        const auto barred = access().openBeneath(root->get(), {"barred"});
        ASSERT_TRUE(barred);
        std::array<char, 512> names{};
        EXPECT_EQ(::getdents64(barred->get(), names.data(), names.size()), -1);
        EXPECT_FALSE(access().setMode(barred->get(), S_IRWXU));
        EXPECT_TRUE(fs::is_empty(own.path("barred")));
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "cannot become another user here";
}

TEST(LinuxFolderAccessTest, holdsMountSeesThroughEveryName) {
    const Sandbox sandbox;
    const auto ran = testing::withPrivateMounts([&] {
        for (const std::string name :
             {"plain", "with space", "new\nline", "tab\tand\\slash", "\\040", "\xff\xfe"}) {
            const auto& access = systemFolderAccess();
            mountMemory(sandbox.folder(name + "/a/mounted"));
            sandbox.folder(name + "/a/mounted-beside");
            const auto holds = [&](const std::string& folder) {
                return access.holdsMount(access.openAnchor(sandbox.path(name + folder))->get());
            };
            EXPECT_TRUE(holds("")) << name;
            EXPECT_TRUE(holds("/a")) << name;
            EXPECT_TRUE(holds("/a/mounted")) << name;
            EXPECT_FALSE(holds("/a/mounted-beside")) << name;
        }
    });
    if (ran == Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

}  // namespace
}  // namespace tavrel
