#include "models/clean/CleanState.h"

#include "engine/Finders.h"

#include <array>
#include <filesystem>
#include <utility>
#include <vector>

namespace tavrel {

namespace {

std::string action(CleanMode mode) {
    return std::string(CleanModes::action(mode));
}

struct Scan {
    std::vector<std::filesystem::path> roots;
    CleanListModel::Found found;
};

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
    for (const CleanMode mode : CleanModes::allCases)
        connect(list(mode), &CleanListModel::phaseChanged, this, &CleanState::busyChanged);
}

/// A scan owns all that it uses, so that it may be abandoned. It also finds the roots outside the home that
/// the guard of a later clean admits: volumes are looked at in the background only.
CleanListModel::Finder CleanState::finder(CleanMode mode) {
    return [this, mode](auto done) {
        auto scan = [profile = profile_, tools = tools_, mode, preferences = services_.preferences.values(),
                     now = services_.clock.now()] {
            const Finders finders(profile, *tools);
            return Scan{
                .roots = finders.guard(mode, preferences).extraRoots,
                .found = std::make_shared<const CleanListModel::Items>(finders.find(mode, preferences, now)),
            };
        };
        scans_.run(std::move(scan), [this, mode, done = std::move(done)](Scan end) {
            list(mode)->setExtraRoots(std::move(end.roots));
            done(std::move(end.found));
        });
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
