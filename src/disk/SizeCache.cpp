#include "disk/SizeCache.h"

#include <algorithm>
#include <utility>

namespace tavrel {
namespace {

using Figure = SizeFamily::Figure;

std::string joined(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.ends_with('/')) path += '/';
    return path += name;
}

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
        return Child{.path = joined(path, member->first), .info = member->second.info};
    });
    return children;
}

void SizeCache::store(std::string_view path, SizeFindings findings) {
    families_.merge(findings.families);  // moves what is new; what is left over meets older figures
    for (auto& [folder, family] : findings.families) add(families_.find(folder)->second, std::move(family));

    const SizeKey key = SizeKey::of(path);
    Figure& figure = makeFamily(key.folder).figures.try_emplace(std::string(key.name)).first->second;
    figure.info = findings.total;
    figure.known = true;
}

void SizeCache::forget(std::string_view path) {
    if (path == "/") return clear();
    drop(path);
    for (std::string_view above = SizeKey::of(path).folder; above.size() > 1;
         above = SizeKey::of(above).folder) {
        unlearn(above);
    }
    unlearn("/");
}

/// The thing itself, and all families below it.
void SizeCache::drop(std::string_view path) {
    const SizeKey key = SizeKey::of(path);
    const auto beside = families_.find(key.folder);
    if (beside != families_.end()) {
        const auto own = beside->second.figures.find(key.name);
        if (own != beside->second.figures.end()) beside->second.figures.erase(own);
    }
    const auto first = families_.lower_bound(path);
    if (first == families_.end() || !first->first.starts_with(path)) return;
    const std::string below = std::string(path) + '/';
    const std::string beyond = std::string(path) + static_cast<char>('/' + 1);
    if (first->first == path) families_.erase(first);
    families_.erase(families_.lower_bound(below), families_.lower_bound(beyond));
}

/// A folder above stays known as the sub-folder that it is; its figure does not.
void SizeCache::unlearn(std::string_view path) {
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
