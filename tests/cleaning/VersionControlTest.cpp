#include "cleaning/Cleaner.h"
#include "cleaning/ProjectPurger.h"
#include "cleaning/RemovalSandbox.h"
#include "cleaning/VersionControl.h"
#include "core/Quoting.h"
#include "support/FakeAdministrator.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::RemovalSandbox;
using testing::Sandbox;

/// Runs a script in a folder, with a git that heeds no settings of this machine.
void run(const Sandbox::Path& folder, const std::string& script) {
    const std::string all = "set -e; cd " + Quoting::shell(folder.native()) +
                            "; export HOME=$PWD GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@b"
                            " GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@b; exec >/dev/null 2>&1; " +
                            script;
    ASSERT_EQ(std::system(("sh -c " + Quoting::shell(all)).c_str()), 0) << script;
}

TEST(VersionControlTest, TellsWhatIsTrackedAndTakesTheRestForTracked) {
    struct Case {
        const char* script;  // in "r", a repository with the files a/target/f and b/y committed
        const char* path;
        bool tracked;
    };
    const Case cases[] = {
        {":", "r/a/target", true},
        {":", "r/a/target/f", true},
        {":", "r/a/targ", false},
        {":", "r/a/target/f2", false},
        {":", "r/b/new", false},
        {"git rm -q --cached -r a; git commit -qm c", "r/a/target", false},
        {"touch b/new; git add -N b/new", "r/b/new", true},
        {"touch a/target-1 a/target.c; git rm -q --cached -r a/target; git add a/target-1 a/target.c",
         "r/a/target", false},
        {"git update-index --index-version 4", "r/a/target", true},
        {"git update-index --index-version 4", "r/b/new", false},
        {"git update-index --skip-worktree b/y", "r/b/y", true},  // written as version 3
        {"git update-index --skip-worktree b/y", "r/b/new", false},
        {"git update-index --split-index", "r/b/new", true},
        {"git sparse-checkout init --cone --sparse-index; git sparse-checkout set b", "r/a/target", true},
        {"rm .git/index", "r/b/new", true},
        {"rm .git/index; mkdir .git/index", "r/b/new", true},
        {"rm .git/index; mkfifo .git/index", "r/b/new", true},
        {"head -c 150 .git/index >i; mv i .git/index", "r/b/new", true},
        {"head -c 250 /dev/zero | dd of=.git/index bs=1 seek=80 conv=notrunc", "r/b/new", true},
        {"rm -rf .git; git init -q", "r/a/target", false},
        {"rm -rf .git; git init -q --object-format=sha256; git add -A", "r/b/new", true},
        {"chown -R 12345 . || :", "r/a/target", true},
        {"chown -R 12345 . || :", "r/b/new", false},
        {"git worktree add -q ../w", "w/a/target", true},
        {"git worktree add -q ../w", "w/b/new", false},
        {"git worktree add -q ../w; rm -r .git/worktrees", "w/b/new", true},
        {"git clone -q . ../s; git -c protocol.file.allow=always submodule add ../s sub", "r/sub", true},
        {"git clone -q . ../s; git -c protocol.file.allow=always submodule add ../s sub", "r/sub/a/target",
         true},
        {"git clone -q . ../s; git -c protocol.file.allow=always submodule add ../s sub", "r/sub/b/new",
         false},
        {"git update-index --add --cacheinfo 160000,$(git rev-parse HEAD),b/new/x", "r/b/new", true},
        {"git init -q a", "r/a/target", true},
        {"git clone -q . b/new", "r/b/new", true},
        {"git config core.worktree ..", "r/b/new", false},
        {"git config core.worktree ../..", "r/b/new", true},
        {"mkdir ../.svn", "r/b/new", true},
        {"ln -s r/a ../alias; mkdir ../.idea", "alias/target", true},
    };
    for (const auto& [script, path, tracked] : cases) {
        const Sandbox disk;
        run(disk.folder("r"),
            "mkdir -p a/target b; git init -q; echo x >a/target/f; echo y >b/y; git add -A;"
            "git commit -qm c; " +
                std::string(script));
        VersionControl versionControl;
        static_cast<void>(versionControl.tracks(disk.path("r/a/deep/er")));  // to be forgotten
        EXPECT_EQ(versionControl.tracks(disk.path(path)), tracked) << script << ", " << path;
    }
}

TEST(VersionControlTest, APatchToSomethingCommittedIsNeverDeleted) {
    const RemovalSandbox stage;
    const auto project = stage.sandbox.folder("home/shop");
    stage.sandbox.file("home/shop/node_modules/left/index.js", 70000);
    run(project,
        "git init -q; touch package.json; git add -A; git commit -qm c;"
        "echo patched >>node_modules/left/index.js; find . -exec touch -d '60 days ago' {} +");
    const ProjectPurger::Tables tables{
        .artifacts = {{"node_modules", {"package.json"}, Risk::safe, "npm install restores it"}}};
    const auto found = ProjectPurger::scan(tables, {stage.home()}, 30, stage.guard(), testing::now());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].risk, Risk::review);
    EXPECT_EQ(found[0].note, "shop · npm install restores it · under version control");

    const auto trash = makeTrash(testing::Layout::freedesktop, systemFolderAccess(), stage.home());
    testing::FakeAdministrator administrator;
    const Cleaner cleaner({.access = systemFolderAccess(),
                           .trash = *trash,
                           .administrator = administrator,
                           .systemRoots = {},
                           .history = stage.sandbox.path("history.json"),
                           .now = [] { return Instant(); }});
    EXPECT_EQ(cleaner.clean(found, "purge", stage.guard(), {}, {}).removed.size(), 1U);
    EXPECT_TRUE(testing::contentOf(trash->contents() / "node_modules/left/index.js").ends_with("patched\n"));
}

}  // namespace
}  // namespace tavrel
