#pragma once

#include "cleaning/CleanItem.h"

#include <QImage>
#include <cstddef>
#include <span>
#include <vector>

namespace tavrel {

class FileIcons;

/// Whether items are things that have icons of their own, as applications do, or files that are better
/// distinguished by the application that they belong to.
enum class OwnIcons { no, yes };

/// Which picture stands for a batch of items. Looks up the icons of the first 300 items when made.
class ItemIcons {
  public:
    static constexpr std::size_t mostLookups = 300;

    /// `icons` outlives this object.
    ItemIcons(std::vector<CleanItem> items, OwnIcons ownIcons, FileIcons& icons);

    /// That of the largest item, or of the first of the largest ones, among those from `first` up to before
    /// `end`, of which there is at least one.
    [[nodiscard]] QImage operator()(std::size_t first, std::size_t end) const;

  private:
    std::vector<CleanItem> items_;
    FileIcons* icons_;
    std::vector<QImage> images_;
};

}  // namespace tavrel
