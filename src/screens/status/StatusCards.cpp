#include "screens/status/StatusCards.h"

#include "monitoring/HealthScore.h"

#include <algorithm>

namespace tavrel {

namespace {

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

CardData cardOf(const StatusTexts::MetricCard& texts) {
    return {shown(texts.title), shown(texts.value), shown(texts.unit), shown(texts.footer)};
}

CardData cardOf(const StatusTexts::MetricCard& texts, const std::vector<double>& history) {
    CardData card = cardOf(texts);
    card.history = QList<double>(history.begin(), history.end());
    return card;
}

CardData cardOf(const StatusTexts::MetricCard& texts, double share) {
    CardData card = cardOf(texts);
    card.share = share;
    return card;
}

}  // namespace

void StatusCards::setApp(AppState* app) {
    if (app_ == app) return;
    if (app_) disconnect(app_->monitor(), nullptr, this, nullptr);
    app_ = app;
    if (app_) connect(app_->monitor(), &Monitor::sampled, this, &StatusCards::changed);
    Q_EMIT appChanged();
    Q_EMIT changed();
}

const MachineFigures& StatusCards::figures() const {
    static const MachineFigures nothing;
    return app_ ? app_->monitor()->figures() : nothing;
}

int StatusCards::health() const {
    return healthScore(figures());
}

QString StatusCards::grade() const {
    return shown(StatusTexts::grade(health()));
}

QString StatusCards::machine() const {
    return shown(StatusTexts::machine(figures()));
}

CardData StatusCards::cpu() const {
    return cardOf(StatusTexts::cpu(figures()), figures().cpuHistory);
}

CardData StatusCards::gpu() const {
    return cardOf(StatusTexts::gpu(figures()), figures().gpuHistory);
}

CardData StatusCards::memory() const {
    return cardOf(StatusTexts::memory(figures()), figures().memoryHistory);
}

CardData StatusCards::disk() const {
    return cardOf(StatusTexts::disk(figures()), usedShare(figures().disk));
}

bool StatusCards::diskNearlyFull() const {
    return StatusTexts::isDiskNearlyFull(figures());
}

/// Each value beside the highest of them.
CardData StatusCards::network() const {
    CardData card = cardOf(StatusTexts::network(figures()), figures().networkHistory);
    double peak = 1;
    for (const double value : card.history) peak = std::max(peak, value);
    for (double& value : card.history) value /= peak;
    return card;
}

CardData StatusCards::thermal() const {
    return cardOf(StatusTexts::thermal(figures()), StatusTexts::heatShare(figures()));
}

bool StatusCards::hasBattery() const {
    return figures().battery.has_value();
}

CardData StatusCards::battery() const {
    if (!hasBattery()) return {};
    const Sensors::Battery& battery = *figures().battery;
    CardData card = {tr("Battery"), QString::number(battery.percent),
                     shown(StatusTexts::batteryState(battery)), shown(StatusTexts::batteryWear(battery))};
    card.share = static_cast<double>(battery.percent) / 100;
    return card;
}

QVariantList StatusCards::accessories() const {
    QVariantList list;
    for (const Sensors::Accessory& accessory : figures().accessories) {
        list.append(
            QVariantMap{{QStringLiteral("name"), shown(accessory.name)},
                        {QStringLiteral("symbol"), shown(StatusTexts::accessorySymbol(accessory.name))},
                        {QStringLiteral("percent"), static_cast<int>(accessory.percent)}});
    }
    return list;
}

StatusTexts::FanCard StatusCards::fanCard() const {
    return StatusTexts::fans(figures(), app_ ? app_->profile().fanWords : StatusTexts::FanWords{"", ""});
}

CardData StatusCards::fans() const {
    const StatusTexts::FanCard card = fanCard();
    CardData data = {shown(card.title), shown(card.speed), shown(card.unit), shown(card.share)};
    data.share = fanLoad(figures().fans);
    return data;
}

QString StatusCards::fanDetail() const {
    return shown(fanCard().detail);
}

}  // namespace tavrel
