#include "models/clean/HistoryModel.h"

#include "cleaning/CleanTexts.h"
#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/Paths.h"
#include "core/Phrase.h"

#include <QCoroFuture>
#include <QPointer>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace tavrel {

namespace {

/// The paths as they stand in the record, made fit to be read, one a line.
QString shownPaths(const Restorer::Run& run) {
    std::set<std::filesystem::path> waiting;
    for (const Restorer::Item& item : run.items) {
        if (item.present) waiting.insert(item.path);
    }
    QStringList paths;
    paths.reserve(static_cast<qsizetype>(run.entry.paths.size()));
    for (const std::string& text : run.entry.paths) {
        const std::string path = Text::fromExact(text);
        const std::string shown = Text::shown(path);
        const bool waits = waiting.contains(Paths::standardized(path));
        paths.append(QString::fromStdString(waits ? phrase("{} · in the Trash", shown) : shown));
    }
    return paths.join(QLatin1Char('\n'));
}

}  // namespace

HistoryModel::HistoryModel(std::filesystem::path file, CleanRunner& runner, QObject* parent)
    : QAbstractListModel(parent), file_(std::move(file)), runner_(runner) {}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(runs_.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Restorer::Run& run = runs_[static_cast<std::size_t>(index.row())];
    const History::Entry& entry = run.entry;
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
            return shownPaths(run);
        case Role::waiting:
            return static_cast<int>(run.present());
        case Role::note:
            return note(run);
    }
    return {};
}

QHash<int, QByteArray> HistoryModel::roleNames() const {
    return {
        {static_cast<int>(Role::date), "date"},           {static_cast<int>(Role::action), "action"},
        {static_cast<int>(Role::countText), "countText"}, {static_cast<int>(Role::size), "size"},
        {static_cast<int>(Role::paths), "paths"},         {static_cast<int>(Role::waiting), "waiting"},
        {static_cast<int>(Role::note), "note"},
    };
}

void HistoryModel::load() {
    restored_.clear();
    show(History::load(file_).entries);
    QCoro::connect(find(), this, [] {});
}

void HistoryModel::clear() {
    History::clear(file_);
    show({});
}

void HistoryModel::show(std::vector<History::Entry> entries) {
    beginResetModel();
    ++searches_;
    runs_.clear();
    for (auto& entry : entries) runs_.push_back({.entry = std::move(entry), .items = {}, .erased = 0});
    endResetModel();
    Q_EMIT countChanged();
}

QCoro::Task<> HistoryModel::find() {
    if (runs_.empty()) co_return;
    const QPointer<HistoryModel> self = this;
    const auto search = ++searches_;
    std::vector<History::Entry> entries;
    std::transform(runs_.begin(), runs_.end(), std::back_inserter(entries),
                   [](const Restorer::Run& run) { return run.entry; });
    QFuture<CleanRunner::Runs> looking = runner_.findTrashed(std::move(entries));
    const CleanRunner::Runs found = co_await looking;
    if (!self || search != searches_) co_return;
    runs_ = *found;
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void HistoryModel::putBack(int row) {
    if (restoring_ || row < 0 || row >= rowCount()) return;
    const Restorer::Run& run = runs_[static_cast<std::size_t>(row)];
    std::vector<Restorer::Item> items;
    std::copy_if(run.items.begin(), run.items.end(), std::back_inserter(items),
                 [](const Restorer::Item& item) { return item.present; });
    if (!items.empty()) QCoro::connect(restore(run.entry.id, std::move(items)), this, [] {});
}

QCoro::Task<> HistoryModel::restore(std::string id, std::vector<Restorer::Item> items) {
    const QPointer<HistoryModel> self = this;
    setRestoring(true);
    QFuture<RestoreReport> work = runner_.restore(std::move(items));
    RestoreReport report = co_await work;
    if (!self) co_return;
    restored_[id] = std::move(report);
    QCoro::Task<> looking = find();
    co_await looking;
    if (self) setRestoring(false);
}

void HistoryModel::setRestoring(bool on) {
    restoring_ = on;
    Q_EMIT restoringChanged();
}

QString HistoryModel::note(const Restorer::Run& run) const {
    QStringList lines;
    const auto add = [&lines](const std::string& line) { lines.append(QString::fromStdString(line)); };
    const std::size_t gone = run.items.size() - run.present();
    if (const auto restored = restored_.find(run.entry.id); restored != restored_.end()) {
        add(CleanTexts::putBack(restored->second));
        if (!restored->second.skipped.empty()) add(CleanTexts::reasons(restored->second));
    } else if (gone > 0) {
        add(CleanTexts::notInTrash(gone));
    }
    if (run.erased > 0) add(CleanTexts::erased(run.erased));
    return lines.join(QLatin1Char('\n'));
}

}  // namespace tavrel
