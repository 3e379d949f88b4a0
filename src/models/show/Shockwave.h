#pragma once

#include "core/Instant.h"

#include <QObject>
#include <optional>

namespace tavrel {

/// The latest wave that ran out from the hole. One is shared by all scenes.
class Shockwave : public QObject {
    Q_OBJECT
    Q_PROPERTY(double strength READ strength NOTIFY strengthChanged)

  public:
    using QObject::QObject;

    /// Nothing before the first wave.
    [[nodiscard]] std::optional<Instant> start() const { return start_; }
    /// From 0 to 1.
    [[nodiscard]] double strength() const { return strength_; }

    /// A new wave takes the place of the one before.
    void begin(double strength, Instant now);

  Q_SIGNALS:
    void strengthChanged();
    void startChanged();

  private:
    std::optional<Instant> start_;
    double strength_ = 1.0;
};

}  // namespace tavrel
