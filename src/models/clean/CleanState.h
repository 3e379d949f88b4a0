#pragma once

#include "cleaning/CleanMode.h"
#include "engine/Finders.h"
#include "models/clean/CleanListModel.h"
#include "models/clean/HistoryModel.h"
#include "models/clean/TrashEmptier.h"
#include "models/support/TabState.h"

#include <QThreadPool>

namespace tavrel {

/// The models of the Clean tab: one list for each mode, the history, and the button that empties the Trash.
class CleanState final : public TabState {
    Q_OBJECT
    Q_PROPERTY(tavrel::CleanListModel* junk READ junk CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* ai READ ai CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* projects READ projects CONSTANT)
    Q_PROPERTY(tavrel::CleanListModel* installers READ installers CONSTANT)
    Q_PROPERTY(tavrel::HistoryModel* history READ history CONSTANT)
    Q_PROPERTY(tavrel::TrashEmptier* trashEmptier READ trashEmptier CONSTANT)

  public:
    /// The arguments and what they refer to outlive this object.
    CleanState(const Profile& profile, const SystemTools& tools, CleanServices services);
    /// Waits for the scans that run.
    ~CleanState() override;

    /// True while one of the lists scans or cleans.
    [[nodiscard]] bool isBusy() const override;

    [[nodiscard]] CleanListModel* list(CleanMode mode);
    [[nodiscard]] CleanListModel* junk() { return &junk_; }
    [[nodiscard]] CleanListModel* ai() { return &ai_; }
    [[nodiscard]] CleanListModel* projects() { return &projects_; }
    [[nodiscard]] CleanListModel* installers() { return &installers_; }
    [[nodiscard]] HistoryModel* history() { return &history_; }
    [[nodiscard]] TrashEmptier* trashEmptier() { return &trashEmptier_; }

  private:
    [[nodiscard]] CleanListModel::Finder finder(CleanMode mode);

    CleanServices services_;
    Finders finders_;
    QThreadPool scans_;
    CleanListModel junk_;
    CleanListModel ai_;
    CleanListModel projects_;
    CleanListModel installers_;
    HistoryModel history_;
    TrashEmptier trashEmptier_;
};

}  // namespace tavrel
