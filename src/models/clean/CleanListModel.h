#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanPhase.h"
#include "cleaning/CleanTexts.h"
#include "models/clean/CleanServices.h"
#include "models/clean/CleanSession.h"
#include "models/program/Preferences.h"
#include "models/show/FileIcons.h"
#include "models/show/Sounds.h"
#include "models/show/SwallowFeed.h"
#include "models/support/Clock.h"

#include <QCoroTask>
#include <QObject>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace tavrel {

/// The one state machine behind every list of removable things: scan, review, clean, report. There is no way
/// back to idle and no cancel. Lives on the main thread.
class CleanListModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(Stage stage READ stage NOTIFY phaseChanged)
    Q_PROPERTY(bool working READ isWorking NOTIFY phaseChanged)
    Q_PROPERTY(bool preview READ isPreview NOTIFY phaseChanged)
    Q_PROPERTY(bool trashedSome READ trashedSome NOTIFY phaseChanged)
    Q_PROPERTY(QString reportText READ reportText NOTIFY phaseChanged)
    Q_PROPERTY(QString skippedReasons READ skippedReasons NOTIFY phaseChanged)
    Q_PROPERTY(bool reviewing READ reviewing WRITE setReviewing NOTIFY reviewingChanged)
    Q_PROPERTY(tavrel::SwallowFeed* feed READ feed NOTIFY feedChanged)
    Q_PROPERTY(int itemCount READ itemCount NOTIFY itemsChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(QString selectedSizeText READ selectedSizeText NOTIFY selectionChanged)

  public:
    using Items = std::vector<CleanItem>;
    using Found = std::shared_ptr<const Items>;
    /// Begins a search elsewhere, and calls `done` with what it found on the main thread, later.
    using Finder = std::function<void(std::function<void(const Found&)> done)>;
    using Selection = std::unordered_set<std::string>;
    using Phase = CleanPhase;

    /// The alternatives of `Phase`, for screens, which want capitals.
    enum class Stage { Idle, Scanning, Ready, Cleaning, Done };
    Q_ENUM(Stage)

    /// The items of one category, in the order of the list, as positions in it.
    struct Group {
        CleanCategory category = CleanCategory::userCaches;
        std::vector<std::size_t> items;
    };

    /// The show of a clean lasts at least this long, however fast the removal is; seconds.
    static constexpr double shortestShow = 3.6;

    /// `action` names the runs in the history.
    CleanListModel(std::string action, Finder finder, CleanServices services, QObject* parent = nullptr);
    ~CleanListModel() override;

    [[nodiscard]] const Items& items() const { return items_; }
    [[nodiscard]] const Selection& selection() const { return selection_; }
    [[nodiscard]] const Phase& phase() const { return phase_; }
    [[nodiscard]] bool reviewing() const { return reviewing_; }
    [[nodiscard]] SwallowFeed* feed() const { return feed_.get(); }
    [[nodiscard]] const std::string& action() const { return action_; }
    /// In the order of `CleanCategories::allCases`, without empty ones.
    [[nodiscard]] const std::vector<Group>& grouped() const { return groups_; }
    [[nodiscard]] Items selectedItems() const;
    [[nodiscard]] bool isSelected(const CleanItem& item) const { return selection_.contains(item.id()); }
    [[nodiscard]] CleanTexts::Figures figures() const;

    [[nodiscard]] Stage stage() const { return static_cast<Stage>(phase_.index()); }
    [[nodiscard]] bool isWorking() const { return tavrel::isWorking(phase_); }
    /// The report of the last clean; nullptr unless the list stands there.
    [[nodiscard]] const CleanReport* report() const;
    [[nodiscard]] bool isPreview() const { return report() != nullptr && report()->dryRun; }
    [[nodiscard]] bool trashedSome() const { return report() != nullptr && report()->trashed >= 1; }
    [[nodiscard]] QString reportText() const;
    [[nodiscard]] QString skippedReasons() const;
    [[nodiscard]] int itemCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] int selectedCount() const { return selectedCount_; }
    [[nodiscard]] std::int64_t selectedSize() const { return selectedSize_; }
    [[nodiscard]] QString selectedSizeText() const;

    void setReviewing(bool on);
    /// Admitted by the guard at clean time besides the home.
    void setExtraRoots(std::vector<std::filesystem::path> roots) { extraRoots_ = std::move(roots); }

    /// Looks anew, unless the list is working.
    Q_INVOKABLE void scan();
    /// Removes what is selected, unless the list is working or nothing is.
    Q_INVOKABLE void clean();
    /// Where every one of these ids is selected, takes them all out; otherwise puts them all in.
    void toggle(const std::vector<std::string>& paths);

  Q_SIGNALS:
    void phaseChanged();
    void reviewingChanged();
    void feedChanged();
    void itemsChanged();
    void selectionChanged();

  private:
    [[nodiscard]] std::optional<CleanReport> begin(const Items& chosen);
    void advance(double fraction);
    [[nodiscard]] QCoro::Task<> endShow(CleanRunner::Report report);
    void startFeed(const Items& chosen);
    void drop(const Items& removed);
    void finish(const CleanReport& report);
    void setItems(Items items);
    void setPhase(Phase phase);
    void setFeed(std::unique_ptr<SwallowFeed> feed);
    void selectionWasChanged();

    Items items_;
    Selection selection_;
    Phase phase_;
    bool reviewing_ = false;
    std::unique_ptr<SwallowFeed> feed_;
    QCoro::Task<> show_;  // of the feed
    std::string action_;
    std::vector<std::filesystem::path> extraRoots_;
    Finder finder_;

    CleanServices services_;
    CleanSession session_;
    std::vector<Group> groups_;
    int selectedCount_ = 0;
    std::int64_t selectedSize_ = 0;
    std::int64_t totalSize_ = 0;
};

}  // namespace tavrel
