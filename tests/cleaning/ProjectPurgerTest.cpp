#include "cleaning/ProjectPurger.h"
#include "cleaning/ScanTable.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using sample::SampleMac;
using testing::Sandbox;

class ProjectPurgerTest : public ::testing::Test {
  protected:
    std::vector<CleanItem> scan() const {
        return ProjectPurger::scan({mac.at("~/Code")}, 30, mac.guard(), testing::now());
    }
    void expect(const std::string& table) const {
        testing::expectScan(mac, table, [&] { return scan(); });
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
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
    const auto twice =
        ProjectPurger::scan({mac.at("~/Code"), mac.at("~/Code/shop")}, 30, mac.guard(), testing::now());
    EXPECT_EQ(twice.size(), 1U);
    SafetyGuard guard = mac.guard();
    guard.protectedPaths = {"~/Code/shop"};
    EXPECT_TRUE(ProjectPurger::scan({mac.at("~/Code")}, 30, guard, testing::now()).empty());
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
