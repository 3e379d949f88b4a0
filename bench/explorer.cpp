// Opens one folder in the explorer, without a window, until all of it is measured; prints what that took as
// JSON.
#include "cleaning/CleanRunner.h"
#include "core/Preferences.h"
#include "core/UserDefaults.h"
#include "disk/AnalyzeModel.h"
#include "disk/BackgroundDiskWork.h"
#include "disk/SizeService.h"
#include "profiles/Profile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
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

/// Nothing is removed here.
class NoRemoval final : public CleanRunner {
  public:
    QFuture<Report> clean(CleanJob /*job*/) override { return {}; }
    QFuture<std::int64_t> emptyTrash() override { return {}; }
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

int explore(Watched& application, const std::filesystem::path& folder) {
    const Profile profile = Profiles::linux("/", folder);
    const auto clock = systemClock();
    UserDefaults defaults(profile.places.preferences());
    Preferences preferences(defaults, folder);
    NoRemoval runner;
    const std::size_t walks = SizeService::parallelWalks(std::thread::hardware_concurrency());
    BackgroundDiskWork work(profile.packages, walks);
    SizeService sizes([&work](auto path, auto stop,
                              auto done) { work.measure(std::move(path), std::move(stop), std::move(done)); },
                      walks);
    AnalyzeModel model({
        .places = profile.places,
        .clock = *clock,
        .preferences = preferences,
        .sizes = sizes,
        .work = work,
        .runner = runner,
        .safetyGuard = [&] { return profile.safetyGuard(preferences.values(), {}); },
    });

    const double heapBefore = heapBytes();
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
    const double allFigures = milliseconds(timer);
    const double heap = heapBytes() - heapBefore;

    std::size_t remembered = 0;
    for (const AnalyzeEntry& entry : model.entries())
        remembered += 1 + rememberedBelow(sizes.cache(), entry.url.native());
    std::cout << fmt::format(
        R"({{"firstRows": {:.3f}, "allFigures": {:.3f}, "longestBlock": {:.3f}, "longestBlockCpu": {:.3f}, )"
        R"("heap": {:.0f}, "remembered": {}, "size": {}, "files": {}}})"
        "\n",
        firstRows, allFigures, application.longest(), application.longestOnProcessor(), heap, remembered,
        model.total(), model.totalFiles());
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: tavrel_bench_explorer FOLDER\n";
        return 2;
    }
    Watched application(argc, argv);
    return explore(application, std::filesystem::canonical(argv[1]));
}
