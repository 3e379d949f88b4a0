#include "cleaning/ProjectPurger.h"
#include "cleaning/ScanTable.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <limits>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using sample::SampleMac;
using testing::Sandbox;

class ProjectPurgerTest : public ::testing::Test {
  protected:
    std::vector<CleanItem> scan() const {
        return ProjectPurger::scan(tables, {mac.at("~/Code")}, 30, mac.guard(), testing::now());
    }
    void expect(const std::string& table) const {
        testing::expectScan(mac, table, [&] { return scan(); });
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
    ProjectPurger::Tables tables = mac.profile().projects;
};

TEST_F(ProjectPurgerTest, TakesAnArtifactOnlyBesideItsMarker) {
    disk.link("Users/ana/Code/shop/dist", mac.at("~/Code/tool"));
    expect(R"(
        ~/Code/shop/package.json                  | 10    | 60
        ~/Code/shop/node_modules/                 | 70000 |    | safe
        ~/Code/shop/node_modules/x/node_modules/  | 70000
        ~/Code/shop/node_modules/x/package.json   | 10
        ~/Code/shop/build/                        | 70000
        ~/Code/shop/build/__pycache__/            | 70000 |    | review
        ~/Code/tool/deep/__pycache__/             | 70000 |    | safe)");
}

TEST_F(ProjectPurgerTest, AProjectInUseIsForReview) {
    // Nobody ever worked where there are artifacts alone.
    expect(R"(
        ~/Code/old/package.json      | 10    | 31
        ~/Code/old/node_modules/     | 70000 |    | safe   | old · npm install restores it
        ~/Code/old/dist/             | 70000 |    | review
        ~/Code/new/package.json      | 10    | 1
        ~/Code/new/node_modules/     | 70000 |    | review | new · used recently
        ~/Code/bare/DerivedData/     | 70000 |    | safe)");
}

TEST_F(ProjectPurgerTest, OnLinuxWorkInTheSourcesCounts) {
    tables = Profiles::linux(disk.root(), mac.home()).projects;
    for (int i = 0; i < 2001; ++i) mac.file("~/Code/vast/data/" + std::to_string(i), 0, 60);
    // Nothing but commits and files down to two folders below tells of work, whatever folders say.
    expect(R"(
        ~/Code/rust/Cargo.toml                    | 10    | 60
        ~/Code/rust/src/main.rs                   | 10    | 1
        ~/Code/rust/target/CACHEDIR.TAG           | 10    |
        ~/Code/rust/target/debug/                 | 70000
        ~/Code/rust/target                        |       |    | review | rust · Rust build output · used recently
        ~/Code/idle/.git/HEAD                     | 10    | 60
        ~/Code/idle/.git/logs/HEAD                | 10    | 60
        ~/Code/idle/.git/config                   | 10    | 0
        ~/Code/idle/.idea/workspace.xml           | 10    | 0
        ~/Code/idle/a/b/c/d/e/main.py             | 10    | 0
        ~/Code/idle/a/b/main.py                   | 10    | 60
        ~/Code/idle/a/b/__pycache__/main.pyc      | 70000 | 0
        ~/Code/idle/a/b/__pycache__               |       |    | safe   | idle · Python bytecode
        ~/Code/done/.git/logs/HEAD                | 10    | 1
        ~/Code/done/a/b/__pycache__/main.py       | 70000 | 60
        ~/Code/done/a/b/__pycache__               |       |    | review | done · Python bytecode · holds other files too · used recently
        ~/Code/vast/package.json                  | 10    | 60
        ~/Code/vast/node_modules/                 | 70000 | 60 | review | vast · npm install restores it · may be in use)");
}

TEST_F(ProjectPurgerTest, OnLinuxEachRowNeedsItsProof) {
    tables = Profiles::linux(disk.root(), mac.home()).projects;
    expect(R"(
        ~/Code/c/CMakeLists.txt                   | 10    | 60
        ~/Code/c/build/                           | 70000
        ~/Code/c/cmake-build-debug/CMakeCache.txt | 70000
        ~/Code/c/cmake-build-debug                |       |    | review
        ~/Code/meson/meson.build                  | 10    | 60
        ~/Code/meson/build/meson-private/         | 70000
        ~/Code/meson/build                        |       |    | review
        ~/Code/apk/build.gradle                   | 10    | 60
        ~/Code/apk/build/tmp/                     | 70000
        ~/Code/apk/build/outputs/                 | 70000
        ~/Code/apk/build                          |       |    | review | apk · Build output, perhaps with released packages
        ~/Code/net/Shop.csproj                    | 10    | 60
        ~/Code/net/bin/                           | 70000 |    | review
        ~/Code/net/obj/project.assets.json        | 70000
        ~/Code/net/obj                            |       |    | safe
        ~/Code/bench/Cargo.toml                   | 10    | 60
        ~/Code/bench/target/CACHEDIR.TAG          | 70000
        ~/Code/bench/target/criterion/            | 10
        ~/Code/bench/target                       |       |    | review
        ~/Code/php/composer.lock                  | 10    | 60
        ~/Code/php/vendor/autoload.php            | 70000
        ~/Code/php/vendor/lib/.git/HEAD           | 10
        ~/Code/php/vendor                         |       |    | review | php · composer install restores it · under version control
        ~/Code/tf/main.tf                         | 10    | 60
        ~/Code/tf/.terraform/                     | 70000 |    | review
        ~/Code/py/env/                            | 70000
        ~/Code/old/env/pyvenv.cfg                 | 70000
        ~/Code/old/env                            |       |    | review)");
}

TEST_F(ProjectPurgerTest, BoundsItsWalk) {
    // A hidden folder of the table that lacks its marker is walked, others are not.
    expect(R"(
        ~/Code/1/2/3/4/5/6/package.json         | 10    | 60
        ~/Code/1/2/3/4/5/6/node_modules/        | 70000 |    | review
        ~/Code/1/2/3/4/5/6/7/package.json       | 10    | 60
        ~/Code/1/2/3/4/5/6/7/node_modules/      | 70000
        ~/Code/small/package.json               | 10    | 60
        ~/Code/small/node_modules/              | 61440
        ~/Code/small/node_modules/__pycache__/  | 0
        ~/Code/shop/.git/__pycache__/           | 70000
        ~/Code/shop/.idea/__pycache__/          | 70000
        ~/Code/shop/.cache/__pycache__/         | 70000 |    | safe)");
}

TEST_F(ProjectPurgerTest, WalksEachFolderOnceAndOffersNothingRefused) {
    mac.file("~/Code/shop/package.json", 10, 60);
    mac.folder("~/Code/shop/node_modules", 1, 70000);
    const auto twice = ProjectPurger::scan(tables, {mac.at("~/Code"), mac.at("~/Code/shop")}, 30, mac.guard(),
                                           testing::now());
    EXPECT_EQ(twice.size(), 1U);
    const auto never = std::numeric_limits<std::int64_t>::max();
    const auto recent = ProjectPurger::scan(tables, {mac.at("~/Code")}, never, mac.guard(), testing::now());
    EXPECT_EQ(recent.at(0).risk, Risk::review);
    SafetyGuard guard = mac.guard();
    guard.protectedPaths = {"~/Code/shop"};
    EXPECT_TRUE(ProjectPurger::scan(tables, {mac.at("~/Code")}, 30, guard, testing::now()).empty());
}

TEST_F(ProjectPurgerTest, MergesRootsUnderTheirRealNames) {
    disk.folder("a/b");
    disk.folder("c");
    disk.folder("ab");
    disk.link("alias", disk.path("a/b"));
    const auto at = [&](const char* path) { return disk.path(path); };
    EXPECT_EQ(ProjectPurger::mergedRoots({at("c"), at("a"), at("a/b"), at("a/./"), at("alias"), at("ab")}),
              (std::vector{at("a"), at("ab"), at("c")}));
}

TEST_F(ProjectPurgerTest, DiscoversFoldersWithRepositories) {
    disk.folder("Users/ana/itself/.git");
    disk.folder("Users/ana/one/project/.git");
    disk.folder("Users/ana/two/group/project/.git");
    disk.folder("Users/ana/three/a/b/c/.git");
    disk.folder("Users/ana/Downloads/project/.git");
    disk.folder("Users/ana/.hidden/project/.git");
    for (int i = 100; i < 200; ++i) {
        disk.folder("Users/ana/near/" + std::to_string(i));
        disk.folder("Users/ana/far/" + std::to_string(i));
    }
    disk.folder("Users/ana/near/180/.git");
    disk.folder("Users/ana/far/180/project/.git");
    std::vector<std::string> found;
    for (const auto& root : ProjectPurger::discoveredRoots(mac.home())) found.push_back(root.filename());
    EXPECT_EQ(found, (std::vector<std::string>{"itself", "near", "one", "two"}));
}

}  // namespace
}  // namespace tavrel
