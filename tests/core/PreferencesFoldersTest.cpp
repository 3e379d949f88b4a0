#include "core/Preferences.h"
#include "support/Sandbox.h"

#include <QSignalSpy>
#include <limits>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Sandbox;
using Folders = std::vector<fs::path>;
using List = Preferences::PathList;

class PreferencesFoldersTest : public ::testing::Test {
  protected:
    [[nodiscard]] const std::vector<std::string>& protectedPaths() const {
        return preferences.values().protectedPaths;
    }

    const Sandbox sandbox;
    UserDefaults defaults{sandbox.path("settings.plist")};
    Preferences preferences{defaults, "/home/ana"};
};

TEST_F(PreferencesFoldersTest, AFolderOfTheHomeIsKeptByItsTilde) {
    struct Row {
        fs::path chosen;
        std::string kept;
    };
    const Row rows[] = {
        {"/home/ana/Documents/My files", "~/Documents/My files"},
        {"/home/ana", "~"},
        {"/home/anabel", "/home/anabel"},
        {"/home", "/home"},
        {"/srv/home/ana/code", "/srv/home/ana/code"},
        {"/home/ana/code/", "~/code"},
        {"/home/ana/", "~"},
        {"/", "/"},
    };
    for (const Row& row : rows) {
        preferences.addFolders(List::ProtectedPaths, Folders{row.chosen});
        ASSERT_FALSE(protectedPaths().empty());
        EXPECT_EQ(protectedPaths().back(), row.kept) << row.chosen;
        preferences.removeFolder(List::ProtectedPaths, 0);
        EXPECT_THAT(protectedPaths(), IsEmpty());
    }
}

TEST_F(PreferencesFoldersTest, SeveralFoldersAreAddedInOrderAndNoneTwice) {
    const QSignalSpy told(&preferences, &Preferences::protectedPathsChanged);
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/b", "/home/ana/a", "/srv/b"});
    EXPECT_THAT(protectedPaths(), ElementsAre("/srv/b", "~/a"));
    preferences.addFolders(List::ProtectedPaths, Folders{"/home/ana/a", "/srv/c"});
    EXPECT_THAT(protectedPaths(), ElementsAre("/srv/b", "~/a", "/srv/c"));
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/c"});
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/c/", "/home/ana/a/"});
    EXPECT_EQ(protectedPaths().size(), 3U);
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(preferences.values().projectRoots, PreferenceValues().projectRoots);
}

TEST_F(PreferencesFoldersTest, OnlyFoldersOfThisMachineAreTakenFromADialog) {
    const auto folder = sandbox.folder("some #1 folder");
    const auto plain = sandbox.text("file", "x");
    preferences.addFolders(List::ProtectedPaths,
                           QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(folder.native())),
                                       QUrl::fromLocalFile(QString::fromStdString(plain.native())),
                                       QUrl("https://example.org/folder"), QUrl()});
    EXPECT_THAT(protectedPaths(), ElementsAre(folder.native()));
}

TEST_F(PreferencesFoldersTest, OnlyAnEntryThatIsThereIsTakenOut) {
    preferences.addFolders(List::ProtectedPaths, Folders{"/a", "/b", "/c"});
    for (const int index : {-1, 3, std::numeric_limits<int>::max()}) {
        preferences.removeFolder(List::ProtectedPaths, index);
        EXPECT_EQ(protectedPaths().size(), 3U) << index;
    }
    preferences.removeFolder(List::ProtectedPaths, 1);
    EXPECT_THAT(protectedPaths(), ElementsAre("/a", "/c"));
    EXPECT_THAT(PreferenceValues::read(UserDefaults(defaults.file())).protectedPaths,
                ElementsAre("/a", "/c"));
}

TEST_F(PreferencesFoldersTest, PathsOfAnyBytesAreFitToBeRead) {
    preferences.addFolders(List::ProjectRoots, Folders{"/srv/two\nlines", "/srv/\xff"});
    EXPECT_EQ(preferences.projectRoots().sliced(11), QStringList({"/srv/two\\nlines", "/srv/\\xFF"}));
}

}  // namespace
}  // namespace tavrel
