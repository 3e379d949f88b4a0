#include "models/clean/ReviewRows.h"

#include "cleaning/CleanTexts.h"
#include "core/ByteCount.h"
#include "core/CheckedSum.h"
#include "core/Phrase.h"
#include "models/support/Roles.h"
#include "models/support/Strings.h"

#include <utility>

namespace tavrel {

namespace {

/// The last part of the path, or all of a command.
std::string title(const CleanItem& item) {
    const bool isSnapshot = item.rootTool && item.adminCommand() != item.url.native();
    return Text::escapedForDisplay(item.isCommand() && !isSnapshot ? item.url.native()
                                                                   : item.url.filename().native());
}

}  // namespace

ReviewRows::ReviewRows(QObject* parent) : QAbstractListModel(parent) {}

ReviewRows::~ReviewRows() = default;

void ReviewRows::setSource(CleanListModel* source) {
    if (source_ == source) return;
    if (source_) source_->disconnect(this);
    source_ = source;
    if (source_) {
        connect(source_, &CleanListModel::itemsChanged, this, &ReviewRows::rebuild);
        connect(source_, &CleanListModel::selectionChanged, this, &ReviewRows::selectionChanged);
    }
    expanded_.clear();
    rebuild();
    Q_EMIT sourceChanged();
}

int ReviewRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ReviewRows::data(const QModelIndex& index, int role) const {
    if (!source_ || !checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (static_cast<Role>(role)) {
        case Role::isHead:
            return row.isHead();
        case Role::mark:
            return static_cast<int>(markOf(row));
        case Role::expanded:
            return isExpanded(row);
        case Role::isLast:
            return row.isHead() ? !isExpanded(row) : row.item == groupOf(row).items.back();
        default:
            return row.isHead() ? valueOfHead(row, static_cast<Role>(role))
                                : valueOfItem(row, static_cast<Role>(role));
    }
}

QVariant ReviewRows::valueOfHead(const Row& row, Role role) const {
    const CleanListModel::Group& group = groupOf(row);
    const Tally& tally = tallies_[row.group];
    switch (role) {
        case Role::title:
            return toQString(CleanCategories::title(group.category));
        case Role::summary:
            return toQString(CleanCategories::summary(group.category));
        case Role::symbol:
            return toQString(std::string(CleanCategories::symbol(group.category)));
        case Role::countText:
            return toQString(counted("{} item", "{} items", group.items.size()));
        case Role::selectedText:
            return toQString(phrase("{} selected", tally.selected));
        case Role::size:
            return toQString(byteCount(tally.selectedSize));
        default:
            return {};
    }
}

QVariant ReviewRows::valueOfItem(const Row& row, Role role) const {
    const CleanItem& item = source_->items()[row.item];
    switch (role) {
        case Role::title:
            return toQString(title(item));
        case Role::summary:
            return toQString(Text::escapedForDisplay(item.note));
        case Role::size:
            return toQString(CleanTexts::size(item));
        case Role::review:
            return item.risk == Risk::review;
        case Role::permanent:
            return item.permanent;
        case Role::admin:
            return item.requiresAdmin;
        default:
            return {};
    }
}

QHash<int, QByteArray> ReviewRows::roleNames() const {
    return roleNamesOf<Role>();
}

void ReviewRows::toggle(int row) {
    if (!source_ || row < 0 || row >= count()) return;
    const Row& asked = rows_[static_cast<std::size_t>(row)];
    const auto& items = source_->items();
    if (!asked.isHead()) return source_->toggle({items[asked.item].id()});
    std::vector<std::string> paths;
    paths.reserve(groupOf(asked).items.size());
    for (const std::size_t item : groupOf(asked).items) paths.push_back(items[item].id());
    source_->toggle(paths);
}

void ReviewRows::toggleExpanded(int row) {
    if (!source_ || row < 0 || row >= count()) return;
    const Row head = rows_[static_cast<std::size_t>(row)];
    if (!head.isHead()) return;
    const CleanListModel::Group& group = groupOf(head);
    const int first = row + 1;
    const int items = static_cast<int>(group.items.size());
    if (expanded_.erase(group.category) > 0) {
        beginRemoveRows({}, first, row + items);
        rows_.erase(rows_.begin() + first, rows_.begin() + first + items);
        endRemoveRows();
    } else {
        expanded_.insert(group.category);
        std::vector<Row> below;
        below.reserve(group.items.size());
        for (const std::size_t item : group.items) below.push_back({head.group, item});
        beginInsertRows({}, first, row + items);
        rows_.insert(rows_.begin() + first, below.begin(), below.end());
        endInsertRows();
    }
    Q_EMIT dataChanged(index(row), index(row));
    Q_EMIT countChanged();
}

QString ReviewRows::path(int row) const {
    if (!source_ || row < 0 || row >= count()) return {};
    const Row& asked = rows_[static_cast<std::size_t>(row)];
    if (asked.isHead()) return {};
    const CleanItem& item = source_->items()[asked.item];
    return item.isCommand() ? QString() : toQString(Text::replaceInvalidUtf8(item.url.native()));
}

const CleanListModel::Group& ReviewRows::groupOf(const Row& row) const {
    return source_->grouped()[row.group];
}

bool ReviewRows::isExpanded(const Row& row) const {
    return expanded_.contains(groupOf(row).category);
}

ReviewRows::Mark ReviewRows::markOf(const Row& row) const {
    if (!row.isHead()) return source_->isSelected(source_->items()[row.item]) ? Mark::On : Mark::Off;
    const std::size_t selected = tallies_[row.group].selected;
    if (selected == 0) return Mark::Off;
    return selected == groupOf(row).items.size() ? Mark::On : Mark::Mixed;
}

void ReviewRows::rebuild() {
    beginResetModel();
    rows_.clear();
    if (source_) {
        const auto& groups = source_->grouped();
        for (std::size_t group = 0; group < groups.size(); ++group) {
            rows_.push_back({group, Row::head});
            if (!expanded_.contains(groups[group].category)) continue;
            for (const std::size_t item : groups[group].items) rows_.push_back({group, item});
        }
    }
    countSelection();
    endResetModel();
    Q_EMIT countChanged();
}

void ReviewRows::countSelection() {
    tallies_.clear();
    if (!source_) return;
    tallies_.reserve(source_->grouped().size());
    for (const CleanListModel::Group& group : source_->grouped()) {
        Tally tally;
        for (const std::size_t position : group.items) {
            const CleanItem& item = source_->items()[position];
            if (!source_->isSelected(item)) continue;
            ++tally.selected;
            tally.selectedSize = addBytes(tally.selectedSize, item.size);
        }
        tallies_.push_back(tally);
    }
}

void ReviewRows::selectionChanged() {
    countSelection();
    if (rows_.empty()) return;
    const QList<int> roles = {static_cast<int>(Role::mark), static_cast<int>(Role::selectedText),
                              static_cast<int>(Role::size)};
    Q_EMIT dataChanged(index(0), index(count() - 1), roles);
}

}  // namespace tavrel
