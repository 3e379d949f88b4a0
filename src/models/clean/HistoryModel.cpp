#include "models/clean/HistoryModel.h"

#include "cleaning/CleanTexts.h"
#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/Paths.h"
#include "core/Phrase.h"
#include "models/support/Roles.h"
#include "models/support/Strings.h"

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
        const std::string path = Text::decodePath(text);
        const std::string shown = Text::escapedForDisplay(path);
        const bool waits = waiting.contains(Paths::standardized(path));
        paths.append(toQString(waits ? phrase("{} · in the Trash", shown) : shown));
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
            return toQString(dateAndTime(entry.date));
        case Role::action:
            return toQString(Text::escapedForDisplay(entry.action));
        case Role::countText:
            return toQString(counted("{} item", "{} items",
                                     static_cast<unsigned long>(std::max<std::int64_t>(entry.count, 0))));
        case Role::size:
            return toQString(byteCount(entry.bytes));
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
    return roleNamesOf<Role>();
}

void HistoryModel::load() {
    restored_.clear();
    show(History::load(file_).entries);
    find([] {});
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

void HistoryModel::find(std::function<void()> then) {
    if (runs_.empty()) return then();
    std::vector<History::Entry> entries;
    std::transform(runs_.begin(), runs_.end(), std::back_inserter(entries),
                   [](const Restorer::Run& run) { return run.entry; });
    const auto found = [self = QPointer(this), search = ++searches_,
                        then = std::move(then)](const CleanRunner::Runs& runs) {
        if (!self) return;
        if (search == self->searches_) {
            self->runs_ = *runs;
            Q_EMIT self->dataChanged(self->index(0), self->index(self->rowCount() - 1));
        }
        then();
    };
    runner_.findTrashed(std::move(entries), found);
}

void HistoryModel::putBack(int row) {
    if (restoring_ || row < 0 || row >= rowCount()) return;
    const Restorer::Run& run = runs_[static_cast<std::size_t>(row)];
    std::vector<Restorer::Item> items;
    std::copy_if(run.items.begin(), run.items.end(), std::back_inserter(items),
                 [](const Restorer::Item& item) { return item.present; });
    if (items.empty()) return;
    setRestoring(true);
    runner_.restore(std::move(items), [self = QPointer(this), id = run.entry.id](RestoreReport report) {
        if (!self) return;
        self->restored_[id] = std::move(report);
        self->find([self] { self->setRestoring(false); });
    });
}

void HistoryModel::setRestoring(bool on) {
    restoring_ = on;
    Q_EMIT restoringChanged();
}

QString HistoryModel::note(const Restorer::Run& run) const {
    QStringList lines;
    const auto add = [&lines](const std::string& line) { lines.append(toQString(line)); };
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
