#pragma once

#include "cleaning/History.h"
#include "models/clean/CleanRunner.h"

#include <QAbstractListModel>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tavrel {

/// The record of the real cleans, newest first, as the history sheet shows it: read when the sheet opens.
/// What of them waits in the Trash is looked up in the background and shown later; it can be put back, one
/// run at a time.
class HistoryModel final : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool restoring READ isRestoring NOTIFY restoringChanged)

  public:
    /// `waiting` is how many things of the run are in the Trash; `note` says that the others were deleted,
    /// or how many were put back.
    enum class Role { date = Qt::UserRole, action, countText, size, paths, waiting, note };
    Q_ENUM(Role)

    /// `runner` is borrowed.
    HistoryModel(std::filesystem::path file, CleanRunner& runner, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return rowCount(); }
    [[nodiscard]] bool isRestoring() const { return restoring_; }

    /// Reads the file anew.
    Q_INVOKABLE void load();
    /// Removes the file and shows nothing.
    Q_INVOKABLE void clear();
    /// Puts back what waits of the run in that row, unless a run is being put back already.
    Q_INVOKABLE void putBack(int row);

  Q_SIGNALS:
    void countChanged();
    void restoringChanged();

  private:
    void show(std::vector<History::Entry> entries);
    /// Looks up what waits, and calls `then` after it.
    void find(std::function<void()> then);
    void setRestoring(bool on);
    [[nodiscard]] QString note(const Restorer::Run& run) const;

    std::filesystem::path file_;
    CleanRunner& runner_;
    Restorer::Runs runs_;
    std::map<std::string, RestoreReport> restored_;  // by the id of the run
    std::uint64_t searches_ = 0;                     // the last one counts
    bool restoring_ = false;                         // until what it put back was looked up
};

}  // namespace tavrel
