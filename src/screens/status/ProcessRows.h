#pragma once

#include "models/program/AppState.h"
#include "models/status/Monitor.h"
#include "monitoring/Processes.h"

#include <QAbstractListModel>
#include <QPointer>
#include <qqmlregistration.h>
#include <vector>

namespace tavrel {

/// The processes to show, pinned ones first, as the monitor samples them.
class ProcessRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::AppState* app READ app WRITE setApp NOTIFY appChanged)
    Q_PROPERTY(int sort READ sort WRITE setSort NOTIFY sortChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int explained READ explained WRITE setExplained NOTIFY explainedChanged)
    Q_PROPERTY(QString powerNote READ powerNote NOTIFY appChanged)

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

    [[nodiscard]] AppState* app() const { return app_; }
    void setApp(AppState* app);
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
    void appChanged();
    void sortChanged();
    void countChanged();
    void explainedChanged();

  private:
    void refresh();

    QPointer<AppState> app_;
    ProcessSort sort_ = ProcessSort::cpu;
    std::vector<ProcessInfo> rows_;
    int explained_ = -1;
};

}  // namespace tavrel
