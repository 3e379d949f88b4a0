#include "cleaning/Cleaner.h"
#include "cleaning/RealHome.h"
#include "engine/Finders.h"
#include "engine/SystemTools.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::RealHome;
using enum CleanMode;

/// What a person may count on, whatever becomes of the tables.
// clang-format off
const std::vector<RealHome::Promise> promises = {
    // what can be had again
    {system, ".npm/_cacache/",                              5,   "safe",   "gone"},
    {system, ".npm/_npx/3f2a/",                             5,   "safe",   "gone"},
    {system, ".cache/pypoetry/cache/",                      5,   "safe",   "gone"},
    {system, ".cache/pypoetry/artifacts/",                  5,   "safe",   "gone"},
    {system, ".cache/thumbnails/",                          5,   "safe",   "gone"},
    {system, ".cache/spotify/",                             5,   "safe",   "gone"},
    {system, ".cache/tagged/",                              5,   "safe",   "gone"},
    {system, ".ccache/0/",                                  5,   "safe",   "gone"},
    {system, ".cache/go-build/00/",                         5,   "safe",   "gone"},
    {system, ".cache/mozilla/firefox/k4.idle/",             5,   "safe",   "gone"},
    {system, ".var/app/org.gimp.GIMP/cache/",               5,   "safe",   "gone"},
    {system, ".config/discord/Partitions/chat/Cache/",      5,   "safe",   "gone"},
    {system, ".config/BraveSoftware/Brave-Browser/Default/GPUCache/", 5, "safe", "gone"},
    {system, "snap/slack/common/.config/Slack/Code Cache/", 5,   "safe",   "gone"},
    {system, ".local/state/wireplumber/logs/",              5,   "safe",   "gone"},
    {system, ".local/share/Trash/files/long-ago",           31,  "safe",   "gone"},
    {ai,     ".continue/logs/",                             5,   "safe",   "gone"},
    {projects,   "code/plain/node_modules/",                200, "safe",   "gone"},
    {installers, "Downloads/editor.deb",                    30,  "safe",   "Trash"},
    {installers, "Downloads/app.flatpak",                   30,  "safe",   "Trash"},
    {installers, "Downloads/disk.iso",                      30,  "safe",   "Trash"},
    // what goes to the Trash, since somebody may want it
    {system, "Downloads/film.mkv.part",                     5,   "safe",   "Trash"},
    {system, ".cache/pypoetry/virtualenvs/shop-py3.11/",    5,   "review", "Trash"},
    {system, ".cache/go-build/fuzz/",                       5,   "-",      ""},
    {system, ".cache/deno/location_data/",                  5,   "-",      ""},
    {system, ".cache/pre-commit/patch1700000000-7",         5,   "-",      ""},
    {system, ".cache/some-program/",                        5,   "review", "Trash"},
    {system, ".cache/org.example.Spotify/",                 0.1, "review", "Trash"},
    {system, ".cache/evolution/",                           5,   "review", "Trash"},
    {system, ".cache/JetBrains/IdeaIC2023.1/",              300, "review", "Trash"},
    {system, ".cache/JetBrains/IdeaIC2024.1/",              30,  "review", "Trash"},
    {system, ".config/chromium/BrowserMetrics/",            5,   "review", "Trash"},  // its lock is another host's
    {system, ".cache/chromium/",                            5,   "review", "Trash"},
    {system, ".cache/mozilla/firefox/k3.locked/",           5,   "review", "Trash"},
    {system, ".config/discord/Service Worker/CacheStorage/", 5,  "review", "Trash"},
    {system, ".local/share/Trash/files/yesterday",          1,   "review", "gone"},
    {system, "core",                                        5,   "review", "Trash"},
    {system, "hs_err_pid77.log",                            5,   "review", "Trash"},
    {system, "Downloads/.DS_Store",                         5,   "review", "Trash"},
    {ai,     ".cache/huggingface/xet/",                     5,   "review", "Trash"},
    {ai,     ".cache/whisper/",                             5,   "review", "Trash"},
    {ai,     ".gemini/tmp/",                                5,   "review", "Trash"},
    {projects,   "code/tracked/node_modules/",              200, "review", "Trash"},
    {projects,   "code/plain/src/Thumbs.db",                200, "review", "Trash"},
    {projects,   "code/tool/target/",                       200, "review", "Trash"},
    {installers, "Downloads/Other.AppImage",                30,  "review", "Trash"},
    {installers, "Downloads/go1.22.linux-amd64.tar.gz",     30,  "review", "Trash"},
    {installers, "Documents/mine.iso",                      30,  "review", "Trash"},
    // what nobody is offered
    {system, ".ccache/ccache.conf",                         5,   "-",      ""},
    {system, ".cache/rclone/vfs/remote/",                   5,   "-",      ""},
    {system, ".cache/keepassxc/",                           5,   "-",      ""},
    {system, ".cache/vim/swap/",                            5,   "-",      ""},
    {system, ".cache/huggingface/token",                    5,   "-",      ""},
    {system, ".config/discord/Local Storage/",              5,   "-",      ""},
    {system, ".local/state/nvim/logs/",                     0.1, "-",      ""},
    {system, "Downloads/new.part",                          1,   "-",      ""},
    {installers, "Downloads/Editor.AppImage",               30,  "-",      ""},
    {installers, "Documents/go1.22.linux-amd64.tar.gz",     30,  "-",      ""},
};
// clang-format on

class RealHomeTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::vector<CleanItem> found(CleanMode mode) {
        PreferenceValues preferences;
        return Finders(profile, tools).find(mode, preferences, testing::now());
    }
    /// Where a thing is after everything that was found has been cleaned away.
    [[nodiscard]] std::string whereabouts(const RealHome::Promise& promise) const {
        if (std::filesystem::exists(laid.at(promise.path))) return "";
        const auto inTrash = [&](const CleanReport& report) {
            return std::any_of(report.inTrash.begin(), report.inTrash.end(), [&](const TrashedItem& item) {
                return item.path == laid.at(promise.path).native();
            });
        };
        return std::any_of(reports.begin(), reports.end(), inTrash) ? "Trash" : "gone";
    }

    RealHome laid{promises};
    Profile profile = laid.profile();
    SystemTools tools{profile};
    std::vector<CleanReport> reports;
};

TEST_F(RealHomeTest, KeepsEveryPromise) {
    const Finders finders(profile, tools);
    for (const CleanMode mode : CleanModes::allCases) {
        const auto items = found(mode);
        for (const auto& promise : promises) {
            if (promise.mode != mode) continue;
            const auto item = std::find_if(items.begin(), items.end(), [&](const CleanItem& each) {
                return each.url == laid.at(promise.path);
            });
            EXPECT_EQ(item == items.end() ? "-" : std::string(rawText(item->risk)), promise.risk)
                << promise.path << (item == items.end() ? "" : ": " + item->note);
        }
        reports.push_back(
            Cleaner(tools.cleaner(profile)).clean(items, "clean", finders.guard(mode, {}), {}, [](double) {
            }));
        EXPECT_TRUE(reports.back().skipped.empty());
    }
    for (const auto& promise : promises) EXPECT_EQ(whereabouts(promise), promise.goes) << promise.path;
}

TEST_F(RealHomeTest, WhatAProgramUsesIsRefusedAtTheAct) {
    const std::filesystem::path firefox = laid.at(".cache/mozilla/firefox/k4.idle");
    const RunningApplications cases[] = {
        {.bundleIDs = {"firefox-esr"}, .names = {}, .files = {}},
        {.bundleIDs = {"firefox-bin"}, .names = {}, .files = {}},
        {.bundleIDs = {}, .names = {}, .files = {firefox / "content"}},
        {.bundleIDs = {}, .names = {}, .files = {laid.at(".config/mozilla/firefox/k4.idle/cookies.sqlite")}},
        {.bundleIDs = {}, .names = {}, .files = {}, .complete = false},
    };
    auto items = found(system);
    std::erase_if(items, [&](const CleanItem& item) { return item.url != firefox; });
    ASSERT_EQ(items.size(), 1U);
    for (const RunningApplications& running : cases) {
        auto works = tools.cleaner(profile);
        works.running = [&] { return running; };
        const auto guard = Finders(profile, tools).guard(system, {});
        for (const bool isPreview : {true, false}) {
            const auto report =
                Cleaner(works).clean(items, "clean", guard, {.dryRun = isPreview}, [](double) {});
            EXPECT_EQ(report.skipped.size(), 1U);
        }
    }
    EXPECT_TRUE(std::filesystem::exists(firefox / "content"));
}

}  // namespace
}  // namespace tavrel
