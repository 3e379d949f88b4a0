#pragma once

#include "cleaning/CleanMode.h"
#include "models/program/AppServices.h"
#include "models/program/AppTab.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

namespace tavrel {

class AnalyzeState;
class AppsState;
class CleanState;
class LoginItem;
class OptimizeState;
class StatusState;
class TabState;

/// What is on show, and the object of each tab. It lives as long as the process, so that closing the window
/// stops no work and loses no result. Lives on the main thread.
class AppState final : public QObject {
    Q_OBJECT
    Q_MOC_INCLUDE("models/analyze/AnalyzeState.h")
    Q_MOC_INCLUDE("models/apps/AppsState.h")
    Q_MOC_INCLUDE("models/clean/CleanState.h")
    Q_MOC_INCLUDE("models/optimize/OptimizeState.h")
    Q_MOC_INCLUDE("models/program/LoginItem.h")
    Q_MOC_INCLUDE("models/program/Preferences.h")
    Q_MOC_INCLUDE("models/show/MotionPause.h")
    Q_MOC_INCLUDE("models/show/ShowState.h")
    Q_MOC_INCLUDE("models/status/StatusState.h")
    Q_PROPERTY(int tab READ tabIndex WRITE chooseTab NOTIFY tabChanged)
    Q_PROPERTY(int cleanMode READ cleanModeIndex WRITE chooseCleanMode NOTIFY cleanModeChanged)
    Q_PROPERTY(int appsMode READ appsModeIndex WRITE chooseAppsMode NOTIFY appsModeChanged)
    Q_PROPERTY(bool showHistory READ showHistory WRITE setShowHistory NOTIFY showHistoryChanged)
    Q_PROPERTY(bool showSettings READ showSettings WRITE setShowSettings NOTIFY showSettingsChanged)
    Q_PROPERTY(bool hasFullDiskAccess READ hasFullDiskAccess NOTIFY hasFullDiskAccessChanged)
    Q_PROPERTY(bool asksForFullDiskAccess READ asksForFullDiskAccess CONSTANT)
    Q_PROPERTY(bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged)
    Q_PROPERTY(QList<bool> busy READ busy NOTIFY busyChanged)
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT)
    Q_PROPERTY(QStringList cleanModeTitles READ cleanModeTitles CONSTANT)
    Q_PROPERTY(tavrel::CleanState* clean READ clean CONSTANT)
    Q_PROPERTY(tavrel::AppsState* apps READ apps CONSTANT)
    Q_PROPERTY(tavrel::OptimizeState* optimize READ optimize CONSTANT)
    Q_PROPERTY(tavrel::AnalyzeState* analyze READ analyze CONSTANT)
    Q_PROPERTY(tavrel::StatusState* status READ status CONSTANT)
    Q_PROPERTY(tavrel::Preferences* preferences READ preferences CONSTANT)
    Q_PROPERTY(tavrel::ShowState* show READ show CONSTANT)
    Q_PROPERTY(tavrel::MotionPause* motion READ motion CONSTANT)
    Q_PROPERTY(tavrel::LoginItem* loginItem READ loginItem CONSTANT)

  public:
    explicit AppState(AppServices services, QObject* parent = nullptr);
    ~AppState() override;

    [[nodiscard]] AppTab tab() const { return tab_; }
    [[nodiscard]] CleanMode cleanMode() const { return cleanMode_; }
    [[nodiscard]] AppsMode appsMode() const { return appsMode_; }
    [[nodiscard]] int tabIndex() const { return static_cast<int>(tab_); }
    [[nodiscard]] int cleanModeIndex() const { return static_cast<int>(cleanMode_); }
    [[nodiscard]] int appsModeIndex() const { return static_cast<int>(appsMode_); }
    [[nodiscard]] bool showHistory() const { return showHistory_; }
    [[nodiscard]] bool showSettings() const { return showSettings_; }
    [[nodiscard]] bool hasFullDiskAccess() const { return hasFullDiskAccess_; }
    /// False where the system hides nothing, so that there is nothing to ask for.
    [[nodiscard]] bool asksForFullDiskAccess() const;
    /// True if the user wants less motion on the screen.
    [[nodiscard]] bool reduceMotion() const { return reduceMotion_; }
    [[nodiscard]] QStringList tabTitles() const;
    [[nodiscard]] QStringList cleanModeTitles() const;

    /// Shows a tab and leaves the settings, also for the tab on show. An index out of range changes nothing.
    void chooseTab(int index);
    void chooseCleanMode(int index);
    void chooseAppsMode(int index);
    void setShowHistory(bool on);
    void setShowSettings(bool on);
    void setReduceMotion(bool on);

    /// True while work runs on that tab.
    [[nodiscard]] bool isBusy(AppTab tab) const;
    /// `isBusy` of every tab, in their order.
    [[nodiscard]] QList<bool> busy() const;

    /// Reads anew whether the system lets this program see everything. Blocks on the disk.
    Q_INVOKABLE void readFullDiskAccess();

    // The tabs. All but the first are made when they are asked for.
    [[nodiscard]] CleanState* clean() { return clean_.get(); }
    [[nodiscard]] AppsState* apps();
    [[nodiscard]] OptimizeState* optimize();
    [[nodiscard]] AnalyzeState* analyze();
    [[nodiscard]] StatusState* status();

    [[nodiscard]] Preferences* preferences() { return &services_.clean.preferences; }
    [[nodiscard]] ShowState* show() { return &services_.show; }
    [[nodiscard]] MotionPause* motion() { return &services_.motion; }
    [[nodiscard]] LoginItem* loginItem() { return loginItem_.get(); }

    /// Brings the main window up. Set by the owner of the windows.
    std::function<void()> openMainWindow;

  Q_SIGNALS:
    void tabChanged();
    void cleanModeChanged();
    void appsModeChanged();
    void showHistoryChanged();
    void showSettingsChanged();
    void hasFullDiskAccessChanged();
    void reduceMotionChanged();
    void busyChanged();

  private:
    /// The object of a tab if it was made; nullptr otherwise.
    [[nodiscard]] const TabState* made(AppTab tab) const;
    template <typename State, typename... Arguments>
    State* makeOnce(std::unique_ptr<State>& state, Arguments&&... arguments);

    AppServices services_;

    AppTab tab_ = AppTab::clean;
    CleanMode cleanMode_ = CleanMode::system;
    AppsMode appsMode_ = AppsMode::uninstall;
    bool showHistory_ = false;
    bool showSettings_ = false;
    bool hasFullDiskAccess_;
    bool reduceMotion_ = false;

    std::unique_ptr<CleanState> clean_;
    std::unique_ptr<AppsState> apps_;
    std::unique_ptr<OptimizeState> optimize_;
    std::unique_ptr<AnalyzeState> analyze_;
    std::unique_ptr<StatusState> status_;
    std::unique_ptr<LoginItem> loginItem_;
};

}  // namespace tavrel
