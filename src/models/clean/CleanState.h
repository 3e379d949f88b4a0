#pragma once

#include "cleaning/CleanMode.h"
#include "engine/SystemTools.h"
#include "models/clean/CleanListModel.h"
#include "models/clean/HistoryModel.h"
#include "models/clean/TrashEmptier.h"
#include "models/support/Background.h"
#include "models/support/TabState.h"
#include "profiles/Profile.h"

#include <memory>

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
    /// What `services` refers to outlives this object.
    CleanState(const Profile& profile, std::shared_ptr<const SystemTools> tools, CleanServices services);

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

    const Profile profile_;
    std::shared_ptr<const SystemTools> tools_;
    CleanServices services_;
    Background scans_{Background::Kind::mayBeAbandoned, Background::noLimit};
    CleanListModel junk_;
    CleanListModel ai_;
    CleanListModel projects_;
    CleanListModel installers_;
    HistoryModel history_;
    TrashEmptier trashEmptier_;
};

}  // namespace tavrel
