#include "models/clean/CleanState.h"

#include "engine/Finders.h"

#include <array>
#include <utility>

namespace tavrel {

namespace {

std::string action(CleanMode mode) {
    return std::string(CleanModes::action(mode));
}

}  // namespace

CleanState::CleanState(const Profile& profile, std::shared_ptr<const SystemTools> tools,
                       CleanServices services)
    : profile_(profile),
      tools_(std::move(tools)),
      services_(std::move(services)),
      junk_(action(CleanMode::system), finder(CleanMode::system), services_),
      ai_(action(CleanMode::ai), finder(CleanMode::ai), services_),
      projects_(action(CleanMode::projects), finder(CleanMode::projects), services_),
      installers_(action(CleanMode::installers), finder(CleanMode::installers), services_),
      history_(profile.places.history(), services_.runner),
      trashEmptier_(services_.runner) {
    const Finders finders(profile_, *tools_);
    for (const CleanMode mode : CleanModes::allCases) {
        CleanListModel* each = list(mode);
        each->setExtraRoots(finders.guard(mode, {}).extraRoots);
        connect(each, &CleanListModel::phaseChanged, this, &CleanState::busyChanged);
    }
}

/// A scan owns all that it uses, so that it may be abandoned.
CleanListModel::Finder CleanState::finder(CleanMode mode) {
    return [this, mode](auto done) {
        auto scan = [profile = profile_, tools = tools_, mode, preferences = services_.preferences.values(),
                     now = services_.clock.now()]() -> CleanListModel::Found {
            const Finders finders(profile, *tools);
            return std::make_shared<const CleanListModel::Items>(finders.find(mode, preferences, now));
        };
        scans_.run(std::move(scan), std::move(done));
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
