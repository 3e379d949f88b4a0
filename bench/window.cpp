#include "app/Graphics.h"
#include "app/Launch.h"
#include "app/Program.h"
#include "models/clean/ReviewRows.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QProcessEnvironment>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <functional>
#include <iostream>
#include <string_view>
#include <sys/resource.h>
#include <vector>

#include <fmt/format.h>

// What the window costs: its start, a long review, and standing still. Each figure of a process is taken in a
// process of its own. Exits with 1 when a target is missed.

namespace {

using namespace tavrel;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int runs = 9;
constexpr std::chrono::seconds warmUp{3};
constexpr std::chrono::seconds span{20};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void wait(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Processor time of this process so far.
double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// A program over an empty home, with its window.
class Shown {
  public:
    explicit Shown(int& argc, char** argv)
        : application_((Graphics::choose(), argc), argv),
          mac_(disk_.root()),
          program_(Program::partsOf(mac_.profile(), Program::Start::byUser)),
          window_(program_.mainWindow().show()) {}

    [[nodiscard]] QQuickWindow& window() { return *window_; }
    [[nodiscard]] Program& program() { return program_; }

    void waitForFrame() {
        QEventLoop loop;
        QObject::connect(window_, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit,
                         Qt::QueuedConnection);
        loop.exec();
    }

  private:
    Launch::Application application_;
    testing::Sandbox disk_;
    sample::SampleMac mac_;
    Program program_;
    QQuickWindow* window_;
};

/// Ends with its first frame.
int firstFrame(int argc, char** argv) {
    Shown shown(argc, argv);
    shown.waitForFrame();
    return EXIT_SUCCESS;
}

/// The share of one processor in percent over a time of doing nothing, and the frames drawn meanwhile.
int idle(int argc, char** argv, bool hidden) {
    Shown shown(argc, argv);
    shown.waitForFrame();
    if (hidden) {
        shown.program().state().motion()->setHidden(true);
        shown.window().hide();
    } else {
        shown.program().state().chooseTab(static_cast<int>(AppTab::apps));  // nothing moves but the stars
    }
    wait(warmUp);
    int frames = 0;
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, &shown.window(), [&] { ++frames; });
    const double before = cpuSeconds();
    wait(span);
    const double share = 100 * (cpuSeconds() - before) / static_cast<double>(span.count());
    std::cout << fmt::format("{} {}", share, frames);
    return EXIT_SUCCESS;
}

/// Processor time of this thread, which draws as well where no device does; milliseconds.
double threadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// A tick of the monitor while the Status tab shows it and the stars rest; milliseconds of this thread, which
/// draws too, and of all threads, which also look at the processes.
int status(int argc, char** argv) {
    constexpr std::chrono::seconds tick{2};
    Shown shown(argc, argv);
    shown.program().state().chooseTab(static_cast<int>(AppTab::status));
    shown.program().state().motion()->setScrolling(true);
    shown.waitForFrame();
    wait(warmUp);
    int frames = 0;
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, &shown.window(), [&] { ++frames; });
    const double thread = threadMilliseconds();
    const double all = cpuSeconds();
    wait(span);
    constexpr auto ticks = static_cast<double>(span / tick);
    if (frames < ticks - 1) throw std::runtime_error("figures that are not drawn");
    std::cout << fmt::format("{} {}", (threadMilliseconds() - thread) / ticks,
                             (cpuSeconds() - all) * 1e3 / ticks);
    return EXIT_SUCCESS;
}

/// Medians of the processor time of a frame while the hole rests, and while 40 icons fall into it.
int hero(int argc, char** argv) {
    constexpr int icons = 40;
    constexpr std::chrono::seconds watched{5};
    Shown shown(argc, argv);
    shown.window().resize(1000, 760);
    shown.waitForFrame();
    wait(warmUp);
    double began = 0;
    std::vector<double> frames;
    frames.reserve(1000);
    QObject::connect(&shown.window(), &QQuickWindow::beforeSynchronizing, &shown.window(),
                     [&] { began = threadMilliseconds(); });
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, &shown.window(),
                     [&] { frames.push_back(threadMilliseconds() - began); });
    wait(watched);
    const double resting = median(frames);
    frames.clear();

    auto* hole = shown.window().findChild<QQuickItem*>(QStringLiteral("blackHole"));
    if (hole == nullptr) throw std::runtime_error("no hole on show");
    QImage icon(64, 64, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::cyan);
    SwallowFeed feed(std::vector<QImage>(icons, icon), shown.program().clock());
    feed.reached(1);
    feed.finish();
    hole->setProperty("feed", QVariant::fromValue(&feed));
    hole->setProperty("suction", true);
    const auto show = feed.run(1);
    wait(watched);
    std::cout << fmt::format("{} {}", resting, median(frames));
    hole->setProperty("feed", QVariant::fromValue<SwallowFeed*>(nullptr));
    return EXIT_SUCCESS;
}

