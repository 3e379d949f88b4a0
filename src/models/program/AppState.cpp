#include "models/program/AppState.h"

#include "core/Permissions.h"
#include "models/analyze/AnalyzeState.h"
#include "models/apps/AppsState.h"
#include "models/clean/CleanState.h"
#include "models/optimize/OptimizeState.h"
#include "models/program/LoginItem.h"
#include "models/status/StatusState.h"
#include "profiles/Profile.h"

#include <array>
#include <utility>

namespace tavrel {

namespace {

bool canSeeEverything(const Profile& profile) {
    return Permissions::hasFullDiskAccess(profile.places.home(), profile.fullDiskAccessProbes);
}

template <typename Cases, typename Title>
QStringList titles(const Cases& cases, Title title) {
    QStringList list;
    for (const auto each : cases) list.append(QString::fromStdString(title(each)));
    return list;
}

}  // namespace

AppState::AppState(AppServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      hasFullDiskAccess_(canSeeEverything(services_.profile)) {
    makeOnce(clean_, services_.profile, services_.tools, services_.clean);
    loginItem_ = std::make_unique<LoginItem>(services_.launchAtLogin);
}

AppState::~AppState() = default;

template <typename State, typename... Arguments>
State* AppState::makeOnce(std::unique_ptr<State>& state, Arguments&&... arguments) {
    if (!state) {
        state = std::make_unique<State>(std::forward<Arguments>(arguments)...);
        connect(state.get(), &TabState::busyChanged, this, &AppState::busyChanged);
    }
    return state.get();
}

AppsState* AppState::apps() {
    return makeOnce(apps_);
}

OptimizeState* AppState::optimize() {
    return makeOnce(optimize_);
}

AnalyzeState* AppState::analyze() {
    return makeOnce(analyze_, services_.profile, services_.clean, services_.monitor);
}

StatusState* AppState::status() {
    return makeOnce(status_, services_.monitor);
}

bool AppState::asksForFullDiskAccess() const {
    return !services_.profile.fullDiskAccessProbes.empty();
}

QStringList AppState::tabTitles() const {
    return titles(allAppTabs, [](AppTab tab) { return title(tab); });
}

QStringList AppState::cleanModeTitles() const {
    return titles(CleanModes::allCases, CleanModes::title);
}

void AppState::chooseTab(int index) {
    const auto wanted = caseAt(allAppTabs, index);
    if (!wanted) return;
    setShowSettings(false);
    if (std::exchange(tab_, *wanted) != *wanted) Q_EMIT tabChanged();
}

void AppState::chooseCleanMode(int index) {
    const auto wanted = caseAt(CleanModes::allCases, index);
    if (wanted && std::exchange(cleanMode_, *wanted) != *wanted) Q_EMIT cleanModeChanged();
}

void AppState::chooseAppsMode(int index) {
    const auto wanted = caseAt(allAppsModes, index);
    if (wanted && std::exchange(appsMode_, *wanted) != *wanted) Q_EMIT appsModeChanged();
}

void AppState::setShowHistory(bool on) {
    if (std::exchange(showHistory_, on) != on) Q_EMIT showHistoryChanged();
}

void AppState::setShowSettings(bool on) {
    if (std::exchange(showSettings_, on) != on) Q_EMIT showSettingsChanged();
}

void AppState::setReduceMotion(bool on) {
    if (std::exchange(reduceMotion_, on) != on) Q_EMIT reduceMotionChanged();
}

const TabState* AppState::made(AppTab tab) const {
    switch (tab) {
        case AppTab::clean:
            return clean_.get();
        case AppTab::apps:
            return apps_.get();
        case AppTab::optimize:
            return optimize_.get();
        case AppTab::analyze:
            return analyze_.get();
        case AppTab::status:
            return status_.get();
    }
    return nullptr;
}

bool AppState::isBusy(AppTab tab) const {
    const TabState* state = made(tab);
    return state != nullptr && state->isBusy();
}

QList<bool> AppState::busy() const {
    QList<bool> tabs;
    for (const AppTab tab : allAppTabs) tabs.append(isBusy(tab));
    return tabs;
}

void AppState::readFullDiskAccess() {
    const bool now = canSeeEverything(services_.profile);
    if (std::exchange(hasFullDiskAccess_, now) != now) Q_EMIT hasFullDiskAccessChanged();
}

}  // namespace tavrel
