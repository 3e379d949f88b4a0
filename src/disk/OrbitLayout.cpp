#include "disk/OrbitLayout.h"

#include "core/CheckedSum.h"

#include <algorithm>

namespace tavrel {

namespace {

bool isDrawn(const AnalyzeEntry& entry) {
    return entry.size.value_or(0) >= 1;
}

/// The sub-folders of an entry, from `start` on: each takes its share of the whole, so that they lie within
/// the arc of the entry. One that is too small leaves its place empty.
void appendSlices(std::vector<OrbitSegment>& ring, const std::vector<SubSlice>& slices, double start,
                  const OrbitColour& colour, double total) {
    for (const SubSlice& slice : slices) {
        const double share = static_cast<double>(slice.size) / total;
        if (share >= OrbitChart::leastSliceShare) {
            ring.push_back(
                {slice.url.native(), start, start + share, colour, AnalyzeFocuses::Slice{slice}, slice.size});
        }
        start += share;
    }
}

}  // namespace

RingArc OrbitRing::arc(const OrbitSegment& segment, double reveal, double emphasis) const {
    return {segment.start * reveal, segment.end * reveal, inner, outer + (focusedOuter - outer) * emphasis};
}

namespace OrbitChart {

bool hasOwnArc(std::int64_t size, std::int64_t total) {
    return size >= 1 && static_cast<double>(size) / static_cast<double>(total) >= leastShare;
}

OrbitLayout layout(std::span<const AnalyzeEntry> entries, const SubSlices& subSlices) {
    OrbitLayout made;
    for (const AnalyzeEntry& entry : entries) {
        if (isDrawn(entry)) made.total = addBytes(made.total, *entry.size);
    }
    const auto total = static_cast<double>(made.total);
    double position = 0;
    double lump = 0;
    std::int64_t lumpSize = 0;
    std::size_t colourIndex = 0;
    for (const AnalyzeEntry& entry : entries) {
        if (!isDrawn(entry)) continue;
        const double share = static_cast<double>(*entry.size) / total;
        if (!hasOwnArc(*entry.size, made.total)) {
            lump += share;
            lumpSize = addBytes(lumpSize, *entry.size);
            ++made.smallCount;
            continue;
        }
        const std::string& path = entry.url.native();
        const OrbitColour colour = palette.at(colourIndex++ % palette.size());
        made.inner.push_back(
            {path, position, position + share, colour, AnalyzeFocuses::Entry{path}, *entry.size});
        const auto slices = subSlices.find(path);
        if (slices != subSlices.end()) appendSlices(made.outer, slices->second, position, colour, total);
        position += share;
    }
    if (lump > 0) {
        made.inner.push_back(
            {lumpId, position, position + lump, lumpColour, AnalyzeFocuses::Other{}, lumpSize});
    }
    return made;
}

std::string idOf(const AnalyzeFocus& focus) {
    if (const auto* entry = std::get_if<AnalyzeFocuses::Entry>(&focus)) return entry->path;
    if (const auto* slice = std::get_if<AnalyzeFocuses::Slice>(&focus)) return slice->slice.url.native();
    return lumpId;
}

std::optional<AnalyzeFocus> focusOf(const OrbitLayout& layout, std::string_view id) {
    for (const auto* ring : {&layout.inner, &layout.outer}) {
        const auto found = std::find_if(ring->begin(), ring->end(),
                                        [id](const OrbitSegment& segment) { return segment.id == id; });
        if (found != ring->end()) return found->focus;
    }
    return std::nullopt;
}

}  // namespace OrbitChart
}  // namespace tavrel
