#include "models/clean/CleanState.h"

#include "profiles/Profile.h"

#include <QtConcurrentRun>
#include <array>
#include <utility>

namespace tavrel {

namespace {

CleanListModel::Found findAll(const Finders& finders, CleanMode mode, const PreferenceValues& preferences,
                              Instant now) {
    return std::make_shared<const CleanListModel::Items>(finders.find(mode, preferences, now));
}

std::string action(CleanMode mode) {
    return std::string(CleanModes::action(mode));
}

}  // namespace

CleanState::CleanState(const Profile& profile, const SystemTools& tools, CleanServices services)
    : services_(std::move(services)),
      finders_(profile, tools),
      junk_(action(CleanMode::system), finder(CleanMode::system), services_),
      ai_(action(CleanMode::ai), finder(CleanMode::ai), services_),
      projects_(action(CleanMode::projects), finder(CleanMode::projects), services_),
      installers_(action(CleanMode::installers), finder(CleanMode::installers), services_),
      history_(profile.places.history(), services_.runner),
      trashEmptier_(services_.runner) {
    for (const CleanMode mode : CleanModes::allCases) {
        CleanListModel* each = list(mode);
        each->setExtraRoots(finders_.guard(mode, {}).extraRoots);
        connect(each, &CleanListModel::phaseChanged, this, &CleanState::busyChanged);
    }
}

CleanState::~CleanState() {
    scans_.waitForDone();
}

CleanListModel::Finder CleanState::finder(CleanMode mode) {
    return [this, mode] {
        return QtConcurrent::run(&scans_, findAll, finders_, mode, services_.preferences.values(),
                                 services_.clock.now());
    };
}

bool CleanState::isBusy() const {
    return junk_.isWorking() || ai_.isWorking() || projects_.isWorking() || installers_.isWorking();
}

CleanListModel* CleanState::list(CleanMode mode) {
    const std::array lists = {&junk_, &ai_, &projects_, &installers_};
    return lists.at(static_cast<std::size_t>(mode));
}

}  // namespace tavrel
