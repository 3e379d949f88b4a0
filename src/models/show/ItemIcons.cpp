#include "models/show/ItemIcons.h"

#include "models/show/FileIcons.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace tavrel {
namespace {

std::vector<QImage> ownImages(std::span<const CleanItem> items, FileIcons& icons) {
    std::vector<QImage> images;
    for (const CleanItem& item : items) {
        std::optional<QImage> own = icons.ownIcon(item.url);
        images.push_back(own ? *std::move(own) : icons.icon(item));
    }
    return images;
}

/// The first item of an application shows the application, the others show themselves.
std::vector<QImage> imagesByOwner(std::span<const CleanItem> items, FileIcons& icons) {
    std::set<std::string> seen;
    std::vector<QImage> images;
    for (const CleanItem& item : items) {
        FileIcons::Owner owner = icons.owner(item.url);
        const bool introduces = !owner.isType() && seen.insert(owner.key).second;
        std::optional<QImage> own = introduces ? std::nullopt : icons.ownIcon(item.url);
        images.push_back(own ? *std::move(own) : std::move(owner.image));
    }
    return images;
}

}  // namespace

ItemIcons::ItemIcons(std::vector<CleanItem> items, OwnIcons ownIcons, FileIcons& icons)
    : items_(std::move(items)), icons_(&icons) {
    const auto looked = std::span<const CleanItem>(items_).first(std::min(items_.size(), mostLookups));
    images_ = ownIcons == OwnIcons::yes ? ownImages(looked, icons) : imagesByOwner(looked, icons);
}

QImage ItemIcons::operator()(std::size_t first, std::size_t end) const {
    const auto begin = items_.begin();
    const auto largest =
        std::max_element(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end),
                         [](const CleanItem& one, const CleanItem& other) { return one.size < other.size; });
    const auto index = static_cast<std::size_t>(largest - begin);
    return index < images_.size() ? images_[index] : icons_->icon(*largest);
}

}  // namespace tavrel
