#include "disk/SizeCache.h"

#include "core/Paths.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace tavrel {
namespace {

using Figure = SizeFamily::Figure;

/// The figures that were there stand; what is new to them is added.
void add(SizeFamily& older, SizeFamily&& newer) {
    for (auto& [name, figure] : newer.figures) {
        Figure& known = older.figures.try_emplace(name).first->second;
        known.isChild = true;
        if (!std::exchange(known.known, true)) known.info = figure.info;
    }
}

}  // namespace

std::optional<SizeCache::Info> SizeCache::Folder::find(std::string_view name) const {
    if (family_ == nullptr) return std::nullopt;
    const auto found = family_->figures.find(name);
    if (found == family_->figures.end() || !found->second.known) return std::nullopt;
    return found->second.info;
}

std::optional<SizeCache::Info> SizeCache::find(std::string_view path) const {
    const SizeKey key = SizeKey::of(path);
    return in(key.folder).find(key.name);
}

SizeCache::Folder SizeCache::in(std::string_view folder) const {
    return Folder(family(folder));
}

std::vector<SizeCache::Child> SizeCache::children(std::string_view path, std::size_t most) const {
    using Member = const SizeFamily::Figures::value_type*;
    const SizeFamily* known = family(path);
    if (known == nullptr) return {};
    std::vector<Member> members;
    for (const auto& member : known->figures) {
        if (member.second.known && member.second.isChild) members.push_back(&member);
    }
    const auto end = members.begin() + static_cast<std::ptrdiff_t>(std::min(most, members.size()));
    std::partial_sort(members.begin(), end, members.end(), [](Member a, Member b) {
        const auto size = [](Member member) { return member->second.info.size; };
        return size(a) != size(b) ? size(a) > size(b) : a->first < b->first;
    });
    std::vector<Child> children;
    children.reserve(std::min(most, members.size()));
    std::transform(members.begin(), end, std::back_inserter(children), [&](Member member) {
        return Child{.path = Paths::joined(std::string(path), member->first), .info = member->second.info};
    });
    return children;
}

void SizeCache::storeBelow(SizeFamily::ByFolder families) {
    families_.merge(families);  // moves what is new; what is left over meets older figures
    for (auto& [folder, family] : families) add(families_.find(folder)->second, std::move(family));
}

void SizeCache::store(std::string_view path, SizeFindings findings) {
    storeBelow(std::move(findings.families));
    const SizeKey key = SizeKey::of(path);
    Figure& figure = makeFamily(key.folder).figures.try_emplace(std::string(key.name)).first->second;
    figure.info = findings.total;
    figure.known = true;
}

SizeCache::Evicted SizeCache::forget(std::span<const std::string_view> paths) {
    Evicted forgotten;
    std::unordered_set<std::string_view> above;
    auto near = families_.begin();
    for (auto path = paths.begin(); path != paths.end();) {
        const std::string_view folder = SizeKey::of(*path).folder;
        const auto siblings = families_.find(folder);
        for (; path != paths.end() && SizeKey::of(*path).folder == folder; ++path) {
            if (siblings != families_.end()) {
                auto& figures = siblings->second.figures;
                const auto own = figures.find(SizeKey::of(*path).name);
                if (own != figures.end()) forgotten.figures.push_back(figures.extract(own));
            }
            forgetBelow(*path, near, forgotten);
        }
        for (std::string_view each = folder; above.insert(each).second; each = SizeKey::of(each).folder)
            markUnknown(each);
    }
    return forgotten;
}

/// All families below a path. `near` is where the last search ended: where the paths come in their order and
/// nothing is known below them, there is nothing to search.
void SizeCache::forgetBelow(std::string_view path, SizeFamily::ByFolder::iterator& near, Evicted& forgotten) {
    const auto begins = [](SizeFamily::ByFolder::iterator at, std::string_view with) {
        return at->first.starts_with(with);
    };
    for (int steps = 0; steps < 4 && near != families_.end() && near->first < path; ++steps) ++near;
    const bool isBehind = near == families_.end() || near->first >= path;
    const bool isFirst = near == families_.begin() || std::prev(near)->first < path;
    if (!isBehind || !isFirst) near = families_.lower_bound(path);
    if (near == families_.end() || !begins(near, path)) return;
    if (near->first == path) forgotten.families.push_back(families_.extract(near++));
    // Between a folder and what lies below it stand those whose names go on with a lesser letter.
    const std::string below = Paths::joined(std::string(path), "");
    auto at = near != families_.end() && begins(near, below) ? near : families_.lower_bound(below);
    const bool isNext = at == near;
    while (at != families_.end() && begins(at, below)) forgotten.families.push_back(families_.extract(at++));
    if (isNext) near = at;
}

/// A folder above stays known as the sub-folder that it is; its figure does not.
void SizeCache::markUnknown(std::string_view path) {
    const SizeKey key = SizeKey::of(path);
    const auto beside = families_.find(key.folder);
    if (beside == families_.end()) return;
    const auto own = beside->second.figures.find(key.name);
    if (own != beside->second.figures.end()) own->second.known = false;
}

const SizeFamily* SizeCache::family(std::string_view folder) const {
    const auto found = families_.find(folder);
    return found == families_.end() ? nullptr : &found->second;
}

SizeFamily& SizeCache::makeFamily(std::string_view folder) {
    const auto found = families_.find(folder);
    return found != families_.end() ? found->second
                                    : families_.try_emplace(std::string(folder)).first->second;
}

}  // namespace tavrel
