#pragma once

#include "core/Instant.h"
#include "models/show/FeedPlan.h"
#include "models/show/ItemIcons.h"

#include <QCoroTask>
#include <QImage>
#include <QObject>
#include <cstdint>
#include <functional>
#include <vector>

namespace tavrel {

class Clock;

/// Paces the show while something is removed: icons fall in even waves, whatever the pace of the work, the
/// show lasts a minimum time, and the counter lands on zero with the last icon. The work only reports how far
/// it got. For the main thread; may be destroyed at any time, a run included.
class SwallowFeed final : public QObject {
    Q_OBJECT
    Q_PROPERTY(qint64 remaining READ remaining NOTIFY remainingChanged)
    Q_PROPERTY(double swallowed READ swallowed NOTIFY swallowedChanged)

  public:
    /// One icon that falls, for a whole batch of items.
    struct Event {
        std::int64_t id = 0;  // how many items were released with it and before it
        QImage icon;
        std::int64_t bytes = 0;
        Instant start;     // for drawing
        Instant fallen;    // of the clock that only goes forward
        double angle = 0;  // radians; where it comes from
    };

    /// For items that are removed. `icons` and `clock` outlive the feed and its run.
    SwallowFeed(const std::vector<CleanItem>& items, OwnIcons ownIcons, FileIcons& icons, Clock& clock,
                QObject* parent = nullptr);
    /// For a fixed set of pictures that all weigh the same, and no bytes to count.
    SwallowFeed(std::vector<QImage> icons, Clock& clock, QObject* parent = nullptr);

    /// What is in flight, and what landed a moment ago, in the order of release.
    [[nodiscard]] const std::vector<Event>& events() const { return events_; }
    /// Bytes still to fall, never below zero once the run began.
    [[nodiscard]] std::int64_t remaining() const { return remaining_; }
    /// How far the show has gone, from 0 to 1.
    [[nodiscard]] double swallowed() const { return swallowed_; }
    [[nodiscard]] std::int64_t reached() const { return reached_; }
    [[nodiscard]] bool finished() const { return work_ == FeedPlan::Work::finished; }

    /// The work did this part of its items, from 0 to 1. A part below an earlier one changes nothing.
    void reached(double fraction);
    /// The work is over. What it did not reach is not shown.
    void finish() { work_ = FeedPlan::Work::finished; }

    /// The show, to be run once. Ends when the work has finished and the last icon has fallen, at the
    /// earliest about `minimum` seconds after its start where there is anything to show; or, with nothing
    /// done, soon after the feed is destroyed.
    QCoro::Task<> run(double minimum);

  Q_SIGNALS:
    void eventsChanged();
    void remainingChanged();
    void swallowedChanged();

  private:
    using IconFor = std::function<QImage(std::size_t first, std::size_t end)>;

    [[nodiscard]] std::int64_t pending() const { return reached_ - shown_; }
    void releaseWave(std::int64_t count);
    void prune(Instant now);
    void land(std::int64_t bytes, double share);
    /// When the event released last has fallen, by the clock that only goes forward, or has long fallen
    /// where there is none.
    [[nodiscard]] Instant lastFallen() const;
    void setRemaining(std::int64_t bytes);

    Clock& clock_;
    std::vector<Event> events_;
    std::int64_t remaining_ = 0;
    double swallowed_ = 0;
    std::vector<std::int64_t> sizes_;
    std::int64_t total_ = 0;  // of the sizes
    IconFor iconFor_;
    std::int64_t reached_ = 0;
    std::int64_t shown_ = 0;
    std::int64_t released_ = 0;
    FeedPlan::Work work_ = FeedPlan::Work::underWay;
};

}  // namespace tavrel
