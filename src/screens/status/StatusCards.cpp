#include "screens/status/StatusCards.h"

#include "models/program/Preferences.h"
#include "monitoring/HealthScore.h"
#include "profiles/Profile.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

CardData cardOf(const StatusTexts::MetricCard& texts) {
    return {shown(texts.title), shown(texts.value), shown(texts.unit), shown(texts.footer),
            shown(texts.chip)};
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

QVariantList listOf(const std::vector<Sensors::Accessory>& accessories) {
    QVariantList list;
    for (const Sensors::Accessory& accessory : accessories) {
        list.append(
            QVariantMap{{QStringLiteral("name"), shown(accessory.name)},
                        {QStringLiteral("symbol"), shown(StatusTexts::accessorySymbol(accessory.name))},
                        {QStringLiteral("percent"), static_cast<int>(accessory.percent)}});
    }
    return list;
}

}  // namespace

void StatusCards::setApp(AppState* app) {
    if (app_ == app) return;
    if (app_) disconnect(app_->monitor(), nullptr, this, nullptr);
    app_ = app;
    if (app_) {
        // The first to watch again is given fresh figures, so that nothing is missed meanwhile.
        connect(app_->monitor(), &Monitor::sampled, this, [this] {
            if (app_->monitor()->processWatchers() > 0) refresh();
        });
    }
    Q_EMIT appChanged();
    refresh();
}

/// The accessories are only said to have changed where they have, since their rows are made anew then.
void StatusCards::refresh() {
    Q_EMIT changed();
    QVariantList accessories = listOf(figures().accessories);
    if (accessories == accessories_) return;
    accessories_ = std::move(accessories);
    Q_EMIT accessoriesChanged();
}

const MachineFigures& StatusCards::figures() const {
    static const MachineFigures nothing;
    return app_ ? app_->monitor()->figures() : nothing;
}

MachineWords StatusCards::words() const {
    return app_ ? app_->profile().words : MachineWords{};
}

int StatusCards::health() const {
    return healthScore(figures());
}

StatusCards::Grade StatusCards::grade() const {
    switch (healthGrade(health())) {
        case HealthGrade::excellent:
            return Grade::Excellent;
        case HealthGrade::good:
            return Grade::Good;
        case HealthGrade::needsCare:
            break;
    }
    return Grade::NeedsCare;
}

QString StatusCards::gradeText() const {
    return shown(StatusTexts::grade(health()));
}

QString StatusCards::machine() const {
    return shown(StatusTexts::machine(figures()));
}

CardData StatusCards::cpu() const {
    return cardOf(StatusTexts::cpu(figures()), figures().cpuHistory);
}

CardData StatusCards::gpu() const {
    return cardOf(StatusTexts::gpu(figures(), words()), figures().gpuHistory);
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
    CardData card = {.title = tr("Battery"),
                     .value = QString::number(battery.percent),
                     .unit = shown(StatusTexts::batteryState(battery)),
                     .footer = shown(StatusTexts::batteryWear(battery))};
    card.share = static_cast<double>(battery.percent) / 100;
    return card;
}

bool StatusCards::isCharging() const {
    return hasBattery() && figures().battery->pluggedIn && figures().battery->charging;
}

StatusTexts::FanCard StatusCards::fanCard() const {
    return StatusTexts::fans(figures(), words());
}

CardData StatusCards::fans() const {
    const StatusTexts::FanCard card = fanCard();
    return {.title = shown(card.title),
            .value = shown(card.speed),
            .unit = shown(card.unit),
            .footer = shown(card.share),
            .share = fanLoad(figures().fans)};
}

QString StatusCards::fanDetail() const {
    return shown(fanCard().detail);
}

}  // namespace tavrel
