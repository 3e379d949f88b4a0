#pragma once

#include <QByteArray>
#include <QHash>
#include <QMetaEnum>

namespace tavrel {

/// The role names of a list model, for `roleNames()`: each value of `Role`, an enumeration with Q_ENUM, by
/// its own name.
template <typename Role>
[[nodiscard]] QHash<int, QByteArray> roleNamesOf() {
    const auto roles = QMetaEnum::fromType<Role>();
    QHash<int, QByteArray> names;
    for (int i = 0; i < roles.keyCount(); ++i) names.insert(roles.value(i), roles.key(i));
    return names;
}

}  // namespace tavrel
