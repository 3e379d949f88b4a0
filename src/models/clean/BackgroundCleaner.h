#pragma once

#include "models/clean/CleanRunner.h"

#include <QObject>
#include <QThreadPool>
#include <filesystem>
#include <vector>

namespace tavrel {

/// The cleaner on a thread of its own. Its end waits for the clean that goes on: neither a removal nor the
/// way back is cut off half way.
class BackgroundCleaner final : public CleanRunner {
  public:
    /// What `tools` borrows must outlive this object. `volumes` are the contents of the Trashes on other
    /// volumes.
    explicit BackgroundCleaner(Cleaner::Tools tools, std::vector<std::filesystem::path> volumes = {});
    ~BackgroundCleaner() override;

    [[nodiscard]] QFuture<Report> clean(CleanJob job) override;
    [[nodiscard]] QFuture<std::int64_t> emptyTrash() override;
    [[nodiscard]] QFuture<Runs> findTrashed(std::vector<History::Entry> entries) override;
    [[nodiscard]] QFuture<RestoreReport> restore(std::vector<Restorer::Item> items) override;

  private:
    Cleaner::Tools tools_;
    Restorer restorer_;
    QObject mainThread_;
    QThreadPool pool_;
};

}  // namespace tavrel
