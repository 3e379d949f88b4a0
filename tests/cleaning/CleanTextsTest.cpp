#include "cleaning/CleanTexts.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using namespace CleanPhases;
using CleanTexts::Figures;

constexpr std::int64_t MB = 1'000'000;

CleanReport report(int removed, std::int64_t freed, std::int64_t trashed, int skipped = 0) {
    CleanReport report{.freed = freed, .trashed = trashed};
    report.removed.resize(static_cast<std::size_t>(removed));
    report.skipped.resize(static_cast<std::size_t>(skipped));
    return report;
}

CleanReport preview(CleanReport report) {
    report.dryRun = true;
    return report;
}

TEST(CleanTexts, TheHeadlineOfEachPhase) {
    const CleanTexts::Idle idle = {"Ready to clean", "Caches and logs"};
    const Figures found = {.items = 12, .categories = 3, .total = 1'500 * MB, .selected = 340 * MB};
    Figures falling = found;
    falling.remaining = 25 * MB;
    Figures fallen = found;
    fallen.remaining = 0;
    struct Row {
        CleanPhase phase;
        Figures figures;
        std::string title;
        std::string subtitle;
    };
    const std::string crossing = "Crossing the event horizon — items go to the Trash";
    const Row rows[] = {
        {Scanning{"Scanning…"}, found, "Scanning…", "Measuring caches, logs and leftovers"},
        {Ready{}, {}, "All clear", "Nothing worth removing right now"},
        {Ready{}, found, "1.5 GB found", "12 items in 3 categories · 340 MB preselected"},
        {Ready{},
         {.items = 1, .categories = 1, .total = 1, .selected = 0},
         "1 byte found",
         "1 item in 1 category · Zero KB preselected"},
        {Cleaning{0}, found, "Pulling it in…", crossing},
        {Cleaning{0.3}, falling, "25 MB to go", crossing},
        {Cleaning{1}, fallen, "Zero KB to go", crossing},
        {Done{preview(report(7, 2 * MB, 1 * MB))}, found, "2 MB would go",
         "Preview mode is on — nothing was touched"},
        {Done{report(7, 2 * MB, 0)}, found, "2 MB freed", "7 items removed for good"},
        {Done{report(1, 1, 1)}, found, "1 byte freed", "1 item removed · 1 byte waiting in the Trash"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CleanTexts::heroTitle(row.phase, row.figures, idle), row.title);
        EXPECT_EQ(CleanTexts::heroSubtitle(row.phase, row.figures, idle), row.subtitle);
    }
}

TEST(CleanTexts, TheBannerTellsWhereThingsWentAndWhatStayed) {
    struct Row {
        CleanReport report;
        std::string text;
    };
    const Row rows[] = {
        {preview(report(1, 4 * MB, 0, 2)), "Preview: 4 MB would be freed (1 item) · 2 skipped"},
        {report(3, 4 * MB, 0), "Freed 4 MB · 3 items removed"},
        {report(3, 4 * MB, 4 * MB, 12), "Freed Zero KB · 4 MB in the Trash · 12 skipped"},
        {report(0, 0, 0, 2), "Freed Zero KB · 0 items removed · 2 skipped"},
    };
    for (const Row& row : rows) EXPECT_EQ(CleanTexts::banner(row.report), row.text);
}

}  // namespace
}  // namespace tavrel
