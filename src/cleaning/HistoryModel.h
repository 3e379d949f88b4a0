#pragma once

#include "cleaning/History.h"

#include <QAbstractListModel>
#include <filesystem>
#include <vector>

namespace tavrel {

/// The record of the real cleans, newest first, as the history sheet shows it: read when the sheet opens.
class HistoryModel final : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

  public:
    enum class Role { date = Qt::UserRole, action, countText, size, paths };

    explicit HistoryModel(std::filesystem::path file, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return rowCount(); }

    /// Reads the file anew.
    Q_INVOKABLE void load();
    /// Removes the file and shows nothing.
    Q_INVOKABLE void clear();

  Q_SIGNALS:
    void countChanged();

  private:
    void show(std::vector<History::Entry> entries);

    std::filesystem::path file_;
    std::vector<History::Entry> entries_;
};

}  // namespace tavrel
