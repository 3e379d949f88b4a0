#include "cleaning/ScanTable.h"
#include "cleaning/SpecialScanners.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"
#include "support/ScriptedShell.h"

#include <functional>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using sample::SampleMac;
using testing::daysAgo;
using testing::Sandbox;
using testing::ScriptedShell;

class SpecialScannersTest : public ::testing::Test {
  protected:
    void expect(const std::string& table, const std::function<std::vector<CleanItem>()>& scan) const {
        testing::expectScan(mac, table, scan);
    }
    std::vector<CleanItem> ai(int sessionAgeDays = 90) const {
        return SpecialScanners::ai(mac.home(), mac.guard(), sessionAgeDays, testing::now());
    }

    SpecialScanners::Search search(const RunningApplications& running) const {
        return {mac.home(), guard, running, {}};
    }

    std::vector<CleanItem> system(Shell& shell) const {
        const auto places = mac.profile().scan.system;
        return SpecialScanners::systemData(places, shell, mac.guard().withRoots(places.roots),
                                           testing::now());
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
    SafetyGuard guard = mac.guard();
};

TEST_F(SpecialScannersTest, EditorExtensionsAreComparedByNumberWithinOneFolder) {
    expect(R"(
        ~/.vscode/extensions/foo.bar-1.2.0/          | 10 | | safe | Superseded by foo.bar-1.10.0
        ~/.vscode/extensions/foo.bar-1.10.0/         | 10
        ~/.vscode/extensions/a.b-1.2/                | 10 | | safe | Superseded by a.b-1.2.0-darwin-arm64
        ~/.vscode/extensions/a.b-1.2.0-darwin-arm64/ | 10
        ~/.vscode/extensions/single-3.0.0/           | 10
        ~/.vscode/extensions/foo-1/                  | 10
        ~/.vscode/extensions/.obsolete               | 10
        ~/.cursor/extensions/single-2.0.0/           | 10)",
           [&] { return SpecialScanners::oldEditorExtensions(mac.home(), mac.guard()); });
}

TEST_F(SpecialScannersTest, WebCachesBelongToApplicationsThatHaveNoRows) {
    expect(R"(
        ~/Library/Application Support/Slack/Code Cache/                  | 70000 | | safe | Slack · rebuilt on next launch
        ~/Library/Application Support/Slack/Service Worker/CacheStorage/ | 70000 | | safe
        ~/Library/Application Support/Slack/Local Storage/               | 70000
        ~/Library/Application Support/Code/Cache/                        | 70000
        ~/Library/Application Support/com.apple.x/Cache/                 | 70000
        ~/Library/Application Support/Small/Cache/                       | 60000)",
           [&] { return SpecialScanners::appWebCaches(mac.profile().scan.webCaches, search({})); });
}

TEST_F(SpecialScannersTest, ContainersAreNamedAsPeopleKnowThem) {
    struct Names : ApplicationNames {
        [[nodiscard]] std::optional<std::string> displayName(const std::string& bundleID) const override {
            if (bundleID == "com.apple.Notes") return "Notes.app";
            return std::nullopt;
        }
    };
    expect(R"(
        ~/Library/Containers/com.apple.Mystery/Data/Library/Caches/ | 70000 | | safe   | com.apple.Mystery · rebuilt by the app on demand
        ~/Library/Containers/com.apple.Notes/Data/Library/Caches/   | 70000 | | review | Notes · running; quit it first
        ~/Library/Containers/.hidden/Data/Library/Caches/           | 70000)",
           [&] {
               return SpecialScanners::containerCaches(mac.profile().scan.containers,
                                                       search({.bundleIDs = {"com.apple.Notes"}}), Names());
           });
}

TEST_F(SpecialScannersTest, OldSessionsAreSafeAndYoungOnesAreNotListed) {
    const auto old = mac.folder("~/.codex/sessions/2025/11/03", 1, 20000, 200);
    const auto young = mac.folder("~/.codex/sessions/2026/11/03", 1, 20000, 2);
    for (const auto& day : {old, young}) Sandbox::date(day.parent_path(), daysAgo(200));
    expect(R"(
        ~/.claude/projects/-Users-ana-code-shop/1.jsonl | 20000 | 91  | safe | Claude Code · shop
        ~/.claude/projects/---/1.jsonl                  | 20000 | 91  | safe
        ~/.claude/projects/-Users-ana-code-shop/2.jsonl | 20000 | 89
        ~/.claude/projects/-Users-ana-code-shop/3.jsonl | 12288 | 300
        ~/.claude/projects/-Users-ana-code-shop/4.txt   | 20000 | 300
        ~/.codex/sessions/2025/11                       |       |     | safe | Codex · sessions from 2025-11)",
           [&] { return ai(); });
    EXPECT_EQ(ai(88).size(), 4U);
}

