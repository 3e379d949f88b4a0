#include "cleaning/SpecialScanners.h"
#include "support/SampleMac.h"
#include "support/Sandbox.h"
#include "support/ScriptedShell.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::daysAgo;
using testing::itemAt;
using testing::SampleMac;
using testing::Sandbox;
using testing::ScriptedShell;

class SpecialScannersTest : public ::testing::Test {
  protected:
    std::vector<CleanItem> ai(int sessionAgeDays = 90) const {
        return SpecialScanners::ai(mac.home(), mac.guard(), sessionAgeDays, testing::now());
    }

    std::vector<CleanItem> system(Shell& shell) const {
        const auto places = mac.profile().scan.system;
        return SpecialScanners::systemData(places, shell, mac.guard().withRoots(places.roots),
                                           testing::now());
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
};

TEST_F(SpecialScannersTest, EditorExtensionsAreComparedByNumberWithinOneFolder) {
    const std::string base = "~/.vscode/extensions/";
    const auto older = mac.folder(base + "foo.bar-1.2.0", 1, 10);
    const auto newest = mac.folder(base + "foo.bar-1.10.0", 1, 10);
    const auto shorter = mac.folder(base + "a.b-1.2", 1, 10);
    const auto longer = mac.folder(base + "a.b-1.2.0-darwin-arm64", 1, 10);
    mac.folder(base + "single-3.0.0", 1, 10);
    mac.folder(base + "foo-1", 1, 10);
    mac.file(base + ".obsolete", 10);
    mac.folder("~/.cursor/extensions/single-2.0.0", 1, 10);
    const auto items = SpecialScanners::oldEditorExtensions(mac.home(), mac.guard());
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(itemAt(items, older)->note, "Superseded by foo.bar-1.10.0");
    EXPECT_EQ(itemAt(items, shorter)->note, "Superseded by a.b-1.2.0-darwin-arm64");
    EXPECT_EQ(itemAt(items, newest), nullptr);
    EXPECT_EQ(itemAt(items, longer), nullptr);
}

TEST_F(SpecialScannersTest, WebCachesBelongToApplicationsThatHaveNoRows) {
    const std::string support = "~/Library/Application Support/";
    const auto slack = mac.folder(support + "Slack/Code Cache", 1, 70000);
    const auto worker = mac.folder(support + "Slack/Service Worker/CacheStorage", 1, 70000);
    for (const char* other : {"Slack/Local Storage", "Code/Cache", "com.apple.x/Cache"}) {
        mac.folder(support + other, 1, 70000);
    }
    mac.folder(support + "Small/Cache", 1, 60000);
    const auto items =
        SpecialScanners::appWebCaches(mac.profile().scan.webCaches, mac.home(), {}, mac.guard());
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].url, slack);
    EXPECT_EQ(items[0].note, "Slack · rebuilt on next launch");
    EXPECT_EQ(items[1].url, worker);
}

TEST_F(SpecialScannersTest, ContainersAreNamedAsPeopleKnowThem) {
    struct Names : ApplicationNames {
        [[nodiscard]] std::optional<std::string> displayName(const std::string& bundleID) const override {
            if (bundleID == "com.apple.Notes") return "Notes.app";
            return std::nullopt;
        }
    };
    for (const char* container : {"com.apple.Notes", "com.apple.Mystery", ".hidden"}) {
        mac.folder("~/Library/Containers/" + std::string(container) + "/Data/Library/Caches", 1, 70000);
    }
    const auto items = SpecialScanners::containerCaches(mac.profile().scan.containers, mac.home(),
                                                        {"com.apple.Notes"}, true, Names(), mac.guard());
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].note, "com.apple.Mystery · rebuilt by the app on demand");
    EXPECT_EQ(items[1].note, "Notes · running; quit it first");
    EXPECT_EQ(items[1].risk, Risk::review);
}

