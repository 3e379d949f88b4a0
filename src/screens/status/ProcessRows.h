#pragma once

#include "models/program/Preferences.h"
#include "models/status/Monitor.h"
#include "monitoring/Processes.h"

#include <QAbstractListModel>
#include <QPointer>
#include <qqmlregistration.h>
#include <vector>

namespace tavrel {

/// The processes that a monitor has sampled as a list model, those pinned in the preferences first. Empty
/// until both properties are set.
class ProcessRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::Monitor* monitor READ monitor WRITE setMonitor NOTIFY monitorChanged)
    Q_PROPERTY(
        tavrel::Preferences* preferences READ preferences WRITE setPreferences NOTIFY preferencesChanged)
    Q_PROPERTY(int sort READ sort WRITE setSort NOTIFY sortChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int explained READ explained WRITE setExplained NOTIFY explainedChanged)
    Q_PROPERTY(QString powerNote READ powerNote NOTIFY monitorChanged)

  public:
    enum Role {
        Pid = Qt::UserRole,
        Name,
        CpuText,
        MemoryText,
        PowerText,
        Pinned,
        ExplanationText,  // empty for an unknown process
    };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] Monitor* monitor() const { return monitor_; }
    void setMonitor(Monitor* monitor);
    [[nodiscard]] Preferences* preferences() const { return preferences_; }
    void setPreferences(Preferences* preferences);
    /// A case of `ProcessSort`.
    [[nodiscard]] int sort() const { return static_cast<int>(sort_); }
    void setSort(int sort);
    [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
    /// The row whose explanation is open, -1 for none. It follows its process, and closes when that is gone.
    [[nodiscard]] int explained() const { return explained_; }
    void setExplained(int row);
    /// What the last figure of a row is.
    [[nodiscard]] QString powerNote() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  Q_SIGNALS:
    void monitorChanged();
    void preferencesChanged();
    void sortChanged();
    void countChanged();
    void explainedChanged();

  private:
    void refresh();

    QPointer<Monitor> monitor_;
    QPointer<Preferences> preferences_;
    ProcessSort sort_ = ProcessSort::cpu;
    std::vector<ProcessInfo> rows_;
    int explained_ = -1;
};

}  // namespace tavrel
