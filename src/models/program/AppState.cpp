#include "models/program/AppState.h"

#include "core/Permissions.h"

#include <array>
#include <thread>
#include <utility>

namespace tavrel {

namespace {

bool canSeeEverything(const Profile& profile) {
    return Permissions::hasFullDiskAccess(profile.places.home(), profile.fullDiskAccessProbes);
}

std::string action(CleanMode mode) {
    return std::string(CleanModes::action(mode));
}

/// The case at `index`, or nothing where there is none.
template <typename Enum, std::size_t N>
std::optional<Enum> caseAt(const std::array<Enum, N>& cases, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= N) return std::nullopt;
    return cases.at(static_cast<std::size_t>(index));
}

std::size_t parallelWalks() {
    return SizeService::parallelWalks(std::thread::hardware_concurrency());
}

std::vector<DiskWork::PlaceFinder> placeFinders(const Profile& profile) {
    return {[places = profile.places, offered = profile.explorerPlaces] {
                return ExplorerPlaces::folders(places, offered);
            },
            [places = profile.places, parents = profile.volumeFolders] {
                return ExplorerPlaces::volumes(places, parents);
            }};
}

constexpr std::array allAppsModes = {AppsMode::uninstall, AppsMode::updates, AppsMode::startup};

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
      hasFullDiskAccess_(canSeeEverything(services_.profile)),
      junk_(action(CleanMode::system), finder(CleanMode::system), services_.clean),
      ai_(action(CleanMode::ai), finder(CleanMode::ai), services_.clean),
      projects_(action(CleanMode::projects), finder(CleanMode::projects), services_.clean),
      installers_(action(CleanMode::installers), finder(CleanMode::installers), services_.clean),
      history_(services_.profile.places.history(), services_.clean.runner),
      loginItem_(services_.launchAtLogin),
      trashEmptier_(services_.clean.runner),
      diskWork_(services_.profile.packages),
      sizes_(diskWork_, services_.clean.clock, parallelWalks()),
      analyze_({
          .places = services_.profile.places,
          .clock = services_.clean.clock,
          .preferences = services_.clean.preferences,
          .sizes = sizes_,
          .work = diskWork_,
          .runner = services_.clean.runner,
          .safetyGuard = [this] { return services_.clean.safetyGuard({}); },
      }),
      places_(placeFinders(services_.profile), diskWork_) {
    folderRows_.setSource(&analyze_);
    const Finders finders(services_.profile, *services_.tools);
    for (const CleanMode mode : CleanModes::allCases) {
        CleanListModel* list = cleanList(mode);
        list->setExtraRoots(finders.guard(mode, {}).extraRoots);
        connect(list, &CleanListModel::phaseChanged, this, &AppState::busyChanged);
    }
    connect(&analyze_, &AnalyzeModel::removalChanged, this, &AppState::busyChanged);
}

AppState::~AppState() = default;

CleanListModel::Finder AppState::finder(CleanMode mode) {
    return [this, mode](auto done) {
        auto scan = [profile = services_.profile, tools = services_.tools, mode,
                     preferences = preferences()->values(),
                     now = services_.clean.clock.now()]() -> CleanListModel::Found {
            const Finders finders(profile, *tools);
            return std::make_shared<const CleanListModel::Items>(finders.find(mode, preferences, now));
        };
        scans_.run(std::move(scan), std::move(done));
    };
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

bool AppState::isBusy(AppTab tab) const {
    if (tab == AppTab::analyze) return analyze_.isRemoving();
    if (tab != AppTab::clean) return false;
    return junk_.isWorking() || ai_.isWorking() || projects_.isWorking() || installers_.isWorking();
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

CleanListModel* AppState::cleanList(CleanMode mode) {
    const std::array lists = {&junk_, &ai_, &projects_, &installers_};
    return lists.at(static_cast<std::size_t>(mode));
}

}  // namespace tavrel
