#pragma once

#include "models/analyze/AnalyzeModel.h"
#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/BackgroundDiskWork.h"
#include "models/analyze/PlaceList.h"
#include "models/analyze/SizeService.h"
#include "models/support/TabState.h"

#include <QString>

namespace tavrel {

struct CleanServices;
class Monitor;
struct Profile;

/// The models of the Analyze tab, and the disk's figures beside them.
class AnalyzeState final : public TabState {
    Q_OBJECT
    Q_PROPERTY(tavrel::AnalyzeModel* model READ model CONSTANT)
    /// The entries of the current folder, sorted by the table's sort column.
    Q_PROPERTY(tavrel::AnalyzeRows* rows READ rows CONSTANT)
    Q_PROPERTY(tavrel::PlaceList* places READ places CONSTANT)
    /// The full path of the Trash, for reading.
    Q_PROPERTY(QString trashFolder READ trashFolder CONSTANT)
    /// The used share of the disk, 0 to 1.
    Q_PROPERTY(double diskShare READ diskShare NOTIFY diskChanged)
    /// Used and total bytes of the disk as a text; a dash while they are unknown.
    Q_PROPERTY(QString diskText READ diskText NOTIFY diskChanged)

  public:
    /// The arguments and what they refer to outlive this object.
    AnalyzeState(const Profile& profile, const CleanServices& services, const Monitor& monitor);

    /// True while a removal runs.
    [[nodiscard]] bool isBusy() const override { return model_.isRemoving(); }

    [[nodiscard]] AnalyzeModel* model() { return &model_; }
    [[nodiscard]] AnalyzeRows* rows() { return &rows_; }
    [[nodiscard]] PlaceList* places() { return &places_; }
    [[nodiscard]] QString trashFolder() const;
    [[nodiscard]] double diskShare() const;
    [[nodiscard]] QString diskText() const;

  Q_SIGNALS:
    void diskChanged();

  private:
    const Profile& profile_;
    const Monitor& monitor_;
    BackgroundDiskWork work_;
    SizeService sizes_;
    AnalyzeModel model_;
    AnalyzeRows rows_;
    PlaceList places_;
};

}  // namespace tavrel
