#include "core/StateDesk.h"

#include <QByteArray>
#include <array>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::StateDesk;

/// Sends whatever asks the environment for the user's folders elsewhere.
class Elsewhere {
  public:
    explicit Elsewhere(const fs::path& folder) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            former_[i] = qgetenv(names[i]);
            qputenv(names[i], QByteArray::fromStdString(folder.native()));
        }
    }
    ~Elsewhere() {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (former_[i].isNull()) {
                qunsetenv(names[i]);
            } else {
                qputenv(names[i], former_[i]);
            }
        }
    }
    Elsewhere(const Elsewhere&) = delete;
    Elsewhere& operator=(const Elsewhere&) = delete;

  private:
    static constexpr std::array names = {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                         "XDG_STATE_HOME"};
    std::array<QByteArray, names.size()> former_;
};

TEST(StatePlaces, SettingsAndHistoryAreThoseOfTheDiskThatIsCleaned) {
    const testing::Sandbox other;
    const Elsewhere elsewhere(other.root());
    StateDesk desk;
    desk.mac.bulk("~/Downloads/Old.dmg", 1'000'000, 50);
    desk.preferences.setSounds(false);
    ASSERT_TRUE(desk.scan(*desk.state->installers()));
    ASSERT_TRUE(desk.clean(*desk.state->installers()));
    EXPECT_TRUE(fs::exists(desk.mac.at("~/Library/Preferences/com.quennith.tavrel.plist")));
    EXPECT_TRUE(fs::exists(desk.mac.at("~/Library/Application Support/Tavrel/history.json")));
    EXPECT_TRUE(fs::is_empty(other.root()));
    EXPECT_EQ(std::distance(fs::directory_iterator(desk.mac.root()), {}), 1);  // the folder of the users
}

}  // namespace
}  // namespace tavrel
