#include "cleaning/History.h"
#include "cli/Program.h"
#include "core/Text.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using Json = nlohmann::ordered_json;
using Words = Program::Words;

constexpr std::int64_t big = 200000;  // above the least size of an item

/// Where each family of systems keeps what the program writes.
struct Family {
    const char* profile;
    const char* history;
    const char* settings;
    const char* trashed;  // a file "old.iso" in the Trash
    const char* caches;
};

constexpr Family families[] = {
    {"macos", "home/Library/Application Support/Tavrel/history.json",
     "home/Library/Preferences/com.quennith.tavrel.plist", "home/.Trash/old.iso", "home/Library/Caches"},
    {"linux", "home/.local/share/Tavrel/history.json", "home/.config/Tavrel/preferences.plist",
     "home/.local/share/Trash/files/old.iso", "home/.cache"},
};

/// A home with one thing to delete, one to review, and one that goes to the Trash.
class Home : public ::testing::Test {
  protected:
    explicit Home(const Family& of) : family(of), ctl(box, of.profile) {
        box.folder("root");
        box.file("home/.npm/_cacache/blob", big);
        box.file("home/.cache/bazel/blob", big);
        Sandbox::date(box.file("home/Downloads/old.iso", big), daysAgo(30));
        box.file("home/studio/.git/HEAD");
        box.file("home/studio/package.json");
        box.file("home/studio/node_modules/left/index.js", big);
        for (const auto& entry : fs::recursive_directory_iterator(box.path("home/studio"))) {
            Sandbox::date(entry.path(), daysAgo(90));
        }
        Sandbox::date(box.path("home/studio"), daysAgo(90));
    }

    [[nodiscard]] bool stands(const fs::path& relative) const { return fs::exists(box.path(relative)); }
    [[nodiscard]] std::string at(const char* relative) const { return box.path(relative).native(); }
    /// Every path below the home, with what tells a change.
    [[nodiscard]] std::map<std::string, fs::file_time_type> snapshot() const {
        std::map<std::string, fs::file_time_type> all;
        for (const auto& entry : fs::recursive_directory_iterator(box.path("home"))) {
            all[entry.path().native()] = fs::last_write_time(entry.path());
        }
        return all;
    }

    const Family& family;
    const Sandbox box;
    const Program ctl;
};

/// What a home of either family has to show.
class CommandLine : public Home, public ::testing::WithParamInterface<Family> {
  protected:
    CommandLine() : Home(GetParam()) {}
};

/// What does not depend on the family.
class Tavrelctl : public Home {
  protected:
    Tavrelctl() : Home(families[1]) {}
};

INSTANTIATE_TEST_SUITE_P(Families, CommandLine, ::testing::ValuesIn(families),
                         [](const auto& family) { return std::string(family.param.profile); });

/// The item with that path, or null.
Json itemAt(const Json& items, const std::string& path) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const Json& item) { return item["path"] == path; });
    return found == items.end() ? Json() : *found;
}

Json paths(const Json& items) {
    Json list = Json::array();
    for (const Json& item : items) list.push_back(item["path"]);
    return list;
}

