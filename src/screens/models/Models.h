#pragma once

#include "models/analyze/AnalyzeState.h"
#include "models/apps/AppsState.h"
#include "models/clean/CleanState.h"
#include "models/clean/ReviewRows.h"
#include "models/optimize/OptimizeState.h"
#include "models/program/AppState.h"
#include "models/program/LoginItem.h"
#include "models/program/MenuBarMetrics.h"
#include "models/program/Preferences.h"
#include "models/show/MotionPause.h"
#include "models/show/ShowState.h"
#include "models/status/MonitorWatcher.h"
#include "models/status/StatusState.h"

#include <QtQml/qqml.h>

/// The models by the names that screens know them by. Models know nothing of screens.
namespace tavrel::models {

#define TAVREL_FOREIGN(Type)  \
    Q_GADGET                  \
    QML_FOREIGN(tavrel::Type) \
    QML_NAMED_ELEMENT(Type)

struct ForeignAnalyzeModel {
    TAVREL_FOREIGN(AnalyzeModel)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignAnalyzeRows {
    TAVREL_FOREIGN(AnalyzeRows)
};
struct ForeignAnalyzeState {
    TAVREL_FOREIGN(AnalyzeState)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignAppState {
    TAVREL_FOREIGN(AppState)
    QML_UNCREATABLE("handed to the root")
};
struct ForeignAppsState {
    TAVREL_FOREIGN(AppsState)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignCleanListModel {
    TAVREL_FOREIGN(CleanListModel)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignCleanState {
    TAVREL_FOREIGN(CleanState)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignHistoryModel {
    TAVREL_FOREIGN(HistoryModel)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignLoginItem {
    TAVREL_FOREIGN(LoginItem)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignMenuBarMetrics {
    TAVREL_FOREIGN(MenuBarMetrics)
};
struct ForeignMonitor {
    TAVREL_FOREIGN(Monitor)
    QML_UNCREATABLE("owned by the program")
};
struct ForeignMonitorWatcher {
    TAVREL_FOREIGN(MonitorWatcher)
};
struct ForeignMotionPause {
    TAVREL_FOREIGN(MotionPause)
    QML_UNCREATABLE("owned by the program")
};
struct ForeignOptimizeState {
    TAVREL_FOREIGN(OptimizeState)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignPlaceList {
    TAVREL_FOREIGN(PlaceList)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignPreferences {
    TAVREL_FOREIGN(Preferences)
    QML_UNCREATABLE("owned by the program")
};
struct ForeignReviewRows {
    TAVREL_FOREIGN(ReviewRows)
};
struct ForeignShockwave {
    TAVREL_FOREIGN(Shockwave)
    QML_UNCREATABLE("owned by the program")
};
struct ForeignShowState {
    TAVREL_FOREIGN(ShowState)
    QML_UNCREATABLE("owned by the program")
};
struct ForeignStatusState {
    TAVREL_FOREIGN(StatusState)
    QML_UNCREATABLE("owned by the state")
};
struct ForeignSwallowFeed {
    TAVREL_FOREIGN(SwallowFeed)
    QML_UNCREATABLE("made by a clean")
};
struct ForeignTabState {
    TAVREL_FOREIGN(TabState)
    QML_UNCREATABLE("the base of the tabs' objects")
};
struct ForeignTrashEmptier {
    TAVREL_FOREIGN(TrashEmptier)
    QML_UNCREATABLE("owned by the state")
};

}  // namespace tavrel::models
