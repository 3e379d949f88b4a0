#include "models/clean/BackgroundCleaner.h"

#include <QElapsedTimer>
#include <QMetaObject>
#include <QtConcurrentRun>
#include <utility>

namespace tavrel {

namespace {

/// Tells the main thread how far a clean has come, as often as a person can see.
class Telling {
  public:
    Telling(const CleanJob& job, QObject* mainThread) : job_(job), mainThread_(mainThread) {}

    void reached(double fraction) {
        fraction_ = fraction;
        isTold_ = false;
        if (last_.isValid() && last_.elapsed() < pause) return;
        last_.start();
        tell();
    }
    /// The last one, if it was kept back.
    void tell() {
        if (std::exchange(isTold_, true) || !job_.progress) return;
        QMetaObject::invokeMethod(
            mainThread_, [told = job_.progress, fraction = fraction_] { told(fraction); },
            Qt::QueuedConnection);
    }

  private:
    static constexpr qint64 pause = 100;  // milliseconds

    const CleanJob& job_;
    QObject* mainThread_;
    QElapsedTimer last_;
    double fraction_ = 0;
    bool isTold_ = true;
};

CleanRunner::Report runClean(const Cleaner::Tools& tools, const CleanJob& job, QObject* mainThread) {
    Telling telling(job, mainThread);
    const auto progress = [&telling](double fraction) { telling.reached(fraction); };
    auto report = std::make_shared<const CleanReport>(
        Cleaner(tools).clean(job.items, job.action, job.guard, job.options, progress));
    telling.tell();
    return report;
}

std::int64_t runEmptyTrash(const Cleaner::Tools& tools) {
    return Cleaner::emptyTrash(tools.access, tools.trash);
}

CleanRunner::Runs runFindTrashed(const Restorer& restorer, std::vector<History::Entry> entries) {
    return std::make_shared<const Restorer::Runs>(restorer.runs(std::move(entries)));
}

RestoreReport runRestore(const Restorer& restorer, const std::vector<Restorer::Item>& items) {
    return restorer.restore(items, Trash::Act::move);
}

}  // namespace

BackgroundCleaner::BackgroundCleaner(Cleaner::Tools tools, std::vector<std::filesystem::path> volumes)
    : tools_(std::move(tools)), restorer_(tools_.trash, std::move(volumes)) {
    pool_.setMaxThreadCount(1);
}

BackgroundCleaner::~BackgroundCleaner() {
    pool_.waitForDone();
}

QFuture<CleanRunner::Report> BackgroundCleaner::clean(CleanJob job) {
    return QtConcurrent::run(&pool_, runClean, tools_, std::move(job), &mainThread_);
}

QFuture<std::int64_t> BackgroundCleaner::emptyTrash() {
    return QtConcurrent::run(&pool_, runEmptyTrash, tools_);
}

QFuture<CleanRunner::Runs> BackgroundCleaner::findTrashed(std::vector<History::Entry> entries) {
    return QtConcurrent::run(&pool_, runFindTrashed, restorer_, std::move(entries));
}

QFuture<RestoreReport> BackgroundCleaner::restore(std::vector<Restorer::Item> items) {
    return QtConcurrent::run(&pool_, runRestore, restorer_, std::move(items));
}

}  // namespace tavrel
