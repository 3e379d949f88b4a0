#pragma once

#include "cleaning/CleanMode.h"
#include "engine/Finders.h"
#include "models/analyze/AnalyzeModel.h"
#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/BackgroundDiskWork.h"
#include "models/analyze/PlaceList.h"
#include "models/analyze/SizeService.h"
#include "models/clean/CleanListModel.h"
#include "models/clean/HistoryModel.h"
#include "models/clean/TrashEmptier.h"
#include "models/program/AppTab.h"
#include "models/program/LoginItem.h"
#include "models/program/Preferences.h"
#include "models/show/MotionPause.h"
#include "models/show/Shockwave.h"
#include "models/status/Monitor.h"
#include "models/support/Background.h"
#include "profiles/Profile.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

namespace tavrel {

/// What the state of the program is made over; everything outlives it.
struct AppServices {
    const Profile& profile;
    std::shared_ptr<const SystemTools> tools;  // scans that go on keep them
    CleanServices clean;
    Monitor& monitor;
    LaunchAtLogin& launchAtLogin;
    MotionPause& motion;
    Shockwave& shockwave;
};

/// The one object that owns every model for the life of the process, so that closing the window stops no work
/// and loses no result, and that knows what is on show. Screens are handed it as a property.
class AppState final : public QObject {
    Q_OBJECT
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
    Q_PROPERTY(tavrel::CleanListModel* junk READ junk CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* ai READ ai CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* projects READ projects CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* installers READ installers CONSTANT)
    Q_PROPERTY(tavrel::Preferences* preferences READ preferences CONSTANT)
    Q_PROPERTY(tavrel::HistoryModel* history READ history CONSTANT)
    Q_PROPERTY(tavrel::LoginItem* loginItem READ loginItem CONSTANT)
    Q_PROPERTY(tavrel::MotionPause* motion READ motion CONSTANT)
    Q_PROPERTY(tavrel::Shockwave* shockwave READ shockwave CONSTANT)
    Q_PROPERTY(tavrel::TrashEmptier* trashEmptier READ trashEmptier CONSTANT)
    Q_PROPERTY(tavrel::Monitor* monitor READ monitor CONSTANT)
    Q_PROPERTY(tavrel::AnalyzeModel* analyze READ analyze CONSTANT)
    /// What a folder holds, in the order that was chosen for the table.
    Q_PROPERTY(tavrel::AnalyzeRows* folderRows READ folderRows CONSTANT)
    Q_PROPERTY(tavrel::PlaceList* places READ places CONSTANT)

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
    /// Whether the user wants less motion on the screen.
    [[nodiscard]] bool reduceMotion() const { return reduceMotion_; }
    [[nodiscard]] QStringList tabTitles() const;
    [[nodiscard]] QStringList cleanModeTitles() const;

    /// Choosing a tab always leaves the settings. An index that is none changes nothing.
    void chooseTab(int index);
    void chooseCleanMode(int index);
    void chooseAppsMode(int index);
    void setShowHistory(bool on);
    void setShowSettings(bool on);
    void setReduceMotion(bool on);

    /// Whether work runs on that tab.
    [[nodiscard]] bool isBusy(AppTab tab) const;
    [[nodiscard]] QList<bool> busy() const;

    /// Looks again whether the system lets this program see everything.
    Q_INVOKABLE void readFullDiskAccess();

    [[nodiscard]] CleanListModel* cleanList(CleanMode mode);
    [[nodiscard]] CleanListModel* junk() { return &junk_; }
    [[nodiscard]] CleanListModel* ai() { return &ai_; }
    [[nodiscard]] CleanListModel* projects() { return &projects_; }
    [[nodiscard]] CleanListModel* installers() { return &installers_; }
    [[nodiscard]] Preferences* preferences() { return &services_.clean.preferences; }
    [[nodiscard]] HistoryModel* history() { return &history_; }
    [[nodiscard]] LoginItem* loginItem() { return &loginItem_; }
    [[nodiscard]] MotionPause* motion() { return &services_.motion; }
    [[nodiscard]] Shockwave* shockwave() { return &services_.shockwave; }
    [[nodiscard]] TrashEmptier* trashEmptier() { return &trashEmptier_; }
    [[nodiscard]] Monitor* monitor() { return &services_.monitor; }
    [[nodiscard]] AnalyzeModel* analyze() { return &analyze_; }
    [[nodiscard]] AnalyzeRows* folderRows() { return &folderRows_; }
    [[nodiscard]] PlaceList* places() { return &places_; }
    [[nodiscard]] FileIcons& icons() { return services_.clean.icons; }
    [[nodiscard]] const Profile& profile() const { return services_.profile; }

    /// Brings the main window up; set by whoever makes windows.
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
    [[nodiscard]] CleanListModel::Finder finder(CleanMode mode);

    AppServices services_;
    Background scans_{Background::Kind::mayBeAbandoned, Background::noLimit};

    AppTab tab_ = AppTab::clean;
    CleanMode cleanMode_ = CleanMode::system;
    AppsMode appsMode_ = AppsMode::uninstall;
    bool showHistory_ = false;
    bool showSettings_ = false;
    bool hasFullDiskAccess_;
    bool reduceMotion_ = false;

    CleanListModel junk_;
    CleanListModel ai_;
    CleanListModel projects_;
    CleanListModel installers_;
    HistoryModel history_;
    LoginItem loginItem_;
    TrashEmptier trashEmptier_;
    BackgroundDiskWork diskWork_;
    SizeService sizes_;
    AnalyzeModel analyze_;
    AnalyzeRows folderRows_;
    PlaceList places_;
};

}  // namespace tavrel
