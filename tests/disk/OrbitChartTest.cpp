#include "disk/OrbitPlace.h"
#include "disk/OrbitReadout.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using OrbitChart::focusOf;
using OrbitChart::layout;
using OrbitChart::segmentAt;

AnalyzeEntry folder(const char* path, std::optional<std::int64_t> size) {
    return {.url = path, .size = size, .files = 12'000, .isFolder = true};
}

/// Ten entries of 99 each and ten small ones: 1000 altogether.
OrbitLayout busyFolder() {
    std::vector<AnalyzeEntry> entries;
    entries.reserve(20);
    for (int i = 0; i < 10; ++i) entries.push_back({"/d/" + std::to_string(i), 99'000, std::nullopt, true});
    for (int i = 0; i < 10; ++i) entries.push_back({"/d/small" + std::to_string(i), 1'000, 1, false});
    const SubSlices slices = {
        {"/d/0", {{"/d/0/a", 50'000, 5}, {"/d/0/tiny", 1'999, 5}, {"/d/0/b", 40'000, 5}}},
        {"/d/2", {{"/d/2/a", 99'000, 5}}},
    };
    return layout(entries, slices);
}

TEST(OrbitLayout, HasNoArcsWithoutMeasuredSizes) {
    EXPECT_EQ(layout({}, {}), OrbitLayout());
    EXPECT_EQ(layout(std::vector{folder("/a", std::nullopt), folder("/b", 0)}, {}), OrbitLayout());
}

TEST(OrbitLayout, LumpsWhatIsBelowFourThousandthsAtTheEnd) {
    const std::vector entries = {folder("/big", 9'921), folder("/edge", 40), folder("/below", 39),
                                 folder("/unknown", std::nullopt)};
    const OrbitLayout made = layout(entries, {});
    ASSERT_EQ(made.inner.size(), 3U);
    EXPECT_EQ(made.inner[1].id, "/edge");
    EXPECT_EQ(made.inner[2].id, "other");
    EXPECT_EQ(made.inner[2].focus, AnalyzeFocus(AnalyzeFocuses::Other()));
    EXPECT_EQ(made.inner[2].size, 39);
    EXPECT_EQ(made.smallCount, 1U);
    EXPECT_NEAR(made.inner[2].end, 1, 1e-12);
}

TEST(OrbitLayout, ColoursGoRoundAndTheLumpTakesNone) {
    const OrbitLayout made = busyFolder();
    ASSERT_EQ(made.inner.size(), 11U);
    EXPECT_EQ(made.inner[8].color, made.inner[0].color);
    EXPECT_NE(made.inner[7].color, made.inner[0].color);
    EXPECT_EQ(made.inner[10].color, OrbitChart::lumpColour);
    for (std::size_t i = 1; i < made.inner.size(); ++i)
        EXPECT_DOUBLE_EQ(made.inner[i].start, made.inner[i - 1].end);
}

TEST(OrbitLayout, SlicesKeepTheirPlaceWithinTheirParent) {
    const OrbitLayout made = busyFolder();
    ASSERT_EQ(made.outer.size(), 3U);  // the tiny one leaves a gap
    EXPECT_DOUBLE_EQ(made.outer[0].start, made.inner[0].start);
    EXPECT_NEAR(made.outer[1].start - made.outer[0].end, 0.001999, 1e-12);
    EXPECT_LE(made.outer[1].end, made.inner[0].end);
    EXPECT_EQ(made.outer[1].color, made.inner[0].color);
    EXPECT_NEAR(made.outer[2].end, made.inner[2].end, 1e-12);
    const auto focus = focusOf(made, "/d/0/b");
    ASSERT_TRUE(focus);
    EXPECT_EQ(std::get<AnalyzeFocuses::Slice>(*focus).slice.size, 40'000);
    EXPECT_EQ(OrbitChart::idOf(*focus), "/d/0/b");
    EXPECT_FALSE(focusOf(made, "/d/0/tiny"));
}

OrbitPoint pointAt(double radius, double turn) {
    const double angle = (turn - 0.25) * 2 * std::numbers::pi;
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

TEST(OrbitPointer, FindsWhatIsDrawnThere) {
    const OrbitLayout made = busyFolder();
    const auto idAt = [&](double radius, double turn, double reveal = 1) -> std::string {
        const auto place = segmentAt(made, pointAt(radius, turn), reveal, std::nullopt);
        return place ? OrbitChart::segment(made, *place).id : "";
    };
    EXPECT_EQ(idAt(0.5, 0.05), "/d/0");
    EXPECT_EQ(idAt(0.8, 0.02), "/d/0/a");
    EXPECT_EQ(idAt(0.8, 0.15), "");   // no slices there
    EXPECT_EQ(idAt(0.39, 0.05), "");  // the dark
    EXPECT_EQ(idAt(0.69, 0.05), "");  // between the rings
    EXPECT_EQ(idAt(0.93, 0.02), "");  // outside
    EXPECT_EQ(idAt(0.5, 0.099), "");  // between two arcs
    EXPECT_EQ(idAt(0.5, 0.9945), "other");
    EXPECT_EQ(idAt(0.5, 0.55, 0.5), "");  // not swept yet
    EXPECT_EQ(idAt(0.5, 0.49, 0.5), "/d/9");
}

TEST(OrbitPointer, NothingFlickersBetweenTheFocusAndItsNeighbours) {
    const OrbitLayout made = busyFolder();
    // Slowly all the way round, then out and in again: whoever has the focus keeps it until another takes it.
    std::optional<OrbitPlace> focus = OrbitPlace{OrbitSide::inner, 9};
    std::vector<std::size_t> seen;
    for (double turn = -0.05; turn < 0.98; turn += 0.0002) {
        focus = segmentAt(made, pointAt(0.6, turn), 1, focus);
        ASSERT_TRUE(focus) << turn;
        if (seen.empty() || seen.back() != focus->index) seen.push_back(focus->index);
    }
    EXPECT_EQ(seen, (std::vector<std::size_t>{9, 10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));

    focus = OrbitPlace{OrbitSide::inner, 0};
    for (double radius = 0.5; radius < 0.9; radius += 0.002) {
        focus = segmentAt(made, pointAt(radius, 0.02), 1, focus);
        ASSERT_TRUE(focus) << radius;
    }
    EXPECT_EQ(focus, (OrbitPlace{OrbitSide::outer, 0}));
    for (double radius = 0.9; radius > 0.5; radius -= 0.002) {
        focus = segmentAt(made, pointAt(radius, 0.02), 1, focus);
        ASSERT_TRUE(focus) << radius;
    }
    EXPECT_EQ(focus, (OrbitPlace{OrbitSide::inner, 0}));
    // The focused arc is larger; beyond that nothing is left of it.
    const OrbitPlace slice = {OrbitSide::outer, 0};
    EXPECT_EQ(segmentAt(made, pointAt(0.94, 0.02), 1, slice), slice);
    EXPECT_FALSE(segmentAt(made, pointAt(0.96, 0.02), 1, slice));
}

TEST(OrbitPointer, ThinArcsHaveNoGap) {
    const RingArc thin = {.start = 0.5, .end = 0.5059, .inner = 0.4, .outer = 0.68};
    const RingArc wide = {.start = 0.5, .end = 0.507, .inner = 0.4, .outer = 0.68};
    EXPECT_TRUE(thin.contains(pointAt(0.5, 0.5005)));
    EXPECT_FALSE(wide.contains(pointAt(0.5, 0.5005)));
    EXPECT_TRUE(wide.contains(pointAt(0.5, 0.5035)));
}

TEST(OrbitKeyboard, GoesRoundARingAndAcrossToTheOther) {
    const OrbitLayout made = busyFolder();
    const OrbitPlace first = {OrbitSide::inner, 0};
    const OrbitPlace last = {OrbitSide::inner, 10};
    EXPECT_EQ(OrbitChart::neighbour(made, first, -1), last);
    EXPECT_EQ(OrbitChart::neighbour(made, last, 1), first);
    const OrbitPlace slice = {OrbitSide::outer, 2};
    EXPECT_EQ(OrbitChart::across(made, slice, OrbitSide::inner), (OrbitPlace{OrbitSide::inner, 2}));
    EXPECT_EQ(OrbitChart::across(made, {OrbitSide::inner, 2}, OrbitSide::outer), slice);
    // An entry without slices: the closest, also past the top of the circle.
    EXPECT_EQ(OrbitChart::across(made, {OrbitSide::inner, 4}, OrbitSide::outer), slice);
    EXPECT_EQ(OrbitChart::across(made, last, OrbitSide::outer), (OrbitPlace{OrbitSide::outer, 0}));
    EXPECT_FALSE(OrbitChart::across(made, slice, OrbitSide::outer));
    const OrbitLayout bare = layout(std::vector{folder("/a", 5)}, {});
    EXPECT_FALSE(OrbitChart::across(bare, {OrbitSide::inner, 0}, OrbitSide::outer));
}

TEST(OrbitReadout, TellsOfTheFocusOrTheFolder) {
    const std::vector entries = {folder("/d/Library", 750'000'000),
                                 AnalyzeEntry{"/d/film.mov", 249'000'000, 1, false},
                                 AnalyzeEntry{"/d/note", 1'000'000, 1, false}};
    const SubSlice caches = {"/d/Library/Caches", 500'000'000, 1};
    const OrbitLayout made = layout(entries, {{"/d/Library", {caches}}});
    const OrbitFolder here = {.url = "/d", .isRoot = false, .total = 1'000'000'000, .files = 2'500'000};
    const auto read = [&](const std::optional<AnalyzeFocus>& focus, bool isRoot = false) {
        OrbitFolder at = here;
        at.isRoot = isRoot;
        const AnalyzeEntry* entry = nullptr;
        for (const AnalyzeEntry& each : entries) {
            if (focus && each.url == OrbitChart::idOf(*focus)) entry = &each;
        }
        return OrbitChart::readout(made, focus, entry, at);
    };
    EXPECT_EQ(read({}), (OrbitReadout{"internaldrive", "d", "1 GB", "2.5M files"}));
    EXPECT_EQ(read({}, true).name, "Whole disk");
    EXPECT_EQ(read(AnalyzeFocuses::Entry{"/d/Library"}),
              (OrbitReadout{"folder", "Library", "750 MB", "75.0% · 12k files"}));
    EXPECT_EQ(read(AnalyzeFocuses::Entry{"/d/film.mov"}),
              (OrbitReadout{"doc", "film.mov", "249 MB", "24.9%"}));
    EXPECT_EQ(read(AnalyzeFocuses::Slice{caches}),
              (OrbitReadout{"folder", "Library / Caches", "500 MB", "50.0% · 1 file"}));
    EXPECT_EQ(read(AnalyzeFocuses::Other()),
              (OrbitReadout{"square.grid.3x3", "1 small item", "1 MB", "0.1%"}));
    EXPECT_EQ(OrbitChart::spoken(made, made.inner[0]), "Library, 750 MB, 75.0%");
    EXPECT_EQ(OrbitChart::spoken(made, made.outer[0]), "Library / Caches, 500 MB, 50.0%");
    EXPECT_EQ(OrbitChart::spoken(made, made.inner[2]), "1 small item, 1 MB, 0.1%");
}

}  // namespace
}  // namespace tavrel
