#include "cleaning/HistoryModel.h"

#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/Phrase.h"

#include <QStringList>
#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

/// The paths as they stand in the record, made fit to be read, one a line.
QString shownPaths(const History::Entry& entry) {
    QStringList paths;
    paths.reserve(static_cast<qsizetype>(entry.paths.size()));
    for (const std::string& path : entry.paths) {
        paths.append(QString::fromStdString(Text::shown(Text::fromExact(path))));
    }
    return paths.join(QLatin1Char('\n'));
}

}  // namespace

HistoryModel::HistoryModel(std::filesystem::path file, QObject* parent)
    : QAbstractListModel(parent), file_(std::move(file)) {}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const History::Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (static_cast<Role>(role)) {
        case Role::date:
            return QString::fromStdString(dateAndTime(entry.date));
        case Role::action:
            return QString::fromStdString(Text::shown(entry.action));
        case Role::countText:
            return QString::fromStdString(counted(
                "{} item", "{} items", static_cast<unsigned long>(std::max<std::int64_t>(entry.count, 0))));
        case Role::size:
            return QString::fromStdString(byteCount(entry.bytes));
        case Role::paths:
            return shownPaths(entry);
    }
    return {};
}

QHash<int, QByteArray> HistoryModel::roleNames() const {
    return {
        {static_cast<int>(Role::date), "date"},           {static_cast<int>(Role::action), "action"},
        {static_cast<int>(Role::countText), "countText"}, {static_cast<int>(Role::size), "size"},
        {static_cast<int>(Role::paths), "paths"},
    };
}

void HistoryModel::load() {
    show(History::load(file_).entries);
}

void HistoryModel::clear() {
    History::clear(file_);
    show({});
}

void HistoryModel::show(std::vector<History::Entry> entries) {
    beginResetModel();
    entries_ = std::move(entries);
    endResetModel();
    Q_EMIT countChanged();
}

}  // namespace tavrel
