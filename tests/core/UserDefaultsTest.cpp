#include "core/UserDefaults.h"
#include "support/Sandbox.h"

#include <chrono>
#include <string>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using State = UserDefaults::State;
using Value = UserDefaults::Value;
using Texts = UserDefaults::Texts;
using testing::contentOf;
using testing::Sandbox;
using namespace std::chrono_literals;

std::string list(const std::string& entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>" + entries +
           "</dict></plist>";
}

TEST(UserDefaults, EveryKindOfValueSurvivesARestart) {
    const Value values[] = {
        true,
        false,
        std::int64_t{0},
        std::int64_t{-30},
        std::numeric_limits<std::int64_t>::max(),
        0.1,
        -1e300,
        std::string(),
        std::string(" <&>\"'\n é "),
        Texts{},
        Texts{"~/b", "", "~/a"},
        Instant(std::chrono::sys_days(2024y / 2 / 29) + 12h + 5s),
        Instant(std::chrono::sys_days(1999y / 1 / 1)),
    };
    const Sandbox sandbox;
    for (const Value& value : values) {
        ASSERT_FALSE(UserDefaults(sandbox.path("new/folder/settings.plist")).set("key", value));
        const UserDefaults restarted(sandbox.path("new/folder/settings.plist"));
        EXPECT_EQ(restarted.state(), State::sound);
        EXPECT_TRUE(restarted.value("key") == value) << "kind " << value.index();
    }
    struct stat status {};
    ASSERT_EQ(::stat(sandbox.path("new/folder/settings.plist").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST(UserDefaults, KeepsWhatItHasNoUseFor) {
    const Sandbox sandbox;
    const auto file =
        sandbox.text("s.plist", list("<key>frame</key><data>AQID</data>"
                                     "<key>window</key><dict><key>x</key><integer>7</integer></dict>"
                                     "<key>mixed</key><array><string>a</string><true/></array>"));
    UserDefaults defaults(file);
    for (const char* key : {"frame", "window", "mixed"}) {
        EXPECT_TRUE(defaults.holds(key));
        EXPECT_EQ(defaults.value(key), std::nullopt);
    }
    EXPECT_FALSE(defaults.holds("absent"));

    ASSERT_FALSE(defaults.set("dryRun", true));
    ASSERT_FALSE(defaults.remove("mixed"));
    ASSERT_FALSE(defaults.remove("absent"));
    const std::string written = contentOf(file);
    EXPECT_NE(written.find("AQID"), std::string::npos);
    EXPECT_NE(written.find("<integer>7</integer>"), std::string::npos);
    EXPECT_EQ(written.find("mixed"), std::string::npos);
}

TEST(UserDefaults, ADamagedFileIsSetAsideAndNeverOverwritten) {
    for (const std::string damage : {"", "{\"json\": true}", "<plist><array/></plist>", "bplist00\xFF\xFF"}) {
        const Sandbox sandbox;
        const auto file = sandbox.text("s.plist", damage);
        UserDefaults defaults(file);
        EXPECT_EQ(defaults.state(), State::damaged);
        EXPECT_FALSE(defaults.holds("dryRun"));

        ASSERT_FALSE(defaults.set("dryRun", true));
        EXPECT_EQ(defaults.state(), State::sound);
        EXPECT_EQ(contentOf(sandbox.path("s.plist.damaged")), damage);
        EXPECT_EQ(UserDefaults(file).value("dryRun"), Value(true));
    }
}

TEST(UserDefaults, AFailedWriteChangesNothing) {
    const Sandbox sandbox;
    sandbox.file("taken");  // a file where the folder is to be
    UserDefaults defaults(sandbox.path("taken/s.plist"));
    EXPECT_TRUE(defaults.set("dryRun", true));
    EXPECT_FALSE(defaults.holds("dryRun"));

    UserDefaults writable(sandbox.path("s.plist"));
    EXPECT_EQ(writable.state(), State::missing);
    for (const Value& value :
         {Value("bad\xFF"), Value(Texts{std::string("a\0b", 3)}), Value(distantFuture)}) {
        EXPECT_TRUE(writable.set("key", value));
        EXPECT_FALSE(writable.holds("key"));
    }
    EXPECT_FALSE(std::filesystem::exists(sandbox.path("s.plist")));
}

TEST(UserDefaults, KeysThatAnotherProgramWroteMeanwhileStay) {
    const Sandbox sandbox;
    UserDefaults window(sandbox.path("s.plist"));
    UserDefaults command(sandbox.path("s.plist"));
    ASSERT_FALSE(command.set("protectedPaths", Texts{"~/Keep"}));
    ASSERT_FALSE(window.set("dryRun", true));

    EXPECT_FALSE(window.holds("protectedPaths"));
    EXPECT_EQ(UserDefaults(sandbox.path("s.plist")).value("protectedPaths"), Value(Texts{"~/Keep"}));
}

}  // namespace
}  // namespace tavrel
