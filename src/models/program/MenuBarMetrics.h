#pragma once

#include "models/program/Preferences.h"

#include <QAbstractListModel>

namespace tavrel {

/// The figures that the menu bar can show, each with whether it does: the rows of a settings page.
class MenuBarMetrics : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(
        tavrel::Preferences* preferences READ preferences WRITE setPreferences NOTIFY preferencesChanged)

  public:
    enum class Role { title = Qt::UserRole, symbol, shown };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] Preferences* preferences() const { return preferences_; }
    void setPreferences(Preferences* preferences);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE void toggle(int row);

  Q_SIGNALS:
    void preferencesChanged();

  private:
    Preferences* preferences_ = nullptr;
};

}  // namespace tavrel
