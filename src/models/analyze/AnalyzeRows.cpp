#include "models/analyze/AnalyzeRows.h"

#include "core/ByteCount.h"
#include "core/Text.h"
#include "disk/FileCount.h"
#include "models/support/PathUrl.h"
#include "models/support/Roles.h"
#include "models/support/Strings.h"

#include <algorithm>
#include <functional>
#include <utility>

#include <fmt/format.h>

namespace tavrel {

namespace {

QString nameOf(const AnalyzeEntry& entry) {
    return toQString(Text::escapedForDisplay(SizeKey::of(entry.url.native()).name));
}

}  // namespace

AnalyzeRows::AnalyzeRows(QObject* parent) : QAbstractListModel(parent) {}

AnalyzeRows::~AnalyzeRows() = default;

void AnalyzeRows::setSource(AnalyzeModel* source) {
    if (source_ == source) return;
    if (source_) source_->disconnect(this);
    source_ = source;
    if (source_) {
        connect(source_, &AnalyzeModel::entriesChanged, this, &AnalyzeRows::update);
        connect(source_, &AnalyzeModel::focusChanged, this, &AnalyzeRows::updateHighlight);
        connect(source_, &AnalyzeModel::selectionChanged, this, [this] { changed({Role::selected}); });
        connect(source_, &AnalyzeModel::refusalsChanged, this, [this] {
            changed({Role::removable, Role::reason});
        });
        connect(source_, &QObject::destroyed, this, &AnalyzeRows::reset);
    }
    reset();
    Q_EMIT sourceChanged();
}

void AnalyzeRows::sortBy(Column column) {
    const bool again = std::exchange(column_, column) == column;
    ascending_ = again ? !ascending_ : column == Column::Name;
    reorder(wanted());
    Q_EMIT sortChanged();
}

// What a row shows

int AnalyzeRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant AnalyzeRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (entry(index.row()) == nullptr) return {};
    return value(rows_[static_cast<std::size_t>(index.row())], static_cast<Role>(role));
}

QVariant AnalyzeRows::value(Id id, Role role) const {
    const AnalyzeContent& content = source_->content();
    const AnalyzeEntry& entry = content.entry(id);
    const std::string* refusal = source_->knownRefusal(id);
    switch (role) {
        case Role::name:
            return nameOf(entry);
        case Role::url:
            return PathUrl::of(entry.url);
        case Role::sizeText:
            return entry.size ? toQString(byteCount(*entry.size)) : QString();
        case Role::filesText:
            return entry.files ? toQString(FileCount::format(*entry.files)) : QString();
        case Role::share:
            return content.share(entry);
        case Role::percentText:
            return entry.size ? toQString(fmt::format("{:.0f}", content.share(entry) * 100)) : QString();
        case Role::colorIndex: {
            const auto index = content.colorIndex(content.position(id));
            return index ? static_cast<int>(*index) : -1;
        }
        case Role::isFolder:
            return entry.isFolder;
        case Role::measured:
            return entry.size.has_value();
        case Role::selected:
            return source_->isSelected(id);
        case Role::removable:
            return refusal != nullptr && refusal->empty();
        case Role::reason:
            return refusal != nullptr ? toQString(*refusal) : QString();
        case Role::lit:
            return source_->lit() == id;
        case Role::folderPath:
            return toQString(Text::escapedForDisplay(SizeKey::of(entry.url.native()).folder));
    }
    return {};
}

QHash<int, QByteArray> AnalyzeRows::roleNames() const {
    return roleNamesOf<Role>();
}

const AnalyzeEntry* AnalyzeRows::entry(int row) const {
    if (!source_ || row < 0 || row >= count()) return nullptr;
    const Id id = rows_[static_cast<std::size_t>(row)];
    // After the source has loaded another folder and before update() runs, rows have no entry.
    if (source_->contentNumber() != contentNumber_ || !source_->content().holds(id)) return nullptr;
    return &source_->content().entry(id);
}

QUrl AnalyzeRows::url(int row) const {
    const AnalyzeEntry* found = entry(row);
    return found == nullptr ? QUrl() : PathUrl::of(found->url);
}

