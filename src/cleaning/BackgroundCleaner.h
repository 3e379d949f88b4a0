#pragma once

#include "cleaning/CleanRunner.h"

#include <QObject>
#include <QThreadPool>

namespace tavrel {

/// The cleaner on a thread of its own. Its end waits for the clean that goes on: a removal is never cut off
/// half way.
class BackgroundCleaner final : public CleanRunner {
  public:
    /// What `tools` borrows must outlive this object.
    explicit BackgroundCleaner(Cleaner::Tools tools);
    ~BackgroundCleaner() override;

    [[nodiscard]] QFuture<Report> clean(CleanJob job) override;
    [[nodiscard]] QFuture<std::int64_t> emptyTrash() override;

  private:
    Cleaner::Tools tools_;
    QObject mainThread_;
    QThreadPool pool_;
};

}  // namespace tavrel
