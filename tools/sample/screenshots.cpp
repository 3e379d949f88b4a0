#include "app/Graphics.h"
#include "app/Launch.h"
#include "app/Program.h"
#include "models/analyze/AnalyzeState.h"
#include "models/clean/CleanState.h"
#include "sample/SampleMac.h"
#include "sample/SampleMachine.h"
#include "support/Sandbox.h"

#include <QCursor>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QPainter>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Takes every screen in every state, over the small sample Mac and the sample laptop, into a folder. What it
// presses is what a person would.

namespace {

using namespace tavrel;

/// Nothing happens in a wait of no time, so that what has just begun can be caught.
void wait(int milliseconds) {
    if (milliseconds == 0) return;
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void waitFor(const std::string& what, const std::function<bool()>& reached) {
    constexpr int patience = 60'000;  // milliseconds
    const QDeadlineTimer deadline(patience);
    while (!reached()) {
        if (deadline.hasExpired()) throw std::runtime_error("never came to be: " + what);
        wait(20);
    }
}

class Photographer {
  public:
    Photographer(Program& program, const QDir& folder) : state_(program.state()), folder_(folder) {
        window_ = program.mainWindow().show();
        if (window_ == nullptr) throw std::runtime_error("the window cannot be made");
        waitFor("the first frame", [this] { return window_->isExposed(); });
        QCursor::setPos(window_->screen()->geometry().bottomRight());
    }

    void takeAll() {
        take("clean-idle");
        frameOfStrip(0);
        scan(CleanMode::system);
        take("clean-found");
        review();
        clean();
        tour();
        settings();
        history();
        small();
    }

  private:
    static constexpr int quality = 92;

    void take(const std::string& name, int settle = 900) {
        wait(settle);
        const QString file = folder_.filePath(QString::fromStdString(name) + QStringLiteral(".jpg"));
        if (!window_->grabWindow().save(file, "JPG", quality))
            throw std::runtime_error("cannot write " + file.toStdString());
        std::cout << file.toStdString() << '\n';
    }

    /// One more picture of the hole alone.
    void frameOfStrip(int settle) {
        wait(settle);
        const auto* hole = window_->findChild<QQuickItem*>(QStringLiteral("blackHole"));
        if (hole == nullptr) throw std::runtime_error("no hole on show");
        const QImage whole = window_->grabWindow();
        const double side = hole->height() * 1.04;
        const QPointF middle = hole->mapToScene(QPointF(hole->width() / 2, hole->height() / 2));
        const QRectF around(middle.x() - side * 0.75, middle.y() - side * 0.53, side * 1.5, side);
        const double scale = whole.devicePixelRatio();
        strip_.push_back(whole.copy(QRectF(around.topLeft() * scale, around.size() * scale).toRect())
                             .scaledToHeight(stripHeight, Qt::SmoothTransformation));
    }

    /// The frames side by side, a few in a row.
    void saveStrip() {
        constexpr int inRow = 5;
        const int rows = (static_cast<int>(strip_.size()) + inRow - 1) / inRow;
        const QSize frame = strip_.front().size();
        QImage sheet(frame.width() * inRow, frame.height() * rows, QImage::Format_RGB32);
        sheet.fill(strip_.back().pixelColor(0, 0));
        QPainter painter(&sheet);
        for (int i = 0; i < static_cast<int>(strip_.size()); ++i) {
            painter.drawImage(i % inRow * frame.width(), i / inRow * frame.height(),
                              strip_[static_cast<std::size_t>(i)]);
        }
        painter.end();
        const QString file = folder_.filePath(QStringLiteral("black-hole.jpg"));
        if (!sheet.save(file, "JPG", quality)) throw std::runtime_error("cannot write the strip");
        std::cout << file.toStdString() << '\n';
    }

    void scan(CleanMode mode) {
        state_.chooseCleanMode(static_cast<int>(mode));
        CleanListModel* list = state_.clean()->list(mode);
        list->scan();
        if (mode == CleanMode::system && strip_.size() == 1) {
            take("clean-scanning", 0);
            frameOfStrip(0);
        }
        waitFor("a scan's end", [list] { return !list->isWorking(); });
    }

    void review() {
        state_.clean()->junk()->setReviewing(true);
        take("review");
        auto* list = window_->findChild<QQuickItem*>(QStringLiteral("reviewList"));
        if (list == nullptr) throw std::runtime_error("no list to review");
        QMetaObject::invokeMethod(list, "expand", Q_ARG(QVariant, 1));
        take("review-open");
        state_.preferences()->setDryRun(true);
        take("review-preview", 300);
        state_.clean()->junk()->clean();
        waitFor("the preview's end", [this] { return !state_.clean()->junk()->isWorking(); });
        take("clean-preview-done", 400);
        state_.preferences()->setDryRun(false);
    }

    void clean() {
        constexpr int between = 800;  // milliseconds from frame to frame of the strip
        state_.preferences()->setAlwaysTrash(true);
        state_.clean()->junk()->clean();
        for (int frame = 0; frame < 3; ++frame) frameOfStrip(between);
        take("clean-swallowing", 0);
        while (state_.clean()->junk()->isWorking()) frameOfStrip(between);
        take("clean-done", 300);
        for (int frame = 0; frame < 3; ++frame) frameOfStrip(between / 2);
        take("clean-resealed", 3500);
        frameOfStrip(0);
        saveStrip();
        state_.clean()->junk()->setReviewing(true);
        take("review-report");
        state_.clean()->junk()->setReviewing(false);
        state_.preferences()->setAlwaysTrash(false);
    }

    void tour() {
        const std::pair<CleanMode, const char*> modes[] = {
            {CleanMode::ai, "ai"}, {CleanMode::projects, "projects"}, {CleanMode::installers, "installers"}};
        for (const auto& [mode, name] : modes) {
            state_.chooseCleanMode(static_cast<int>(mode));
            take(std::string("clean-") + name);
            scan(mode);
            state_.clean()->list(mode)->setReviewing(true);
            take(std::string("review-") + name);
            state_.clean()->list(mode)->setReviewing(false);
        }
        for (const AppTab tab : allAppTabs) {
            if (tab == AppTab::clean) continue;
            state_.chooseTab(static_cast<int>(tab));
            constexpr int tall = 990;        // pixels, for all of the page
            constexpr int liveFor = 40'000;  // milliseconds, for the graphs to have something to show
            const bool isStatus = tab == AppTab::status;
            const QSize before = window_->size();
            if (isStatus) window_->resize(before.width(), tall);
            take("tab-" + std::string(rawValue(tab)), isStatus ? liveFor : 900);
            window_->resize(before);
            if (tab == AppTab::analyze) explore();
        }
    }

    /// A removal in the explorer, and what it says of it.
    void explore() {
        AnalyzeModel* model = state_.analyze()->model();
        waitFor("all figures", [model] { return model->count() > 0 && model->pendingCount() == 0; });
        for (const AnalyzeEntry& entry : model->entries()) {
            if (model->selectedCount() < 2) model->toggleSelection(entry);
        }
        take("analyze-selected");
        model->trashSelected();
        waitFor("the removal's end", [model] { return model->hasLastRemoval() && !model->isRemoving(); });
        take("analyze-report");
    }

    void settings() {
        state_.setShowSettings(true);
        for (const char* section : {"general", "menubar", "protected", "folders"}) {
            take(std::string("settings-") + section);
            auto* view = window_->findChild<QQuickItem*>(QStringLiteral("settingsView"));
            if (view == nullptr) throw std::runtime_error("no settings on show");
            view->setProperty("section", view->property("section").toInt() + 1);
        }
        state_.setShowSettings(false);
        state_.chooseTab(static_cast<int>(AppTab::clean));
    }

    void history() {
        state_.setShowHistory(true);
        take("history");
        state_.setShowHistory(false);
        wait(500);
    }

    void small() {
        window_->resize(window_->minimumSize());
        state_.chooseCleanMode(static_cast<int>(CleanMode::system));
        take("small-clean");
        scan(CleanMode::system);
        state_.clean()->junk()->setReviewing(true);
        take("small-review");
        state_.clean()->junk()->setReviewing(false);
        state_.setShowSettings(true);
        take("small-settings");
    }

    AppState& state_;
    static constexpr int stripHeight = 240;  // pixels

    QDir folder_;
    QQuickWindow* window_ = nullptr;
    std::vector<QImage> strip_;
};

}  // namespace

int main(int argc, char** argv) {
    using namespace tavrel;
    if (argc != 2) {
        std::cerr << "usage: tavrel-screenshots FOLDER\n";
        return 2;
    }
    try {
        Graphics::choose();
        const Launch::Application application(argc, argv);
        const testing::Sandbox disk;
        const sample::SampleMac mac(disk.root());
        mac.fill(0.02);
        auto parts = Program::partsOf(mac.profile(), Program::Start::byUser);
        parts.machine = sample::SampleMachine::readers(std::make_shared<sample::SampleMachine>());
        Program program(std::move(parts));
        QDir().mkpath(QString::fromLocal8Bit(argv[1]));
        Photographer(program, QDir(QString::fromLocal8Bit(argv[1]))).takeAll();
    } catch (const std::exception& problem) {
        std::cerr << "tavrel-screenshots: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
