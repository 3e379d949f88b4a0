#pragma once

#include "disk/DiskWork.h"

#include <QFuture>
#include <QObject>
#include <QThreadPool>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace tavrel {

/// The disk work on pools of threads. Its end waits for what runs, so whoever wants a quick end stops that
/// first.
class BackgroundDiskWork final : public DiskWork {
  public:
    /// Files from this size on are large.
    static constexpr std::int64_t largeFile = 500LL * 1024 * 1024;
    static constexpr std::size_t mostLargeFiles = 200;

    /// `maxParallel` walks run at once; `packages` as `FolderListing` has them.
    BackgroundDiskWork(FolderListing::Packages packages, std::size_t maxParallel);
    ~BackgroundDiskWork() override;
    BackgroundDiskWork(const BackgroundDiskWork&) = delete;
    BackgroundDiskWork& operator=(const BackgroundDiskWork&) = delete;

    void measure(Path path, std::stop_token stop, Done<SizeFindings> done) override;
    void list(Path folder, std::stop_token stop, Done<FolderListing> done) override;
    void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) override;
    void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
             Done<Reasons> done) override;
    void discard(std::shared_ptr<void> something) override;

  private:
    template <typename Result>
    void answer(QFuture<Result> work, Done<Result> done);

    const FolderListing::Packages packages_;
    QObject mainThread_;
    QThreadPool walks_;
    QThreadPool listings_;  // never behind a walk: the first rows come at once
};

}  // namespace tavrel