TEST_F(SpecialScannersTest, WorktreesAgeByWhatIsNearTheirTopWhateverTheSessionsDo) {
    mac.folder("~/.claude/worktrees/stale", 1, 20000, 31);
    const auto touched = mac.folder("~/.claude/worktrees/touched", 1, 20000, 31);
    mac.file("~/.claude/worktrees/touched/a/b.txt", 10, 29);
    const auto deep = mac.folder("~/.codex/worktrees/deep", 1, 20000, 31);
    mac.file("~/.codex/worktrees/deep/a/b/c.txt", 10, 1);
    for (const auto& folder : {touched, touched / "a", deep, deep / "a", deep / "a/b"})
        Sandbox::date(folder, daysAgo(31));
    for (const int sessionAge : {1, 400}) {
        expect(R"(
            ~/.claude/worktrees/stale | | | review
            ~/.codex/worktrees/deep   | | | review)",
               [&] { return ai(sessionAge); });
    }
}

TEST_F(SpecialScannersTest, TheNewestVersionOfAToolStaysAndModelsAreForReview) {
    // Of the versions the date decides, not the number.
    expect(R"(
        ~/.local/share/claude/versions/2.0.0            | 10    | 9  | safe | Claude Code · older version; the newest stays
        ~/.local/share/claude/versions/1.9.0            | 10    | 3
        ~/.local/share/claude/versions/.partial         | 10    | 99
        ~/.local/share/cursor-agent/versions/only       | 10    | 300
        ~/.lmstudio/models/publisher/small-7b/          | 20000 |    | review
        ~/.cache/huggingface/hub/models--a--b/          | 20000 |    | review
        ~/.cache/huggingface/hub/version.txt            | 20000
        ~/.ollama/models/blobs/1                        | 20000
        ~/.ollama/models                                |       |    | review)",
           [&] { return ai(); });
    for (const CleanItem& item : ai()) {
        EXPECT_EQ(item.category == CleanCategory::aiModels, item.risk == Risk::review) << item.url;
    }
}

TEST_F(SpecialScannersTest, SystemDataIsRotatedOrReportedAndOldEnough) {
    ScriptedShell failing(CommandResult{.status = 1, .output = "2026-01-02-030405\n"});
    expect(R"(
        /Library/Caches/com.vendor/               | 70000 |    | safe
        /Library/Caches/com.apple.x/              | 70000
        /Library/Caches/tiny/                     | 60000
        /private/var/log/system.log.3.gz          | 10    | 14 | safe
        /private/var/log/system.log               | 10    | 14
        /private/var/log/fresh.log.gz             | 10    | 6
        /private/var/log/upper.GZ                 | 10    | 14
        /private/var/log/empty.gz                 | 0     | 14
        /Library/Logs/DiagnosticReports/x.ips     | 10    | 14 | safe
        /Library/Logs/DiagnosticReports/new.ips   | 10    | 1)",
           [&] { return system(failing); });
    for (const CleanItem& item : system(failing)) {
        EXPECT_TRUE(item.permanent && item.requiresAdmin && !item.rootTool) << item.url;
    }
}

TEST_F(SpecialScannersTest, SnapshotsAreReadFromLinesThatAreDates) {
    ScriptedShell shell(CommandResult{.status = 0,
                                      .output = "Snapshot dates for disk /:\n\n 2026-01-02-030405 \n"
                                                "2026-01-03-030405; rm -rf /\r\n2026-01-04-030405\r\n"});
    const auto items = system(shell);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].url, "/.tavrel-snapshot/2026-01-02-030405");
    EXPECT_EQ(items[0].adminCommand(), "/usr/bin/tmutil deletelocalsnapshots 2026-01-02-030405");
    EXPECT_EQ(items[0].note, "Time Machine local snapshot 2026-01-02-030405; size known only to APFS");
    EXPECT_EQ(items[0].risk, Risk::review);
    EXPECT_EQ(items[1].adminCommand(), "/usr/bin/tmutil deletelocalsnapshots 2026-01-04-030405");
}

