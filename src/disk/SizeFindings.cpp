#include "disk/SizeFindings.h"

namespace tavrel {

SizeKey SizeKey::of(std::string_view path) {
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos) return {.folder = {}, .name = path};
    return {.folder = path.substr(0, slash == 0 ? 1 : slash), .name = path.substr(slash + 1)};
}

SizeFindings SizeFindings::of(const DiskIndex::Measurement& measurement) {
    SizeFindings findings{.total = {.size = measurement.size, .files = measurement.files}, .families = {}};
    for (const auto& [path, info] : measurement.folders) {
        const SizeKey key = SizeKey::of(path);
        auto family = findings.families.find(key.folder);
        if (family == findings.families.end())
            family = findings.families.try_emplace(std::string(key.folder)).first;
        family->second.figures.insert_or_assign(
            std::string(key.name), SizeFamily::Figure{.info = info, .known = true, .isChild = true});
    }
    return findings;
}

}  // namespace tavrel
