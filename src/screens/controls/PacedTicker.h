#pragma once

#include "presentation/PacedSchedule.h"

#include <QObject>
#include <QTimer>

namespace tavrel {

/// Emits `tick` when the next frame of an animation is due, by a schedule. Costs nothing while it does not
/// run.
class PacedTicker final : public QObject {
    Q_OBJECT

  public:
    explicit PacedTicker(PacedSchedule schedule, QObject* parent = nullptr);

    void setRunning(bool running);
    /// Seconds since the epoch.
    [[nodiscard]] static double now();

  Q_SIGNALS:
    void tick();

  private:
    void reschedule();

    PacedSchedule schedule_;
    QTimer timer_;
};

}  // namespace tavrel
