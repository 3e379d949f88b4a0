#include "cleaning/CleanTexts.h"

#include "core/ByteCount.h"
#include "core/Phrase.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace tavrel::CleanTexts {

namespace {

using namespace CleanPhases;
using Text::localized;

struct Title {
    const Figures& figures;
    const Idle& idle;

    std::string operator()(const CleanPhases::Idle&) const { return idle.title; }
    std::string operator()(const Scanning& scanning) const { return scanning.text; }
    std::string operator()(const Ready&) const {
        if (figures.items == 0) return localized("All clear");
        return phrase("{} found", byteCount(figures.total));
    }
    std::string operator()(const Cleaning&) const {
        if (!figures.remaining) return localized("Pulling it in…");
        return phrase("{} to go", byteCount(*figures.remaining));
    }
    std::string operator()(const Done& done) const {
        const std::string size = byteCount(done.report.freed);
        return done.report.dryRun ? phrase("{} would go", size) : phrase("{} freed", size);
    }
};

std::string found(const Figures& figures) {
    return phrase("{} in {} · {} preselected", counted("{} item", "{} items", figures.items),
                  counted("{} category", "{} categories", figures.categories), byteCount(figures.selected));
}

struct Subtitle {
    const Figures& figures;
    const Idle& idle;

    std::string operator()(const CleanPhases::Idle&) const { return idle.subtitle; }
    std::string operator()(const Scanning&) const {
        return localized("Measuring caches, logs and leftovers");
    }
    std::string operator()(const Ready&) const {
        return figures.items == 0 ? localized("Nothing worth removing right now") : found(figures);
    }
    std::string operator()(const Cleaning&) const {
        return localized("Crossing the event horizon — items go to the Trash");
    }
    std::string operator()(const Done& done) const {
        const CleanReport& report = done.report;
        if (report.dryRun) return localized("Preview mode is on — nothing was touched");
        const auto count = report.removed.size();
        if (report.trashed < 1)
            return counted("{} item removed for good", "{} items removed for good", count);
        return counted("{} item removed · {} waiting in the Trash",
                       "{} items removed · {} waiting in the Trash", count, byteCount(report.trashed));
    }
};

template <typename Skipped>
std::string reasonsOf(const std::vector<Skipped>& skipped) {
    std::map<std::string, std::size_t> counts;
    for (const auto& each : skipped) ++counts[each.reason];
    std::vector<std::pair<std::string, std::size_t>> sorted(counts.begin(), counts.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::string lines;
    for (const auto& [reason, count] : sorted) {
        if (!lines.empty()) lines += '\n';
        lines += phrase("{} skipped: {}", count, Text::escapedForDisplay(reason));
    }
    return lines;
}

}  // namespace

std::string heroTitle(const CleanPhase& phase, const Figures& figures, const Idle& idle) {
    return std::visit(Title{figures, idle}, phase);
}

std::string heroSubtitle(const CleanPhase& phase, const Figures& figures, const Idle& idle) {
    return std::visit(Subtitle{figures, idle}, phase);
}

std::string size(const CleanItem& item) {
    const bool unknown = item.isCommand() && item.size == 0;
    return unknown ? localized("size unknown") : byteCount(item.size);
}

std::string reasons(const CleanReport& report) {
    return reasonsOf(report.skipped);
}

std::string reasons(const RestoreReport& report) {
    return reasonsOf(report.skipped);
}

std::string putBack(const RestoreReport& report) {
    return counted("{} item put back", "{} items put back", report.restored.size());
}

std::string wouldPutBack(const RestoreReport& report) {
    return counted("Preview: {} item would be put back", "Preview: {} items would be put back",
                   report.restored.size());
}

std::string erased(std::size_t count) {
    return counted("{} item deleted for good", "{} items deleted for good", count);
}

std::string notInTrash(std::size_t count) {
    return counted("{} item is not in the Trash any more", "{} items are not in the Trash any more", count);
}

std::string banner(const CleanReport& report) {
    const auto count = report.removed.size();
    std::string text;
    if (report.dryRun) {
        text = counted("Preview: {1} would be freed ({0} item)", "Preview: {1} would be freed ({0} items)",
                       count, byteCount(report.freed));
    } else if (report.trashed < 1) {
        text = counted("Freed {1} · {0} item removed", "Freed {1} · {0} items removed", count,
                       byteCount(report.freed));
    } else {
        text = phrase("Freed {} · {} in the Trash", byteCount(report.freed - report.trashed),
                      byteCount(report.trashed));
    }
    if (!report.skipped.empty()) text += phrase(" · {} skipped", report.skipped.size());
    return text;
}

}  // namespace tavrel::CleanTexts
