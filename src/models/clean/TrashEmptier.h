#pragma once

#include "models/clean/CleanRunner.h"

#include <QObject>
#include <cstdint>
#include <optional>

namespace tavrel {

/// Empties the Trash for a button, which asks first.
class TrashEmptier final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool working READ isWorking NOTIFY changed)
    Q_PROPERTY(bool emptied READ isEmptied NOTIFY changed)
    Q_PROPERTY(QString emptiedText READ emptiedText NOTIFY changed)

  public:
    explicit TrashEmptier(CleanRunner& runner, QObject* parent = nullptr);

    [[nodiscard]] bool isWorking() const { return working_; }
    [[nodiscard]] bool isEmptied() const { return emptied_.has_value(); }
    /// How much went; empty before.
    [[nodiscard]] QString emptiedText() const;

    /// Deletes everything in the Trash, unless that goes on already.
    Q_INVOKABLE void empty();
    /// For the next time that the button is shown.
    Q_INVOKABLE void forget();

  Q_SIGNALS:
    void changed();

  private:
    CleanRunner& runner_;
    bool working_ = false;
    std::optional<std::int64_t> emptied_;
};

}  // namespace tavrel
