#include "models/analyze/ExplorerPlaces.h"
#include "support/Sandbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using testing::Sandbox;

TEST(ExplorerPlaces, AreTheFoldersThatExistAndWhatIsMounted) {
    using ExplorerPlaces::Found;
    const Sandbox sandbox;
    sandbox.folder("home/Music");
    sandbox.folder("media/ana/no volume");
    const Places places(sandbox.root(), sandbox.path("home"), {});
    const std::vector<ExplorerPlace> offered = {{"~/Music", "", "music.note"}, {"~/Films", "", "film.fill"}};
    EXPECT_THAT(ExplorerPlaces::folders(places, offered),
                ElementsAre(Found{sandbox.path("home/Music"), "Music", "music.note"}));
    const std::vector<std::string_view> parents = {"/media", "/media/*", "/none"};
    EXPECT_THAT(ExplorerPlaces::volumes(places, parents), IsEmpty());
#ifdef __linux__
    const std::vector<std::string_view> root = {"/"};
    EXPECT_THAT(ExplorerPlaces::volumes(Places("/", "/root", {}), root),
                Contains(Field(&Found::path, "/proc")));
#endif
}

}  // namespace
}  // namespace tavrel
