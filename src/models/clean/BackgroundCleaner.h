#pragma once

#include "models/clean/CleanRunner.h"
#include "models/support/Background.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <vector>

namespace tavrel {

/// Runs the cleaner on a thread of its own. The destructor waits for every clean, emptying and restore that
/// was requested. It does not wait for reads of the Trash.
class BackgroundCleaner final : public CleanRunner {
  public:
    /// `owner` keeps what `tools` borrows, and is kept as long as any thread uses that. `volumes` finds
    /// the Trashes on other volumes and is called in the background.
    BackgroundCleaner(Cleaner::Tools tools, std::shared_ptr<const void> owner,
                      Restorer::Volumes volumes = {});

    void clean(CleanJob job, Done<Report> done) override;
    void emptyTrash(Done<std::int64_t> done) override;
    void findTrashed(std::vector<History::Entry> entries, Done<Runs> done) override;
    void restore(std::vector<Restorer::Item> items, Done<RestoreReport> done) override;

  private:
    Cleaner::Tools tools_;
    Restorer restorer_;
    std::shared_ptr<const void> owner_;
    QObject mainThread_;  // receives progress
    Background removals_{Background::Kind::mustFinish, 1};
    Background looks_{Background::Kind::mayBeAbandoned, Background::noLimit};
};

}  // namespace tavrel
