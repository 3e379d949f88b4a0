#include "disk/BackgroundDiskWork.h"

#include "disk/SizeService.h"

#include <QFutureWatcher>
#include <QtConcurrentRun>
#include <utility>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

constexpr unsigned threadsPerWalk = 2;  // several walks run side by side
constexpr int mostListings = 8;         // some may hang on a slow disk
constexpr std::size_t vettedPerStopCheck = 64;

SizeFindings runMeasure(const Path& path, const std::stop_token& stop) {
    if (stop.stop_requested()) return {};
    return SizeFindings::of(DiskIndex::measure(path, SizeService::recordDepth, stop, threadsPerWalk));
}

FolderListing runList(const Path& folder, const FolderListing::Packages& packages,
                      const std::stop_token& stop) {
    if (stop.stop_requested()) return {};
    return FolderListing::of(folder, packages, stop);
}

DiskWork::LargeFiles runFindLargeFiles(const Path& under, const std::stop_token& stop) {
    return DiskIndex::largeFiles(under, BackgroundDiskWork::largeFile, BackgroundDiskWork::mostLargeFiles,
                                 stop);
}

DiskWork::Reasons runVet(const SafetyGuard& guard, const FolderListing::Paths& paths,
                         const std::stop_token& stop) {
    DiskWork::Reasons reasons;
    reasons.reserve(paths->size());
    for (const std::string& path : *paths) {
        if (reasons.size() % vettedPerStopCheck == 0 && stop.stop_requested()) return {};
        reasons.push_back(guard.check(path).reason());
    }
    return reasons;
}

}  // namespace

BackgroundDiskWork::BackgroundDiskWork(FolderListing::Packages packages, std::size_t maxParallel)
    : packages_(std::move(packages)) {
    walks_.setMaxThreadCount(static_cast<int>(maxParallel));
    listings_.setMaxThreadCount(mostListings);
}

BackgroundDiskWork::~BackgroundDiskWork() {
    walks_.waitForDone();
    listings_.waitForDone();
}

void BackgroundDiskWork::measure(Path path, std::stop_token stop, Done<SizeFindings> done) {
    answer(QtConcurrent::run(&walks_, runMeasure, std::move(path), std::move(stop)), std::move(done));
}

void BackgroundDiskWork::list(Path folder, std::stop_token stop, Done<FolderListing> done) {
    answer(QtConcurrent::run(&listings_, runList, std::move(folder), packages_, std::move(stop)),
           std::move(done));
}

void BackgroundDiskWork::findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) {
    answer(QtConcurrent::run(&listings_, runFindLargeFiles, std::move(under), std::move(stop)),
           std::move(done));
}

void BackgroundDiskWork::vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
                             Done<Reasons> done) {
    answer(QtConcurrent::run(&listings_, runVet, std::move(guard), std::move(paths), std::move(stop)),
           std::move(done));
}

void BackgroundDiskWork::discard(std::shared_ptr<void> something) {
    listings_.start([held = std::move(something)] {});
}

template <typename Result>
void BackgroundDiskWork::answer(QFuture<Result> work, Done<Result> done) {
    auto* watcher = new QFutureWatcher<Result>(&mainThread_);
    QObject::connect(watcher, &QFutureWatcherBase::finished, &mainThread_, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        done(watcher->future().takeResult());
    });
    watcher->setFuture(std::move(work));
}

}  // namespace tavrel
