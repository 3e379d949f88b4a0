#include "models/clean/BackgroundCleaner.h"

#include <QElapsedTimer>
#include <QMetaObject>
#include <utility>

namespace tavrel {

namespace {

/// Posts to the main thread how far a clean has come, as often as a person can see.
class ThrottledProgress {
  public:
    ThrottledProgress(std::function<void(double)> progress, QObject* mainThread)
        : progress_(std::move(progress)), mainThread_(mainThread) {}

    void reached(double fraction) {
        fraction_ = fraction;
        isPosted_ = false;
        if (last_.isValid() && last_.elapsed() < pause) return;
        last_.start();
        flush();
    }
    /// Posts the last value if it has not been posted.
    void flush() {
        if (std::exchange(isPosted_, true) || !progress_) return;
        QMetaObject::invokeMethod(
            mainThread_, [progress = progress_, fraction = fraction_] { progress(fraction); },
            Qt::QueuedConnection);
    }

  private:
    static constexpr qint64 pause = 100;  // milliseconds

    std::function<void(double)> progress_;
    QObject* mainThread_;
    QElapsedTimer last_;
    double fraction_ = 0;
    bool isPosted_ = true;
};

CleanRunner::Report runClean(const Cleaner::Tools& tools, CleanJob job, QObject* mainThread) {
    ThrottledProgress throttle(std::move(job.progress), mainThread);
    job.progress = [&throttle](double fraction) { throttle.reached(fraction); };
    auto report = std::make_shared<const CleanReport>(job.run(Cleaner(tools)));
    throttle.flush();
    return report;
}

}  // namespace

BackgroundCleaner::BackgroundCleaner(Cleaner::Tools tools, std::shared_ptr<const void> owner,
                                     Restorer::Volumes volumes)
    : tools_(std::move(tools)), restorer_(tools_.trash, std::move(volumes)), owner_(std::move(owner)) {}

void BackgroundCleaner::clean(CleanJob job, Done<Report> done) {
    auto work = [tools = tools_, job = std::move(job), mainThread = &mainThread_]() mutable {
        return runClean(tools, std::move(job), mainThread);
    };
    removals_.run(std::move(work), std::move(done));
}

void BackgroundCleaner::emptyTrash(Done<std::int64_t> done) {
    auto work = [tools = tools_] { return Cleaner::emptyTrash(tools.access, tools.trash); };
    removals_.run(std::move(work), std::move(done));
}

void BackgroundCleaner::findTrashed(std::vector<History::Entry> entries, Done<Runs> done) {
    auto work = [restorer = restorer_, owner = owner_, entries = std::move(entries)]() mutable -> Runs {
        return std::make_shared<const Restorer::Runs>(restorer.runs(std::move(entries)));
    };
    looks_.run(std::move(work), std::move(done));
}

void BackgroundCleaner::restore(std::vector<Restorer::Item> items, Done<RestoreReport> done) {
    auto work = [restorer = restorer_, items = std::move(items)] {
        return restorer.restore(items, Trash::Act::move);
    };
    removals_.run(std::move(work), std::move(done));
}

}  // namespace tavrel
