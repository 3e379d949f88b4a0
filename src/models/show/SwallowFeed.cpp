#include "models/show/SwallowFeed.h"

#include "core/CheckedSum.h"
#include "models/support/Clock.h"
#include "presentation/FallTime.h"

#include <QPointer>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace tavrel {
namespace {

constexpr std::int64_t bytesOfPicture = 50'000'000;

std::vector<std::int64_t> sizesOf(const std::vector<CleanItem>& items) {
    std::vector<std::int64_t> sizes;
    sizes.reserve(items.size());
    for (const CleanItem& item : items) sizes.push_back(item.size);
    return sizes;
}

template <typename Iterator>
std::int64_t sum(Iterator first, Iterator end) {
    return std::accumulate(first, end, std::int64_t{0}, addBytes);
}

}  // namespace

SwallowFeed::SwallowFeed(const std::vector<CleanItem>& items, OwnIcons ownIcons, FileIcons& icons,
                         Clock& clock, QObject* parent)
    : QObject(parent),
      clock_(clock),
      sizes_(sizesOf(items)),
      total_(sum(sizes_.begin(), sizes_.end())),
      iconFor_(ItemIcons(items, ownIcons, icons)) {
    remaining_ = total_;
}

SwallowFeed::SwallowFeed(std::vector<QImage> icons, Clock& clock, QObject* parent)
    : QObject(parent),
      clock_(clock),
      sizes_(icons.size(), bytesOfPicture),
      total_(sum(sizes_.begin(), sizes_.end())),
      iconFor_([icons = std::move(icons)](std::size_t first, std::size_t /*end*/) { return icons[first]; }) {}

void SwallowFeed::reached(double fraction) {
    if (!(fraction > 0)) return;
    const auto count = static_cast<double>(sizes_.size());
    const auto items = static_cast<std::int64_t>(std::round(std::min(fraction, 1.0) * count));
    reached_ = std::max(reached_, items);
}

QCoro::Task<> SwallowFeed::run(double minimum) {
    const QPointer<SwallowFeed> self(this);
    Clock& clock = clock_;
    const Instant start = clock.uptime();
    while (pending() > 0 || !finished()) {
        double pause = FeedPlan::idleInterval;
        if (pending() > 0) {
            const double elapsed = inSeconds(clock.uptime() - start);
            releaseWave(FeedPlan::waveCount(pending(), FeedPlan::divisor(work_, minimum, elapsed)));
            pause = FeedPlan::waveInterval;
        }
        co_await clock.sleep(seconds(pause));
        if (!self) co_return;
    }
    // A run of few items would be over before it was seen.
    const Instant end = shown_ > 0 ? std::max(lastFallen(), start + seconds(minimum)) : start;
    if (end > clock.uptime()) {
        co_await clock.sleep(end - clock.uptime());
        if (!self) co_return;
    }
    setRemaining(0);
}

void SwallowFeed::releaseWave(std::int64_t count) {
    const auto first = static_cast<std::size_t>(shown_);
    shown_ += count;
    const auto end = static_cast<std::size_t>(shown_);
    const std::int64_t bytes = sum(sizes_.begin() + static_cast<std::ptrdiff_t>(first),
                                   sizes_.begin() + static_cast<std::ptrdiff_t>(end));
    const Instant now = clock_.uptime();
    events_.push_back({.id = shown_,
                       .icon = iconFor_(first, end),
                       .bytes = bytes,
                       .start = clock_.now(),
                       .fallen = now + seconds(fallTime(bytes)),
                       .angle = FeedPlan::angle(released_)});
    ++released_;

    const double share = FeedPlan::share(bytes, total_, count, static_cast<std::int64_t>(sizes_.size()));
    clock_.after(seconds(fallTime(bytes) * FeedPlan::arrival),
                 [self = QPointer<SwallowFeed>(this), bytes, share] {
                     if (self) self->land(bytes, share);
                 });
    prune(now);
    Q_EMIT eventsChanged();
}

void SwallowFeed::prune(Instant now) {
    std::erase_if(events_,
                  [now](const Event& event) { return event.fallen + seconds(FeedPlan::lingering) < now; });
}

void SwallowFeed::land(std::int64_t bytes, double share) {
    swallowed_ = std::min(swallowed_ + share, 1.0);
    Q_EMIT swallowedChanged();
    // A heavy icon may still be on its way when the run ends with a light one; the counter stays on zero
    // then.
    setRemaining(std::max<std::int64_t>(remaining_ - bytes, 0));
}

Instant SwallowFeed::lastFallen() const {
    return events_.empty() ? distantPast : events_.back().fallen;
}

void SwallowFeed::setRemaining(std::int64_t bytes) {
    if (remaining_ == bytes) return;
    remaining_ = bytes;
    Q_EMIT remainingChanged();
}

}  // namespace tavrel
