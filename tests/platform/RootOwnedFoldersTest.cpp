#include "platform/posix/RootOwnedFolders.h"
#include "support/Sandbox.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;

constexpr uid_t root = 0;
constexpr uid_t somebody = 1000;

TEST(RootOwnedFolders, OnlyWhatRootAloneControlsCounts) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root to make root's folders";
    const Sandbox sandbox("/var/tmp");
    const auto folder = [&sandbox](const char* name, mode_t mode, uid_t owner) {
        auto path = sandbox.folder(name);
        EXPECT_EQ(::chown(path.c_str(), owner, owner), 0);
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        return path;
    };
    const auto own = folder("own", 0755, root);
    const std::pair<std::filesystem::path, bool> cases[] = {
        {own / "file", true},
        {own / "missing/file", false},
        {folder("sticky", 01777, root) / "file", true},
        {folder("open", 0777, root) / "file", true},
        {folder("open/inner", 0755, root) / "file", false},
        {folder("group", 0775, root) / "file", true},
        {folder("group/inner", 0755, root) / "file", false},
        {folder("sticky/inner", 0755, root) / "file", true},
        {folder("sticky/users", 0755, somebody) / "file", false},
        {folder("users", 0755, somebody) / "file", true},
        {folder("users/inner", 0755, root) / "file", false},
        {sandbox.link("link", "own") / "file", false},
        {own / "../own/file", false},
        {own / "", false},
        {"relative", false},
        {"", false},
        {"/", false},
        {"/etc", true}};
    for (const auto& [path, safe] : cases) EXPECT_EQ(onlyRootCanReplaceFoldersAbove(path), safe) << path;
    EXPECT_TRUE(onlyRootCanReplaceFoldersAbove(sandbox.path("users/inner/file"), somebody));

    const auto program = own / "program";
    sandbox.file("own/program");
    const std::tuple<mode_t, uid_t, bool> programs[] = {
        {0755, root, true}, {0775, root, false}, {0755, somebody, false}};
    for (const auto& [mode, owner, safe] : programs) {
        ASSERT_TRUE(::chown(program.c_str(), owner, owner) == 0 && ::chmod(program.c_str(), mode) == 0);
        EXPECT_EQ(onlyRootCanChangeProgram(program), safe) << mode << " " << owner;
    }
    EXPECT_FALSE(onlyRootCanChangeProgram(sandbox.file("open/program")));
    EXPECT_FALSE(onlyRootCanChangeProgram(sandbox.link("own/link", "program")));
}

}  // namespace
}  // namespace tavrel
