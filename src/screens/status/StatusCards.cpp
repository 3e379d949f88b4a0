#include "screens/status/StatusCards.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace tavrel {

namespace {

QString toQString(const std::string& text) {
    return QString::fromStdString(text);
}

CardData dataOf(const Card& card) {
    CardData data = {
        .symbol = toQString(card.symbol),
        .title = toQString(card.title),
        .chip = toQString(card.chip),
        .value = toQString(card.value),
        .unit = toQString(card.unit),
        .footer = toQString(card.footer),
        .detail = toQString(card.detail),
        .state = static_cast<int>(card.state),
    };
    if (const auto* share = std::get_if<double>(&card.graph)) data.share = *share;
    if (const auto* history = std::get_if<std::vector<double>>(&card.graph))
        data.history = QList<double>(history->begin(), history->end());
    return data;
}

auto isOf(Card::Kind kind) {
    return [kind](const Card& card) { return card.kind == kind; };
}

}  // namespace

void StatusCards::setMonitor(Monitor* monitor) {
    if (monitor_ == monitor) return;
    if (monitor_) disconnect(monitor_, nullptr, this, nullptr);
    monitor_ = monitor;
    if (monitor_) {
        // The first watcher causes a sample, so that nothing is missed without one.
        connect(monitor_, &Monitor::sampled, this, [this] {
            if (monitor_->processWatchers() > 0) refresh();
        });
    }
    Q_EMIT monitorChanged();
    refresh();
}

/// The accessories have a signal of their own, since their rows are made anew at each.
void StatusCards::refresh() {
    cards_ = monitor_ ? statusCards(monitor_->figures(), monitor_->texts()) : std::vector<Card>();
    Q_EMIT changed();
    QVariantList accessories;
    for (const Card& card : cards_) {
        if (card.kind == Card::Kind::accessory) accessories.append(QVariant::fromValue(dataOf(card)));
    }
    if (accessories == accessories_) return;
    accessories_ = std::move(accessories);
    Q_EMIT accessoriesChanged();
}

bool StatusCards::hasBattery() const {
    return std::any_of(cards_.begin(), cards_.end(), isOf(Card::Kind::battery));
}

CardData StatusCards::card(Card::Kind kind) const {
    const auto found = std::find_if(cards_.begin(), cards_.end(), isOf(kind));
    return found == cards_.end() ? CardData() : dataOf(*found);
}

}  // namespace tavrel
