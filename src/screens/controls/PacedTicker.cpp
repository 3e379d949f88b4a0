#include "screens/controls/PacedTicker.h"

#include <chrono>
#include <cmath>

namespace tavrel {

PacedTicker::PacedTicker(PacedSchedule schedule, QObject* parent) : QObject(parent), schedule_(schedule) {
    schedule_.isPaused = true;
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] {
        reschedule();
        Q_EMIT tick();
    });
}

double PacedTicker::now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

void PacedTicker::setRunning(bool running) {
    if (schedule_.isPaused == !running) return;
    schedule_.isPaused = !running;
    reschedule();
}

void PacedTicker::reschedule() {
    const double time = now();
    const auto next = schedule_.next(time);
    if (!next) return timer_.stop();
    timer_.start(std::chrono::milliseconds(static_cast<int>(std::ceil((*next - time) * 1000))));
}

}  // namespace tavrel