TEST_P(CommandLine, ScanTellsEveryItemAndSumsWhatIsPreselected) {
    const Ended ended = ctl({"scan", "--json"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(ended.err, "");
    const Json found = ended.json();
    const Json cache = itemAt(found["items"], at("home/.npm/_cacache"));
    const auto size = allocated(box.path("home/.npm/_cacache/blob"));
    const Json expected = {{"path", at("home/.npm/_cacache")},
                           {"size", size},
                           {"category", "packageManagers"},
                           {"risk", "safe"},
                           {"note", "npm download cache"},
                           {"permanent", false},
                           {"requiresAdmin", false},
                           {"adminCommand", nullptr},
                           {"selected", true}};
    EXPECT_EQ(cache.dump(), expected.dump());
    EXPECT_EQ(itemAt(found["items"], at("home/.cache/bazel"))["selected"], false);
    EXPECT_EQ(found["mode"], "system");
    EXPECT_EQ(found["selected"], size);
    EXPECT_EQ(found["total"], 2 * size);
}

TEST_P(CommandLine, CleanRemovesWhatIsPreselectedAndRemembersIt) {
    const auto size = allocated(box.path("home/.npm/_cacache/blob"));
    const Ended cleaned = ctl({"clean", "--yes", "--json"});
    EXPECT_EQ(cleaned.status, 0) << cleaned.err;
    EXPECT_EQ(cleaned.json()["freed"], size);
    EXPECT_EQ(cleaned.json()["trashed"], 0);
    EXPECT_EQ(cleaned.json()["dryRun"], false);
    EXPECT_EQ(paths(cleaned.json()["removed"]), Json::array({at("home/.npm/_cacache")}));
    EXPECT_FALSE(stands("home/.npm/_cacache"));
    EXPECT_TRUE(stands("home/.cache/bazel/blob")) << "what wants a review was not asked for";

    const Ended trashed = ctl({"clean", "installers", "--yes"});
    EXPECT_EQ(trashed.status, 0) << trashed.err;
    EXPECT_THAT(trashed.out, HasSubstr("in the Trash"));
    EXPECT_TRUE(stands(family.trashed));

    const Ended projects = ctl({"clean", "--yes", "projects"});
    EXPECT_EQ(projects.status, 0) << projects.err;
    EXPECT_FALSE(stands("home/studio/node_modules"));

    const Ended history = ctl({"history", "--json"});
    EXPECT_EQ(history.json(), Json::parse(contentOf(box.path(family.history))));
    std::vector<std::string> actions;
    for (const Json& entry : history.json()) actions.push_back(entry["action"]);
    EXPECT_THAT(actions, ElementsAre("purge", "installers", "clean"));
    EXPECT_EQ(history.json()[2]["paths"], Json::array({at("home/.npm/_cacache")}));
    EXPECT_THAT(ctl({"history"}).out, AllOf(HasSubstr("projects"), Not(HasSubstr("purge"))));
    EXPECT_FALSE(stands("home/moved")) << "the environment's folders count only without --home";

    EXPECT_EQ(ctl({"history", "--clear", "--json"}).json(), Json::array());
    EXPECT_FALSE(stands(family.history));
}

TEST_P(CommandLine, RestorePutsBackWhatWentToTheTrashAndNeverOverAnything) {
    EXPECT_EQ(ctl({"clean", "--yes"}).status, 0);
    EXPECT_EQ(ctl({"clean", "installers", "--yes"}).status, 0);
    const std::string iso = at("home/Downloads/old.iso");
    const Json waiting = ctl({"restore", "--json"}).json();
    ASSERT_THAT(waiting, SizeIs(1));
    EXPECT_EQ(waiting[0]["action"], "installers");
    EXPECT_EQ(waiting[0]["items"],
              Json::array({{{"path", iso}, {"size", allocated(at(family.trashed))}, {"present", true}}}));
    const std::string id = waiting[0]["id"].get<std::string>().substr(0, 6);
    EXPECT_THAT(ctl({"restore"}).out, AllOf(HasSubstr(id), HasSubstr("~/Downloads/old.iso")));
    EXPECT_THAT(ctl({"history", "--paths"}).out,
                AllOf(HasSubstr("● ~/Downloads/old.iso"), HasSubstr("    ~/.npm")));

    const auto before = snapshot();
    EXPECT_EQ(ctl({"restore", id}).status, 2) << "nobody was asked";
    EXPECT_EQ(ctl({"restore", id, "--dry-run", "--json"}).json()["restored"], Json::array({iso}));
    for (const Words& words : {Words{"restore", "--yes", "FFFFFFFF-nobody"}, Words{"restore", "--yes", ""},
                               Words{"restore", "--yes", "--path", at("home/.npm/_cacache"), iso + "x"}}) {
        const Ended ended = ctl(words);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, "");
        EXPECT_THAT(ended.err, ::testing::StartsWith("tavrelctl: "));
    }
    EXPECT_EQ(snapshot(), before);

    box.file("home/Downloads/old.iso", 7);
    const Ended blocked = ctl({"restore", id, "--yes", "--json"});
    EXPECT_EQ(blocked.status, 1);
    EXPECT_EQ(blocked.json()["skipped"][0]["reason"], "Something else stands in its place now");
    EXPECT_EQ(fs::file_size(iso), 7U);
    fs::remove_all(box.path("home/Downloads"));
    const Ended ended = ctl({"restore", Text::lowercased(id), "--yes", "--json"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(ended.json().dump(), Json({{"restored", {iso}}, {"skipped", Json::array()}}).dump());
    EXPECT_EQ(fs::file_size(iso), big);
    EXPECT_EQ(ctl({"restore", "--json"}).json(), Json::array());
    EXPECT_EQ(ctl({"restore", "--path", iso, "--yes", "--json"}).json()["skipped"][0]["reason"],
              "It is not in the Trash any more");
}

TEST_F(Tavrelctl, NothingIsRemovedWithoutAgreement) {
    const auto before = snapshot();
    const Ended refused = ctl({"clean", "--json"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr("--yes"));

    const Ended declined = ctl.answering("n\n", {"clean"});
    EXPECT_EQ(declined.status, 1);
    EXPECT_THAT(declined.out, HasSubstr("~/.npm/_cacache"));
    EXPECT_THAT(declined.err, HasSubstr("Remove 1 item ("));

    const Ended preview = ctl({"clean", "--dry-run", "--all", "--json"});
    EXPECT_EQ(preview.status, 0) << preview.err;
    EXPECT_EQ(preview.json()["dryRun"], true);
    EXPECT_THAT(preview.json()["removed"], SizeIs(2));
    EXPECT_EQ(snapshot(), before);

    ASSERT_EQ(ctl({"settings", "dryRun", "on"}).status, 0);
    EXPECT_EQ(ctl({"clean", "--yes", "--json"}).json()["dryRun"], true)
        << "the setting stands beside the flag";
    EXPECT_TRUE(stands("home/.npm/_cacache/blob"));

    ASSERT_EQ(ctl({"settings", "dryRun", "off"}).status, 0);
    EXPECT_EQ(ctl.answering("y\n", {"clean"}).status, 0);
    EXPECT_FALSE(stands("home/.npm/_cacache"));
}

TEST_F(Tavrelctl, SelectingTakesWhatIsNamedAndTellsWhatIsNot) {
    const auto name = std::string("home/Downloads/a\nb\xff.iso");
    Sandbox::date(box.file(name, big), daysAgo(30));
    Sandbox::date(box.file("home/Downloads/kept.iso", big), daysAgo(30));
    const Json found = ctl({"scan", "installers", "--json"}).json();
    std::string escaped;
    for (const Json& path : paths(found["items"])) {
        if (path.get<std::string>().find("\\xFF") != std::string::npos) escaped = path;
    }
    ASSERT_NE(escaped, "") << found.dump();

    const Ended cleaned = ctl({"clean", "installers", "--yes", "--json", "--select", escaped, "--select",
                               at("home/Downloads/./old.iso"), "--select", at("home/Documents/no.iso")});
    EXPECT_EQ(cleaned.status, 1) << "one of the three was not found";
    EXPECT_THAT(cleaned.err, AllOf(HasSubstr("no.iso"), Not(HasSubstr("old.iso"))));
    EXPECT_THAT(cleaned.json()["removed"], SizeIs(2));
    const std::string mine = at("home/.npm/_cacache");
    EXPECT_THAT(ctl({"clean", "installers", "--yes", "--select", mine}).err,
                HasSubstr("is found by the mode system: tavrelctl clean system --select '" + mine + "'\n"));
    EXPECT_FALSE(stands(name));
    EXPECT_TRUE(stands(family.trashed));
    EXPECT_TRUE(stands("home/Downloads/kept.iso")) << "nothing is preselected beside what is named";

    Sandbox::date(box.file("home/Downloads/bytes\xff.iso", big), daysAgo(30));
    EXPECT_EQ(ctl({"clean", "installers", "--yes", "--select", at("home/Downloads/bytes\xff.iso")}).status,
              0);
    EXPECT_FALSE(stands("home/Downloads/bytes\xff.iso"));

    const auto before = fs::current_path();
    fs::current_path(box.path("home"));
    EXPECT_EQ(ctl({"clean", "installers", "--yes", "--select", "Downloads/../Downloads/kept.iso"}).status, 0);
    fs::current_path(before);
    EXPECT_FALSE(stands("home/Downloads/kept.iso"));
}

TEST_P(CommandLine, OptionsOfTheScanReachTheFinders) {
    const std::string cache = at(family.caches) + "/com.example.App";
    const auto blob = box.file(cache + "/blob", big);
    const auto tag = box.text(cache + "/CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc55");
    for (const auto& each : {blob, tag, fs::path(cache)}) Sandbox::date(each, daysAgo(10));
    const Words scan = {"scan", "--json"};
    EXPECT_EQ(itemAt(ctl(scan).json()["items"], cache)["risk"], "safe");
    const Words running = {"scan", "--json", "--running", "com.example.App=App"};
    EXPECT_EQ(itemAt(ctl(running).json()["items"], cache)["risk"], "review");

    const Json narrowed = ctl({"scan", "--categories", "devCaches,logs", "--json"}).json();
    EXPECT_EQ(paths(narrowed["items"]), Json::array({at("home/.cache/bazel")}));

    const std::string modules = at("home/studio/node_modules");
    EXPECT_EQ(itemAt(ctl({"scan", "projects", "--json"}).json()["items"], modules)["risk"], "safe");
    const Json fresh = ctl({"--json", "scan", "projects", "--stale-days", "9999"}).json();
    EXPECT_EQ(itemAt(fresh["items"], modules)["risk"], "review");
    box.folder("home/other");
    const Json elsewhere = ctl({"scan", "--project-root", at("home/other"), "projects", "--json"}).json();
    EXPECT_THAT(elsewhere["items"], IsEmpty()) << "a given root stands in place of what would be discovered";
    EXPECT_EQ(ctl({"scan", "projects", "--project-root", at("home/nowhere")}).status, 1);
    EXPECT_EQ(ctl({"scan", "ai"}).out, "Nothing worth removing right now\n");
}

TEST_F(Tavrelctl, AlwaysTrashKeepsWhatWouldBeDeleted) {
    const Ended cleaned = ctl({"clean", "--yes", "--always-trash", "--json"});
    EXPECT_EQ(cleaned.status, 0) << cleaned.err;
    EXPECT_EQ(cleaned.json()["trashed"], cleaned.json()["freed"]);
    EXPECT_TRUE(fs::exists(box.path(family.trashed).parent_path() / "_cacache/blob"));
}

TEST_F(Tavrelctl, CheckGivesTheVerdictOnEachPath) {
    box.link("home/bridge", box.path("home/studio"));
    box.file("home/[a,b]");
    const std::map<std::string, Json> expected = {
        {at("home/.ssh/id"), "personal data"},
        {at("home/bridge/x"), "reached through a symbolic link"},
        {at("extra/x"), nullptr},
        {at("home/studio/keep/x"), "protected in Settings"},
        {at("home/barred"), "protected in Settings"},
        {at("home/[a,b]"), nullptr},
        {"", "not an absolute file path"},
    };
    ASSERT_EQ(ctl({"settings", "protectedPaths", R"(["~/barred"])"}).status, 0);
    Words words = {"check", "--json", "--extra-root", at("extra"), "--protect", at("home/studio/keep")};
    for (const auto& [path, reason] : expected) words.push_back(path);
    const Ended ended = ctl(words);
    EXPECT_EQ(ended.status, 1) << ended.err;
    ASSERT_THAT(ended.json(), SizeIs(expected.size()));
    for (const Json& verdict : ended.json()) {
        const auto reason = expected.at(verdict["path"]);
        EXPECT_EQ(verdict["reason"], reason) << verdict["path"];
        EXPECT_EQ(verdict["allowed"], reason.is_null()) << verdict["path"];
        EXPECT_EQ(verdict["exists"], fs::exists(verdict["path"].get<std::string>())) << verdict["path"];
    }
    const auto before = fs::current_path();
    fs::current_path(box.path("home/studio"));
    const Ended relative = ctl({"check", "../[a,b]", "missing"});
    fs::current_path(before);
    EXPECT_EQ(relative.status, 0);
    EXPECT_EQ(relative.out, "allowed  " + at("home/[a,b]") + "\nallowed  " + at("home/studio/missing") +
                                "  does not exist\n");
}

TEST_F(Tavrelctl, SizesAreThoseOfTheDisk) {
    const auto small = allocated(box.file("home/tree/inner/small", 5000));
    const auto large = allocated(box.file("home/tree/large", 3 * big));
    const Ended sizes = ctl({"size", at("home/tree"), at("home/none"), "--json"});
    EXPECT_EQ(sizes.status, 1);
    EXPECT_THAT(sizes.err, AllOf(HasSubstr("home/none"), HasSubstr("does not exist")));
    EXPECT_EQ(sizes.json(), Json::array({{{"path", at("home/tree")}, {"size", small + large}},
                                         {{"path", at("home/none")}, {"size", 0}}}));

    const Json measured = ctl({"measure", at("home/tree"), "--depth", "1", "--json"}).json();
    const auto inner = small + allocated(box.path("home/tree/inner"));
    EXPECT_EQ(measured["size"], inner + large + allocated(box.path("home/tree")));
    EXPECT_EQ(measured["files"], 2);
    EXPECT_EQ(measured["folders"], Json({{at("home/tree/inner"), {{"size", inner}, {"files", 1}}}}));
    EXPECT_EQ(ctl({"measure", at("home/none")}).status, 1);

    const Json found = ctl({"large", at("home/tree"), "--json", "--minimum", "0", "--limit", "1"}).json();
    EXPECT_EQ(found, Json::array({{{"path", at("home/tree/large")}, {"size", large}}}));

    const auto before = fs::current_path();
    fs::current_path(box.path("home/tree"));
    const std::pair<const char*, std::size_t> rows[] = {
        {"600000", 1}, {"601K", 1}, {"615kb", 0}, {"587KiB", 1}, {"1M", 0}, {"9000Gi", 0}, {"0b", 2},
    };
    for (const auto& [minimum, count] : rows)
        EXPECT_THAT(ctl({"large", "--json", "--minimum", minimum}).json(), SizeIs(count)) << minimum;
    EXPECT_EQ(ctl({"measure", "--json"}).json()["size"], measured["size"]);
    EXPECT_EQ(ctl({"size", "--json"}).json()[0]["size"], small + large);
    fs::current_path(before);
}

TEST_F(Tavrelctl, SettingsKeepWhatFitsAndRefuseTheRest) {
    const struct {
        const char* key;
        const char* text;
        Json stored;  // null when refused
    } rows[] = {
        {"dryRun", "on", true},
        {"sounds", "false", false},
        {"sounds", "maybe", nullptr},
        {"staleProjectDays", "365", 365},
        {"staleProjectDays", "366", nullptr},
        {"staleProjectDays", "7 days", nullptr},
        {"projectRoots", "[]", Json::array()},
        {"protectedPaths", R"(["~/a", "/b"])", {"~/a", "/b"}},
        {"protectedPaths", R"(["relative"])", nullptr},
        {"protectedPaths", R"(["/a\u0000b"])", nullptr},
        {"protectedPaths", "/a", nullptr},
        {"menuBarMetrics", R"(["battery", "cpu"])", {"battery", "cpu"}},
        {"menuBarMetrics", R"(["wind"])", nullptr},
        {"pinnedProcesses", "[1]", nullptr},
        {"unheardOf", "true", nullptr},
    };
    Json expected = ctl({"settings", "--json"}).json();
    EXPECT_EQ(expected["staleProjectDays"], 30);
    for (const auto& row : rows) {
        const Ended ended = ctl({"settings", row.key, row.text, "--json"});
        EXPECT_EQ(ended.status, row.stored.is_null() ? 2 : 0) << row.key << ' ' << row.text << ended.err;
        EXPECT_EQ(ended.out.empty(), row.stored.is_null()) << row.key << ' ' << row.text;
        if (!row.stored.is_null()) expected[row.key] = row.stored;
        EXPECT_EQ(ctl({"--json", "settings"}).json(), expected) << row.key << ' ' << row.text;
    }
    EXPECT_EQ(ctl({"settings", "protectedPaths"}).out, "[\"~/a\",\"/b\"]\n");
    EXPECT_THAT(ctl({"settings"}).out, HasSubstr("protectedPaths    ~/a\n                  /b\n"));
}

TEST_P(CommandLine, UnreadableProtectionStopsACleanUntilItIsWrittenAnew) {
    const char* broken[] = {
        "no property list",
        R"(<plist version="1.0"><dict><key>protectedPaths</key><string>~/.npm</string></dict></plist>)",
    };
    for (const char* content : broken) {
        box.text(family.settings, content);
        const Ended refused = ctl({"clean", "--yes", "--json"});
        EXPECT_EQ(refused.status, 1);
        EXPECT_THAT(refused.json()["error"].get<std::string>(),
                    HasSubstr(box.path(family.settings).native()));
        EXPECT_TRUE(stands("home/.npm/_cacache/blob"));

        const Ended read = ctl({"scan", "--json"});
        EXPECT_EQ(read.status, 0);
        EXPECT_THAT(read.err, HasSubstr("default"));
        EXPECT_THAT(read.json()["items"], SizeIs(2));
        EXPECT_EQ(ctl({"clean", "--dry-run"}).status, 0);
    }
    box.text(family.settings, broken[0]);
    const Ended changed = ctl({"settings", "protectedPaths", R"(["~/.npm"])"});
    EXPECT_EQ(changed.status, 0);
    EXPECT_THAT(changed.err, HasSubstr(".damaged"));
    EXPECT_EQ(contentOf(at(family.settings) + ".damaged"), broken[0]);

    const Ended skipped = ctl({"clean", "--yes", "--select", at("home/.npm/_cacache")});
    EXPECT_EQ(skipped.status, 1) << "the barred thing is no longer offered";
    EXPECT_TRUE(stands("home/.npm/_cacache/blob"));
}

TEST_F(Tavrelctl, DamagedHistoryIsNamedAndCountsAsEmpty) {
    EXPECT_EQ(ctl({"history", "--json"}).json(), Json::array());
    EXPECT_EQ(ctl({"history"}).out, "Nothing cleaned yet.\n");
    box.text(family.history, "[{\"id\": 7}]");
    const Ended ended = ctl({"history", "--json"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "[]\n");
    EXPECT_THAT(ended.err, HasSubstr(box.path(family.history).native()));
}

TEST_F(Tavrelctl, TheHomeMayBeALinkButMustBeAFolder) {
    const auto through = box.link("shortcut", box.path("home"));
    const Words rest = {"--root", at("root"), "--profile", family.profile, "scan", "--json"};
    Words words = {"--home", through};
    words.insert(words.end(), rest.begin(), rest.end());
    EXPECT_FALSE(itemAt(ctl.bare(words).json()["items"], at("home/.npm/_cacache")).is_null());

    for (const auto& wrong : {box.path("nowhere"), box.file("plain"), fs::path()}) {
        words[1] = wrong;
        const Ended ended = ctl.bare(words);
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.json()["error"].get<std::string>(), HasSubstr(wrong.native()));
        EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    }
}

TEST_F(Tavrelctl, AHomeThatIsNotTheUsersOwnIsNotTakenFromTheEnvironment) {
    const auto allowed = [this](const std::string& path) {
        return ctl.bare({"check", "--json", path}).json()[0]["allowed"];
    };
    EXPECT_EQ(allowed("/etc/x"), false) << "nothing stands there";
    box.folder("elsewhere");
    EXPECT_EQ(allowed(at("elsewhere/x")), true);
    fs::remove(box.path("elsewhere"));
    box.link("elsewhere", "/");
    EXPECT_EQ(ctl.bare({"check", "--json", "/etc/x"}).json()[0]["reason"],
              "outside the folders Tavrel cleans");
}

TEST_F(Tavrelctl, WrongUsageSaysOneLineAndDoesNothing) {
    const Words wrong[] = {
        {"sweep"},
        {"--json"},
        {"scan", "--categories", "dust"},
        {"clean", "--yes", "--categories", "logs,aiModels"},
        {"large", "--minimum", "1X"},
        {"large", "--minimum", "9300000T"},
        {"scan", "everything"},
        {"scan", "--stale-days", "soon"},
        {"scan", "--running", "nameless"},
        {"clean", "--all", "--select", "/x"},
        {"clean", "--yes", "--force"},
        {"check"},
        {"size", "--home"},
        {"measure", "/x", "/y"},
        {"--profile", "other", "scan"},
        {"settings", "k\ne\x1b[2Jy"},
        {"history", "--clear=perhaps"},
    };
    const auto before = snapshot();
    for (const Words& words : wrong) {
        const Ended ended = ctl.bare(words);
        EXPECT_EQ(ended.status, 2) << ::testing::PrintToString(words);
        EXPECT_EQ(ended.out, "") << ::testing::PrintToString(words);
        EXPECT_THAT(ended.err, AllOf(::testing::StartsWith("tavrelctl: "), Not(HasSubstr("\x1b"))));
        EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    }
    EXPECT_EQ(snapshot(), before);
    EXPECT_THAT(ctl({"scan", "ai", "--categories", "dust"}).err, HasSubstr("ai has aiSessions, aiCaches"));
    EXPECT_THAT(ctl({"scan", "--categories", "installers"}).err,
                HasSubstr("tavrelctl scan installers --categories installers"));
    EXPECT_THAT(ctl.bare({"clean", "--help"}).out,
                HasSubstr("\n  ai         aiSessions aiCaches aiModels\n"));
    EXPECT_EQ(ctl.bare({}).status, 0);
    EXPECT_THAT(ctl.bare({}).out, AllOf(HasSubstr("scan"), HasSubstr("--json")));
    EXPECT_THAT(ctl.bare({"--version"}).out, ::testing::StartsWith("tavrelctl "));
}

}  // namespace
}  // namespace tavrel::testing