int AnalyzeRows::rowOf(const QUrl& url) const {
    if (!source_ || source_->contentNumber() != contentNumber_) return -1;
    const auto id = idOf(url);
    const auto found = id ? std::find(rows_.begin(), rows_.end(), *id) : rows_.end();
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::optional<AnalyzeRows::Id> AnalyzeRows::idOf(const QUrl& url) const {
    return source_ ? source_->content().find(PathUrl::pathOf(url).native()) : std::nullopt;
}

const AnalyzeEntry* AnalyzeRows::entry(const QUrl& url) const {
    const auto id = idOf(url);
    return id ? &source_->content().entry(*id) : nullptr;
}

int AnalyzeRows::indexOfName(const QString& prefix, int from) const {
    const int rows = count();
    for (int step = 0; step < rows; ++step) {
        const int row = (std::max(from, 0) + step) % rows;
        const AnalyzeEntry* found = entry(row);
        if (found != nullptr && nameOf(*found).startsWith(prefix, Qt::CaseInsensitive)) return row;
    }
    return -1;
}

// What can be done with an entry. Each takes a copy: the entry may go on the way.

void AnalyzeRows::open(const QUrl& url) {
    if (const AnalyzeEntry* found = entry(url)) source_->open(AnalyzeEntry(*found));
}

void AnalyzeRows::toggle(const QUrl& url) {
    if (const AnalyzeEntry* found = entry(url)) source_->toggleSelection(AnalyzeEntry(*found));
}

void AnalyzeRows::trash(const QUrl& url) {
    const AnalyzeEntry* found = entry(url);
    if (found != nullptr && source_->canRemove(*found)) source_->trash({*found});
}

void AnalyzeRows::enter(const QUrl& url) {
    if (const AnalyzeEntry* found = entry(url)) source_->setFocus(AnalyzeFocuses::Entry{found->url.native()});
}

void AnalyzeRows::leave(const QUrl& url) {
    if (source_) source_->clearFocus(AnalyzeFocuses::Entry{PathUrl::pathOf(url).native()});
}

// What changes

AnalyzeRows::Ids AnalyzeRows::wanted() const {
    if (!source_) return {};
    const AnalyzeContent& content = source_->content();
    Ids ids;
    ids.reserve(content.entries().size());
    for (std::size_t at = 0; at < content.entries().size(); ++at) ids.push_back(content.id(at));
    if (column_ == Column::Name) {
        const auto name = [&](Id id) { return SizeKey::of((*content.paths())[id]).name; };
        std::sort(ids.begin(), ids.end(), std::greater());
        if (!content.idsFollowNames())
            std::stable_sort(ids.begin(), ids.end(), [&](Id a, Id b) { return name(a) > name(b); });
    } else if (column_ == Column::Files) {
        const auto files = [&](Id id) { return content.entry(id).files.value_or(-1); };
        std::stable_sort(ids.begin(), ids.end(), [&](Id a, Id b) { return files(a) > files(b); });
    }
    if (ascending_) std::reverse(ids.begin(), ids.end());
    return ids;
}

void AnalyzeRows::reset() {
    beginResetModel();
    contentNumber_ = source_ ? source_->contentNumber() : 0;
    rows_ = wanted();
    lit_ = source_ ? source_->lit() : std::nullopt;
    endResetModel();
    Q_EMIT countChanged();
}

void AnalyzeRows::update() {
    if (source_->contentNumber() != contentNumber_) return reset();
    removeGone();
    reorder(wanted());
    changed(
        {Role::sizeText, Role::filesText, Role::share, Role::percentText, Role::colorIndex, Role::measured});
}

/// What went goes behind the others first, so that it is removed as one.
void AnalyzeRows::removeGone() {
    if (rows_.size() == source_->content().entries().size()) return;
    Ids gathered = rows_;
    const auto gone = std::stable_partition(gathered.begin(), gathered.end(),
                                            [this](Id id) { return source_->content().holds(id); });
    const int left = static_cast<int>(gone - gathered.begin());
    reorder(std::move(gathered));
    beginRemoveRows({}, left, count() - 1);
    rows_.resize(static_cast<std::size_t>(left));
    endRemoveRows();
    Q_EMIT countChanged();
}

/// Views follow rows by persistent indexes: moves are not reported one by one.
void AnalyzeRows::reorder(Ids wanted) {
    if (rows_ == wanted) return;
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const Ids before = std::exchange(rows_, std::move(wanted));
    std::vector<int> rowOf(source_->content().idCount(), -1);
    for (std::size_t row = 0; row < rows_.size(); ++row) rowOf[rows_[row]] = static_cast<int>(row);
    const QModelIndexList old = persistentIndexList();
    QModelIndexList now;
    now.reserve(old.size());
    for (const QModelIndex& each : old)
        now.append(index(rowOf[before[static_cast<std::size_t>(each.row())]]));
    changePersistentIndexList(old, now);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void AnalyzeRows::changed(const QList<Role>& roles) {
    if (rows_.empty()) return;
    QList<int> numbers;
    for (const Role role : roles) numbers.append(static_cast<int>(role));
    Q_EMIT dataChanged(index(0), index(count() - 1), numbers);
}

void AnalyzeRows::updateHighlight() {
    for (const auto id : {std::exchange(lit_, source_->lit()), source_->lit()}) {
        if (id) changedAt(*id, Role::lit);
    }
}

void AnalyzeRows::changedAt(Id id, Role role) {
    const auto found = std::find(rows_.begin(), rows_.end(), id);
    if (found == rows_.end()) return;
    const QModelIndex at = index(static_cast<int>(found - rows_.begin()));
    Q_EMIT dataChanged(at, at, {static_cast<int>(role)});
}

}  // namespace tavrel