/// Model work on a list of 20,000 items: a whole category chosen, and a screenful of rows read anew.
int review(int argc, char** argv) {
    Shown shown(argc, argv);
    constexpr int items = 20'000;
    constexpr int screenful = 40;
    auto found = std::make_shared<CleanListModel::Items>();
    found->reserve(items);
    for (int i = 0; i < items; ++i) {
        found->push_back({.url = fmt::format("/Users/ana/Library/Caches/com.example.cache-{}", i),
                          .size = 1000 + i,
                          .risk = i % 2 == 0 ? Risk::safe : Risk::review,
                          .note = "Regenerated by the app on demand"});
    }
    const CleanListModel::Found result = found;
    CleanListModel list(
        "clean", [result](const auto& done) { QTimer::singleShot(0, [=] { done(result); }); },
        shown.program().services());
    ReviewRows rows;
    rows.setSource(&list);
    list.scan();
    while (list.isWorking()) QCoreApplication::processEvents();
    rows.toggleExpanded(0);

    std::vector<double> toggles;
    std::vector<double> reads;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        rows.toggle(0);
        const auto toggled = std::chrono::steady_clock::now();
        for (int row = 1000 * run; row < 1000 * run + screenful; ++row) {
            for (const int role : rows.roleNames().keys())
                static_cast<void>(rows.data(rows.index(row), role));
        }
        toggles.push_back(Milliseconds(toggled - start).count());
        reads.push_back(Milliseconds(std::chrono::steady_clock::now() - toggled).count());
    }
    std::cout << fmt::format("{} {}", median(toggles), median(reads));
    return EXIT_SUCCESS;
}

/// Two figures that a process of our own prints, or its time in milliseconds where it prints none.
std::array<double, 2> child(const char* self, const QString& work) {
    QProcess process;
    if (work == QLatin1String("hero")) {  // frames of the rasteriser, off screen
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
        process.setProcessEnvironment(environment);
    }
    QElapsedTimer timer;
    timer.start();
    process.start(QString::fromLocal8Bit(self), {work});
    process.waitForFinished(-1);
    if (process.exitCode() != 0) throw std::runtime_error(work.toStdString() + " failed");
    const auto words = QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char(' '));
    if (words.size() < 2) return {static_cast<double>(timer.nsecsElapsed()) / 1e6, 0};
    return {words[0].toDouble(), words[1].toDouble()};
}

/// One line of the table; whether its target is met.
bool row(std::string_view what, double value, std::string_view unit, double target) {
    std::cout << fmt::format("| {} | {:.2f} {} | ≤ {} {} | {} |\n", what, value, unit, target, unit,
                             value <= target ? "met" : "MISSED");
    return value <= target;
}

int table(const char* self) {
    std::vector<double> starts;
    starts.reserve(runs);
    for (int run = 0; run < runs; ++run) starts.push_back(child(self, QStringLiteral("first-frame"))[0]);
    const auto [toggle, read] = child(self, QStringLiteral("review"));
    const auto [stars, starFrames] = child(self, QStringLiteral("idle"));
    const auto [hidden, hiddenFrames] = child(self, QStringLiteral("hidden"));
    const double watched = child(self, QStringLiteral("status"))[0];
    const auto [resting, swallowing] = child(self, QStringLiteral("hero"));

    std::cout << "| What | Measured | Target | |\n|---|---|---|---|\n";
    bool met = row("start, first frame and end of the process, median", median(starts), "ms", 500);
    met = row("choose a category of 20,000 items, model work", toggle, "ms", 16) && met;
    met = row("read 40 rows of it, model work", read, "ms", 16) && met;
    met = row(fmt::format("stars of an idle tab, {:.0f} frames in {} s", starFrames, span.count()), stars,
              "% of a CPU", 6) &&
          met;
    met = row(fmt::format("hidden window, {:.0f} frames", hiddenFrames), hidden, "% of a CPU", 0.2) && met;
    met = row("a watched tick of the Status tab, drawn", watched, "ms of CPU", 5) && met;
    met = row("a frame of the resting hole at 420 points, median", resting, "ms of CPU", 12) && met;
    met = row("a frame with 40 icons falling, median", swallowing, "ms of CPU", 16) && met;
    return met && hiddenFrames == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view work = argc > 1 ? argv[1] : "";
    try {
        if (work == "first-frame") return firstFrame(argc, argv);
        if (work == "review") return review(argc, argv);
        if (work == "idle") return idle(argc, argv, false);
        if (work == "status") return status(argc, argv);
        if (work == "hero") return hero(argc, argv);
        if (work == "hidden") return idle(argc, argv, true);
        return table(argv[0]);
    } catch (const std::exception& problem) {
        std::cerr << "tavrel_bench_window: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
}
