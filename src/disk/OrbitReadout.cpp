#include "disk/OrbitReadout.h"

#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "core/Paths.h"
#include "core/Phrase.h"
#include "core/Text.h"
#include "disk/FileCount.h"

namespace tavrel::OrbitChart {

namespace {

constexpr const char* between = " · ";

std::string nameOf(const std::filesystem::path& path) {
    return Text::escapedForDisplay(Paths::name(path));
}

std::string sliceName(const std::filesystem::path& path) {
    return nameOf(path.parent_path()) + " / " + nameOf(path);
}

std::string smallItems(std::size_t count) {
    return counted("{} small item", "{} small items", static_cast<unsigned long>(count));
}

std::string percent(double share) {
    return oneDecimal(share * 100) + "%";
}

struct Words {
    const OrbitLayout& layout;
    const AnalyzeEntry* entry;

    OrbitReadout operator()(const AnalyzeFocuses::Entry& focus) const {
        if (entry == nullptr) return {.icon = "doc", .name = nameOf(focus.path)};
        const std::int64_t size = entry->size.value_or(0);
        OrbitReadout words = {entry->isFolder ? "folder" : "doc", nameOf(entry->url), byteCount(size),
                              percent(share(size))};
        if (entry->isFolder && entry->files) words.detail += between + FileCount::text(*entry->files);
        return words;
    }

    OrbitReadout operator()(const AnalyzeFocuses::Slice& focus) const {
        const SubSlice& slice = focus.slice;
        return {"folder", sliceName(slice.url), byteCount(slice.size),
                percent(share(slice.size)) + between + FileCount::text(slice.files)};
    }

    OrbitReadout operator()(const AnalyzeFocuses::Other&) const {
        const bool isDrawn = !layout.inner.empty() && layout.inner.back().id == lumpId;
        const std::int64_t size = isDrawn ? layout.inner.back().size : 0;
        return {"square.grid.3x3", smallItems(layout.smallCount), byteCount(size), percent(share(size))};
    }

  private:
    [[nodiscard]] double share(std::int64_t size) const {
        return layout.total > 0 ? static_cast<double>(size) / static_cast<double>(layout.total) : 0;
    }
};

}  // namespace

OrbitReadout readout(const OrbitLayout& layout, const std::optional<AnalyzeFocus>& focus,
                     const AnalyzeEntry* entry, const OrbitFolder& folder) {
    if (focus) return std::visit(Words{layout, entry}, *focus);
    return {"internaldrive", folder.isRoot ? Text::localized("Whole disk") : nameOf(folder.url),
            byteCount(folder.total), FileCount::text(folder.files)};
}

std::string spoken(const OrbitLayout& layout, const OrbitSegment& segment) {
    std::string name = smallItems(layout.smallCount);
    if (std::holds_alternative<AnalyzeFocuses::Entry>(segment.focus)) name = nameOf(segment.id);
    if (std::holds_alternative<AnalyzeFocuses::Slice>(segment.focus)) name = sliceName(segment.id);
    return name + ", " + byteCount(segment.size) + ", " + percent(segment.share());
}

}  // namespace tavrel::OrbitChart