TEST_F(SpecialScannersTest, OldSessionsAreSafeAndYoungOnesAreNotListed) {
    const std::string projects = "~/.claude/projects/";
    const auto old = mac.file(projects + "-Users-ana-code-shop/1.jsonl", 20000, 91);
    const auto unnamed = mac.file(projects + "---/1.jsonl", 20000, 91);
    const auto young = mac.file(projects + "-Users-ana-code-shop/2.jsonl", 20000, 89);
    const auto small = mac.file(projects + "-Users-ana-code-shop/3.jsonl", 12288, 300);
    const auto other = mac.file(projects + "-Users-ana-code-shop/4.txt", 20000, 300);
    const auto month = mac.folder("~/.codex/sessions/2025/11/03", 1, 20000, 200).parent_path();
    mac.folder("~/.codex/sessions/2026/11/03", 1, 20000, 2);
    for (const auto* path : {"~/.codex/sessions/2025/11", "~/.codex/sessions/2026/11"}) {
        Sandbox::date(mac.at(path), daysAgo(200));
    }
    const auto items = ai();
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(itemAt(items, old)->note, "Claude Code · shop");
    EXPECT_EQ(itemAt(items, unnamed)->note, "Claude Code · ");
    EXPECT_EQ(itemAt(items, month)->note, "Codex · sessions from 2025-11");
    for (const auto& path : {young, small, other}) EXPECT_EQ(itemAt(items, path), nullptr) << path;
    EXPECT_EQ(ai(88).size(), 4U);
}

TEST_F(SpecialScannersTest, WorktreesAgeByWhatIsNearTheirTopWhateverTheSessionsDo) {
    const auto stale = mac.folder("~/.claude/worktrees/stale", 1, 20000, 31);
    const auto touched = mac.folder("~/.claude/worktrees/touched", 1, 20000, 31);
    mac.file("~/.claude/worktrees/touched/a/b.txt", 10, 29);
    const auto deep = mac.folder("~/.codex/worktrees/deep", 1, 20000, 31);
    mac.file("~/.codex/worktrees/deep/a/b/c.txt", 10, 1);
    for (const auto& folder : {touched, touched / "a", deep, deep / "a", deep / "a/b"})
        Sandbox::date(folder, daysAgo(31));
    for (const int sessionAge : {1, 400}) {
        const auto items = ai(sessionAge);
        ASSERT_EQ(items.size(), 2U);
        EXPECT_EQ(itemAt(items, stale)->risk, Risk::review);
        EXPECT_NE(itemAt(items, deep), nullptr);
    }
}

TEST_F(SpecialScannersTest, TheNewestVersionOfAToolStays) {
    const std::string versions = "~/.local/share/claude/versions/";
    const auto older = mac.file(versions + "2.0.0", 10, 9);
    mac.file(versions + "1.9.0", 10, 3);
    mac.file(versions + ".partial", 10, 99);
    mac.file("~/.local/share/cursor-agent/versions/only", 10, 300);
    const auto items = ai();
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].url, older) << "the date decides, not the number";
    EXPECT_EQ(items[0].note, "Claude Code · older version; the newest stays");
}

TEST_F(SpecialScannersTest, ModelsAreForReview) {
    mac.file("~/.lmstudio/models/publisher/small-7b/weights", 20000);
    mac.file("~/.cache/huggingface/hub/models--a--b/blob", 20000);
    mac.file("~/.cache/huggingface/hub/version.txt", 20000);
    mac.file("~/.ollama/models/blobs/1", 20000);
    const auto items = ai();
    EXPECT_EQ(items.size(), 3U);
    for (const CleanItem& item : items) {
        EXPECT_EQ(item.category, CleanCategory::aiModels);
        EXPECT_EQ(item.risk, Risk::review);
    }
}