TEST_F(SpecialScannersTest, DisabledPackageRevisionsAreNamedSafely) {
    const auto tool = mac.file("/bin/snap", 1);
    mac.file("/snaps/core20_1974.snap", 5000);
    const SpecialScanners::SystemPlaces places{.packages = {{.tool = tool, .folder = mac.at("/snaps")}}};
    ScriptedShell shell(CommandResult{.status = 0,
                                      .output = "Name    Version  Rev   Tracking  Publisher  Notes\n"
                                                "core20  20230801 2015  latest    canonical  base\n"
                                                "core20  20230622 1974  latest    canonical  base,disabled\n"
                                                "$(x)    1        2     latest    evil       disabled\n"
                                                "-y      1        3     latest    evil       disabled\n"});
    const auto items = SpecialScanners::systemData(places, shell, mac.guard(), testing::now());
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].adminCommand(), "/usr/bin/snap remove core20 --revision=1974");
    EXPECT_EQ(items[0].url, items[0].adminCommand()) << "a person types what stands there";
    EXPECT_EQ(items[0].size, 8192);
    EXPECT_EQ(items[0].risk, Risk::review);
}

TEST_F(SpecialScannersTest, ACommandIsOfferedForWhatItWouldEmpty) {
    const auto tool = mac.file("/bin/tidy", 1);
    mac.file("/archives/a.deb", 100000, 20);
    mac.file("/archives/partial/b.deb", 100000, 20);
    mac.file("/archives/young.deb", 100000, 1);
    mac.file("/archives/lock", 100000, 20);
    SpecialScanners::SystemPlaces places{
        .commands = {{.tool = tool,
                      .run = {RootTool::thinPacmanCache, {"2"}},
                      .empties = {{.folder = mac.at("/archives"), .nameHolds = ".deb", .minAgeDays = 14}}}}};
    ScriptedShell shell;
    const auto scan = [&] { return SpecialScanners::systemData(places, shell, mac.guard(), testing::now()); };
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_EQ(scan()[0].size, 2 * 102400);
    EXPECT_EQ(scan()[0].adminCommand(), "/usr/bin/paccache --quiet -rk2");
    places.commands[0].tool = mac.at("/bin/missing");
    EXPECT_TRUE(scan().empty());
}

TEST_F(SpecialScannersTest, RuntimesAreUnusedWhenNoApplicationLeadsToThem) {
    const auto deploy = [this](const std::string& ref, const std::string& metadata) {
        disk.text(ref + "/hash/metadata", metadata);
        disk.link(ref + "/active", "hash");
    };
    deploy("all/app/a/x/1", "[Application]\nname=a\nruntime=used/x/1\nsdk=sdk/x/1\n");
    deploy("own/app/b/x/1", "[Application]\nruntime=own/x/1\n");
    deploy("all/runtime/used/x/1", "[Runtime]\nruntime=used/x/1\nsdk=more/x/1\n");
    deploy("all/runtime/used.Locale/x/1", "[Runtime]\n[ExtensionOf]\nref=runtime/used/x/1\n");
    for (const char* name :
         {"sdk/x/1", "more/x/1", "own/x/1", "pinned/x/1", "kept/x/1", "kept/x/2", "$(x)/x/1"})
        deploy(std::string("all/runtime/") + name, std::string("[Runtime]\nruntime=") + name + "\n");
    disk.text("all/repo/config", "[core]\nxa.pinned=runtime/pin*;runtime/kept/x/2\n");

    const auto tool = disk.file("bin/flatpak", 1);
    const SpecialScanners::SystemPlaces places{
        .runtimes = {{.tool = tool, .installation = disk.path("all"), .others = {disk.path("own")}}}};
    ScriptedShell shell;
    const auto scan = [&] { return SpecialScanners::systemData(places, shell, mac.guard(), testing::now()); };
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_EQ(scan()[0].url, "/usr/bin/flatpak uninstall --system --noninteractive runtime/kept/x/1");
    SpecialScanners::SharedRuntimes ofUser = *places.runtimes;
    ofUser.owner = SpecialScanners::SharedRuntimes::Owner::user;
    const auto own = SpecialScanners::runtimes(ofUser);
    ASSERT_FALSE(own.empty());
    EXPECT_FALSE(own[0].requiresAdmin);
    EXPECT_EQ(own[0].userCommand[1], "FLATPAK_USER_DIR=" + disk.path("all").native());
    disk.link("own/app/c/x/1/active", "gone");
    EXPECT_TRUE(scan().empty()) << "what this application needs is not known";
}

}  // namespace
}  // namespace tavrel
