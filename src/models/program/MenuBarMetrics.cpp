#include "models/program/MenuBarMetrics.h"

#include "models/support/Roles.h"

#include <algorithm>

namespace tavrel {

void MenuBarMetrics::setPreferences(Preferences* preferences) {
    if (preferences_ == preferences) return;
    beginResetModel();
    if (preferences_ != nullptr) preferences_->disconnect(this);
    preferences_ = preferences;
    if (preferences_ != nullptr) {
        connect(preferences_, &Preferences::menuBarMetricsChanged, this, [this] {
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), {static_cast<int>(Role::shown)});
        });
    }
    endResetModel();
    Q_EMIT preferencesChanged();
}

int MenuBarMetrics::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || preferences_ == nullptr ? 0 : static_cast<int>(allMenuBarMetrics.size());
}

QVariant MenuBarMetrics::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const MenuBarMetric metric = allMenuBarMetrics.at(static_cast<std::size_t>(index.row()));
    switch (static_cast<Role>(role)) {
        case Role::title:
            return QString::fromStdString(title(metric));
        case Role::symbol:
            return QString::fromStdString(std::string(symbol(metric)));
        case Role::shown: {
            const auto& shown = preferences_->menuBarMetrics();
            return std::find(shown.begin(), shown.end(), metric) != shown.end();
        }
    }
    return {};
}

QHash<int, QByteArray> MenuBarMetrics::roleNames() const {
    return roleNamesOf<Role>();
}

void MenuBarMetrics::toggle(int row) {
    if (preferences_ == nullptr || row < 0 || row >= rowCount()) return;
    preferences_->toggleMetric(allMenuBarMetrics.at(static_cast<std::size_t>(row)));
}

}  // namespace tavrel
