// Opens one folder in the explorer, without a window, until all of it is measured, or removes every second
// thing of it from there; prints what that took as JSON.
#include "core/UserDefaults.h"
#include "models/analyze/AnalyzeModel.h"
#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/BackgroundDiskWork.h"
#include "models/analyze/SizeService.h"
#include "models/clean/CleanRunner.h"
#include "models/program/Preferences.h"
#include "profiles/Profile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <limits>
#include <malloc.h>
#include <thread>

#include <fmt/format.h>

namespace {

using namespace tavrel;

double milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Processor time of this thread so far.
double cpuMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Knows how long the longest event of the main thread took: so long a person's input would have waited.
class Watched final : public QCoreApplication {
  public:
    using QCoreApplication::QCoreApplication;

    void beginAnew() { longest_ = longestOnProcessor_ = 0; }
    [[nodiscard]] double longest() const { return longest_; }
    [[nodiscard]] double longestOnProcessor() const { return longestOnProcessor_; }

    bool notify(QObject* to, QEvent* event) override {
        if (inside_ || QThread::currentThread() != thread()) return QCoreApplication::notify(to, event);
        inside_ = true;
        QElapsedTimer timer;
        timer.start();
        const double before = cpuMilliseconds();
        const bool isTaken = QCoreApplication::notify(to, event);
        longest_ = std::max(longest_, milliseconds(timer));
        longestOnProcessor_ = std::max(longestOnProcessor_, cpuMilliseconds() - before);
        inside_ = false;
        return isTaken;
    }

  private:
    bool inside_ = false;  // an event within another is part of it
    double longest_ = 0;
    double longestOnProcessor_ = 0;
};

/// Nothing is removed here, though it says so of everything.
class NoRemoval final : public CleanRunner {
  public:
    void clean(CleanJob job, Done<Report> done) override {
        const auto report = std::make_shared<const CleanReport>(CleanReport{.removed = std::move(job.items)});
        const auto tell = [report, done = std::move(done)] { done(report); };
        QMetaObject::invokeMethod(QCoreApplication::instance(), tell, Qt::QueuedConnection);
    }
    void emptyTrash(Done<std::int64_t> /*done*/) override {}
    void findTrashed(std::vector<History::Entry> /*entries*/, Done<Runs> /*done*/) override {}
    void restore(std::vector<Restorer::Item> /*items*/, Done<RestoreReport> /*done*/) override {}
};

double heapBytes() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

std::size_t rememberedBelow(const SizeCache& cache, const std::string& folder) {
    const auto children = cache.children(folder, std::numeric_limits<std::size_t>::max());
    std::size_t count = children.size();
    for (const auto& child : children) count += rememberedBelow(cache, child.path);
    return count;
}

/// The explorer of one folder with all that it is made over.
struct Desk {
    explicit Desk(const std::filesystem::path& folder)
        : profile(Profiles::linux("/", folder)),
          defaults(profile.places.preferences()),
          preferences(defaults, folder) {}

    /// Opens the folder until all of it is measured. When the first rows came, in milliseconds.
    double load() {
        QElapsedTimer timer;
        double firstRows = 0;
        QEventLoop loop;
        QObject::connect(&model, &AnalyzeModel::entriesChanged, &loop, [&] {
            if (model.count() == 0) return;
            if (firstRows == 0) firstRows = milliseconds(timer);
            if (model.pendingCount() == 0) loop.quit();
        });
        timer.start();
        model.load();
        loop.exec();
        return firstRows;
    }

    Profile profile;
    std::unique_ptr<Clock> clock = systemClock();
    UserDefaults defaults;
    Preferences preferences;
    NoRemoval runner;
    std::size_t walks = SizeService::parallelWalks(std::thread::hardware_concurrency());
    BackgroundDiskWork work{profile.packages};
    SizeService sizes{work, *clock, walks};
    AnalyzeModel model{{
        .places = profile.places,
        .clock = *clock,
        .preferences = preferences,
        .sizes = sizes,
        .work = work,
        .runner = runner,
        .safetyGuard = [this] { return profile.safetyGuard(preferences.values(), {}); },
    }};
};

int explore(Watched& application, const std::filesystem::path& folder) {
    Desk desk(folder);
    const AnalyzeModel& model = desk.model;
    const double heapBefore = heapBytes();
    QElapsedTimer timer;
    timer.start();
    const double firstRows = desk.load();
    const double allFigures = milliseconds(timer);
    const double heap = heapBytes() - heapBefore;

    std::size_t remembered = 0;
    for (const AnalyzeEntry& entry : model.entries())
        remembered += 1 + rememberedBelow(desk.sizes.cache(), entry.url.native());
    std::cout << fmt::format(
        R"({{"firstRows": {:.3f}, "allFigures": {:.3f}, "longestBlock": {:.3f}, "longestBlockCpu": {:.3f}, )"
        R"("heap": {:.0f}, "remembered": {}, "size": {}, "files": {}}})"
        "\n",
        firstRows, allFigures, application.longest(), application.longestOnProcessor(), heap, remembered,
        model.total(), model.totalFiles());
    return EXIT_SUCCESS;
}

/// Marks every second thing of the folder and removes it.
int removeHalf(Watched& application, const std::filesystem::path& folder) {
    Desk desk(folder);
    AnalyzeRows rows;
    rows.setSource(&desk.model);
    desk.load();
    rows.sortBy(AnalyzeRows::Column::Name);
    const int before = rows.count();
    for (int row = 0; row < before; row += 2) desk.model.toggleSelection(*rows.entry(row));

    QEventLoop loop;
    QObject::connect(&desk.model, &AnalyzeModel::removalChanged, &loop, [&] {
        if (!desk.model.isRemoving()) loop.quit();
    });
    QMetaObject::invokeMethod(&desk.model, &AnalyzeModel::trashSelected, Qt::QueuedConnection);
    application.beginAnew();
    loop.exec();
    std::cout << fmt::format(R"({{"removed": {}, "longestBlock": {:.3f}, "longestBlockCpu": {:.3f}}})"
                             "\n",
                             before - rows.count(), application.longest(), application.longestOnProcessor());
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool removes = arguments.size() == 2 && arguments.front() == "--remove";
    if (!removes && arguments.size() != 1) {
        std::cerr << "usage: tavrel_bench_explorer [--remove] FOLDER\n";
        return 2;
    }
    Watched application(argc, argv);
    const auto folder = std::filesystem::canonical(arguments.back());
    return removes ? removeHalf(application, folder) : explore(application, folder);
}
