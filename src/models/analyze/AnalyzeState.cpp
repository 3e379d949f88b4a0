#include "models/analyze/AnalyzeState.h"

#include "core/ByteCount.h"
#include "models/clean/CleanServices.h"
#include "models/status/Monitor.h"
#include "profiles/Profile.h"

#include <QFile>
#include <thread>

namespace tavrel {

namespace {

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

}  // namespace

AnalyzeState::AnalyzeState(const Profile& profile, const CleanServices& services, const Monitor& monitor)
    : profile_(profile),
      monitor_(monitor),
      work_(profile.packages),
      sizes_(work_, services.clock, parallelWalks()),
      model_({
          .places = profile.places,
          .clock = services.clock,
          .preferences = services.preferences,
          .sizes = sizes_,
          .work = work_,
          .runner = services.runner,
          .safetyGuard = [make = services.safetyGuard] { return make({}); },
      }),
      places_(placeFinders(profile), work_) {
    rows_.setSource(&model_);
    connect(&model_, &AnalyzeModel::removalChanged, this, &AnalyzeState::busyChanged);
    connect(&monitor, &Monitor::sampled, this, &AnalyzeState::diskChanged);
}

QString AnalyzeState::trashFolder() const {
    const std::filesystem::path trash = profile_.places.trash();
    const bool hasFiles = profile_.trashLayout == Profile::TrashLayout::freedesktop;
    return QFile::decodeName(QByteArray::fromStdString(hasFiles ? trash / "files" : trash));
}

double AnalyzeState::diskShare() const {
    return usedShare(monitor_.figures().disk);
}

QString AnalyzeState::diskText() const {
    const Sensors::DiskSpace& disk = monitor_.figures().disk;
    if (!disk.total || !disk.available) return QStringLiteral("—");
    return QString::fromStdString(byteCount(*disk.total - *disk.available) + " / " + byteCount(*disk.total));
}

}  // namespace tavrel