TEST_F(SpecialScannersTest, SystemDataIsRotatedOrReportedAndOldEnough) {
    const auto cache = mac.folder("/Library/Caches/com.vendor", 1, 70000);
    mac.folder("/Library/Caches/com.apple.x", 1, 70000);
    mac.folder("/Library/Caches/tiny", 1, 60000);
    const auto rotated = mac.file("/private/var/log/system.log.3.gz", 10, 14);
    mac.file("/private/var/log/system.log", 10, 14);
    mac.file("/private/var/log/fresh.log.gz", 10, 6);
    mac.file("/private/var/log/upper.GZ", 10, 14);
    mac.file("/private/var/log/empty.gz", 0, 14);
    const auto report = mac.file("/Library/Logs/DiagnosticReports/x.ips", 10, 14);
    mac.file("/Library/Logs/DiagnosticReports/new.ips", 10, 1);
    ScriptedShell shell(CommandResult{.status = 1, .output = "2026-01-02-030405\n"});
    const auto items = system(shell);
    EXPECT_EQ(items.size(), 3U) << "a tool that fails adds nothing";
    for (const auto& path : {cache, rotated, report}) {
        const CleanItem* item = itemAt(items, path);
        ASSERT_NE(item, nullptr) << path;
        EXPECT_TRUE(item->permanent && item->requiresAdmin) << path;
        EXPECT_EQ(item->risk, Risk::safe);
        EXPECT_EQ(item->adminCommand, std::nullopt);
    }
}

TEST_F(SpecialScannersTest, SnapshotsAreReadFromLinesThatAreDates) {
    ScriptedShell shell(CommandResult{.status = 0,
                                      .output = "Snapshot dates for disk /:\n\n 2026-01-02-030405 \n"
                                                "2026-01-03-030405; rm -rf /\r\n2026-01-04-030405\r\n"});
    const auto items = system(shell);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].url, "/.tavrel-snapshot/2026-01-02-030405");
    EXPECT_EQ(items[0].adminCommand, "/usr/bin/tmutil deletelocalsnapshots 2026-01-02-030405");
    EXPECT_EQ(items[0].note, "Time Machine local snapshot 2026-01-02-030405; size known only to APFS");
    EXPECT_EQ(items[0].risk, Risk::review);
    EXPECT_EQ(items[1].adminCommand, "/usr/bin/tmutil deletelocalsnapshots 2026-01-04-030405");
}

TEST_F(SpecialScannersTest, DisabledPackageRevisionsAreNamedSafely) {
    const auto tool = mac.file("/bin/snap", 1);
    mac.file("/snaps/core20_1974.snap", 5000);
    const SpecialScanners::SystemPlaces places{.packages = {{.tool = tool, .folder = mac.at("/snaps")}}};
    ScriptedShell shell(CommandResult{.status = 0,
                                      .output = "Name    Version  Rev   Tracking  Publisher  Notes\n"
                                                "core20  20230801 2015  latest    canonical  base\n"
                                                "core20  20230622 1974  latest    canonical  base,disabled\n"
                                                "$(x)    1        2     latest    evil       disabled\n"});
    const auto items = SpecialScanners::systemData(places, shell, mac.guard(), testing::now());
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].adminCommand, tool.native() + " remove 'core20' --revision=1974");
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
        .commands = {{.identifier = "tidy",
                      .tool = tool,
                      .command = "/bin/tidy up",
                      .empties = {{.folder = mac.at("/archives"), .nameHolds = ".deb", .minAgeDays = 14}}}}};
    ScriptedShell shell;
    const auto scan = [&] { return SpecialScanners::systemData(places, shell, mac.guard(), testing::now()); };
    ASSERT_EQ(scan().size(), 1U);
    EXPECT_EQ(scan()[0].size, 2 * 102400);
    EXPECT_EQ(scan()[0].adminCommand, "/bin/tidy up");
    places.commands[0].tool = mac.at("/bin/missing");
    EXPECT_TRUE(scan().empty());
}

}  // namespace
}  // namespace tavrel
