#include "cleaning/ProjectPurger.h"
#include "support/SampleMac.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::itemAt;
using testing::SampleMac;
using testing::Sandbox;

class ProjectPurgerTest : public ::testing::Test {
  protected:
    /// A project with a marker of a certain age and an artifact that is large enough.
    std::filesystem::path project(const std::string& path, const std::string& marker,
                                  const std::string& artifact, double daysOld,
                                  std::int64_t bytes = 70000) const {
        mac.file(path + "/" + marker, 10, daysOld);
        return mac.folder(path + "/" + artifact, 1, bytes, 0);
    }

    std::vector<CleanItem> scan() const {
        return ProjectPurger::scan({mac.at("~/Code")}, 30, mac.guard(), testing::now());
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
};

TEST_F(ProjectPurgerTest, TakesAnArtifactOnlyBesideItsMarker) {
    const auto modules = project("~/Code/shop", "package.json", "node_modules", 60);
    const auto nested = mac.folder("~/Code/shop/node_modules/x/node_modules", 1, 70000);
    mac.file("~/Code/shop/node_modules/x/package.json", 10);
    const auto unmarked = mac.folder("~/Code/shop/build", 1, 70000);
    const auto inUnmarked = mac.folder("~/Code/shop/build/__pycache__", 1, 70000);
    const auto python = mac.folder("~/Code/tool/deep/__pycache__", 1, 70000);
    const auto linked = mac.at("~/Code/shop/dist");
    std::filesystem::create_symlink(mac.at("~/Code/tool"), linked);
    const auto items = scan();
    EXPECT_EQ(items.size(), 3U);
    EXPECT_EQ(itemAt(items, nested), nullptr);
    EXPECT_EQ(itemAt(items, unmarked), nullptr);
    EXPECT_EQ(itemAt(items, linked), nullptr);
    for (const auto& path : {modules, inUnmarked, python}) EXPECT_NE(itemAt(items, path), nullptr) << path;
}

TEST_F(ProjectPurgerTest, AProjectInUseIsForReview) {
    const auto staleModules = project("~/Code/old", "package.json", "node_modules", 31);
    const auto staleDist = project("~/Code/old", "package.json", "dist", 31);
    const auto fresh = project("~/Code/new", "package.json", "node_modules", 1);
    const auto onlyArtifacts = mac.folder("~/Code/bare/DerivedData", 1, 70000);
    const auto items = scan();
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(itemAt(items, staleModules)->risk, Risk::safe);
    EXPECT_EQ(itemAt(items, staleModules)->note, "old · npm install restores it");
    EXPECT_EQ(itemAt(items, staleDist)->risk, Risk::review);
    EXPECT_EQ(itemAt(items, fresh)->risk, Risk::review);
    EXPECT_EQ(itemAt(items, fresh)->note, "new · used recently");
    EXPECT_EQ(itemAt(items, onlyArtifacts)->risk, Risk::safe) << "nobody ever worked there";
}

TEST_F(ProjectPurgerTest, BoundsItsWalk) {
    const auto six = project("~/Code/1/2/3/4/5/6", "package.json", "node_modules", 60);
    const auto seven = project("~/Code/1/2/3/4/5/6/7", "package.json", "node_modules", 60);
    const auto small = project("~/Code/small", "package.json", "node_modules", 60, 61440);
    const auto inSmall = mac.folder("~/Code/small/node_modules/__pycache__", 1, 0);
    const auto inGit = mac.folder("~/Code/shop/.git/__pycache__", 1, 70000);
    const auto inHidden = mac.folder("~/Code/shop/.idea/__pycache__", 1, 70000);
    const auto inUnmarkedHidden = mac.folder("~/Code/shop/.cache/__pycache__", 1, 70000);
    const auto items = scan();
    EXPECT_EQ(items.size(), 2U);
    EXPECT_NE(itemAt(items, six), nullptr);
    EXPECT_NE(itemAt(items, inUnmarkedHidden), nullptr)
        << "a hidden folder of the table that lacks its marker";
    for (const auto& path : {seven, small, inSmall, inGit, inHidden})
        EXPECT_EQ(itemAt(items, path), nullptr) << path;
}

TEST_F(ProjectPurgerTest, WalksEachFolderOnceAndOffersNothingRefused) {
    const auto modules = project("~/Code/shop", "package.json", "node_modules", 60);
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
