#include "cleaning/BackgroundCleaner.h"

#include <QMetaObject>
#include <QtConcurrentRun>
#include <utility>

namespace tavrel {

namespace {

CleanRunner::Report runClean(const Cleaner::Tools& tools, const CleanJob& job, QObject* mainThread) {
    const auto progress = [&job, mainThread](double fraction) {
        QMetaObject::invokeMethod(
            mainThread, [told = job.progress, fraction] { told(fraction); }, Qt::QueuedConnection);
    };
    return std::make_shared<const CleanReport>(
        Cleaner(tools).clean(job.items, job.action, job.guard, job.options, progress));
}

std::int64_t runEmptyTrash(const Cleaner::Tools& tools) {
    return Cleaner::emptyTrash(tools.access, tools.trash);
}

}  // namespace

BackgroundCleaner::BackgroundCleaner(Cleaner::Tools tools) : tools_(std::move(tools)) {
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

}  // namespace tavrel
