#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanReport.h"
#include "cleaning/SafetyGuard.h"
#include "core/Places.h"
#include "disk/AnalyzeEntry.h"
#include "disk/FolderPath.h"
#include "models/analyze/AnalyzeContent.h"
#include "models/analyze/AnalyzeSelection.h"
#include "models/analyze/DiskWork.h"
#include "models/analyze/SizeService.h"
#include "models/clean/CleanSession.h"
#include "models/program/Preferences.h"
#include "models/support/Clock.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavrel {

/// What the explorer is made over; everything outlives it.
struct AnalyzeServices {
    Places places;
    Clock& clock;
    Preferences& preferences;
    SizeService& sizes;
    DiskWork& work;
    CleanRunner& runner;
    std::function<SafetyGuard()> safetyGuard;  // of the moment of the call
};

/// The disk explorer: the folder that is looked at, its things with their sizes as they come in, what is
/// marked for removal, and the removal. What a person has left is no longer measured. Lives on the main
/// thread.
class AnalyzeModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool atRoot READ isAtRoot NOTIFY pathChanged)
    Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY pathChanged)
    Q_PROPERTY(QStringList crumbs READ crumbs NOTIFY pathChanged)
    Q_PROPERTY(QString title READ title NOTIFY pathChanged)
    Q_PROPERTY(QString folder READ folder NOTIFY pathChanged)
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(bool listing READ isListing NOTIFY listingChanged)
    Q_PROPERTY(int count READ count NOTIFY entriesChanged)
    Q_PROPERTY(QString totalText READ totalText NOTIFY entriesChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY entriesChanged)
    Q_PROPERTY(QString filesText READ filesText NOTIFY entriesChanged)
    Q_PROPERTY(QString measuringText READ measuringText NOTIFY entriesChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(QString selectionText READ selectionText NOTIFY selectionChanged)
    Q_PROPERTY(QString questionText READ questionText NOTIFY selectionChanged)
    Q_PROPERTY(bool allSelected READ allSelected NOTIFY selectionChanged)
    Q_PROPERTY(bool removing READ isRemoving NOTIFY removalChanged)
    Q_PROPERTY(bool hasLastRemoval READ hasLastRemoval NOTIFY removalChanged)
    Q_PROPERTY(QString lastRemovalText READ lastRemovalText NOTIFY removalChanged)
    Q_PROPERTY(QString lastRemovalReasons READ lastRemovalReasons NOTIFY removalChanged)

  public:
    using Path = std::filesystem::path;
    using Id = AnalyzeContent::Id;
    using Entries = std::vector<AnalyzeEntry>;

    enum class Mode { Folders, LargeFiles };
    Q_ENUM(Mode)

    /// Figures that come in are shown at most this often.
    static constexpr std::chrono::milliseconds publishPause{250};
    static constexpr std::size_t mostSubSlices = 24;

    explicit AnalyzeModel(AnalyzeServices services, QObject* parent = nullptr);
    ~AnalyzeModel() override;

    [[nodiscard]] const FolderPath::Stack& path() const { return path_.stack(); }
    [[nodiscard]] const Path& currentFolder() const { return path_.current(); }
    [[nodiscard]] bool isAtRoot() const { return path_.isAtRoot(); }
    [[nodiscard]] const AnalyzeContent& content() const { return content_; }
    /// Another number means other things altogether; while it stays, ids stay what they are.
    [[nodiscard]] std::uint64_t contentNumber() const { return contentNumber_; }
    [[nodiscard]] const Entries& entries() const { return content_.entries(); }
    /// Of the entries that are large enough for an arc of their own.
    [[nodiscard]] const SubSlices& subSlices() const { return subSlices_; }
    [[nodiscard]] const std::optional<AnalyzeFocus>& focus() const { return focus_; }
    /// The report of the last removal; nullptr before the first.
    [[nodiscard]] const CleanReport* lastRemoval() const { return lastRemoval_.get(); }
    [[nodiscard]] std::set<std::string> selection() const;
    [[nodiscard]] bool canGoForward() const { return path_.canGoForward(); }
    [[nodiscard]] QStringList crumbs() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString folder() const;  // its path, for reading
    [[nodiscard]] Mode mode() const { return mode_; }
    [[nodiscard]] bool isListing() const { return listing_; }
    [[nodiscard]] int count() const { return static_cast<int>(entries().size()); }
    [[nodiscard]] int pendingCount() const { return static_cast<int>(content_.pendingCount()); }
    [[nodiscard]] std::int64_t total() const { return content_.total(); }
    [[nodiscard]] std::int64_t totalFiles() const { return content_.totalFiles(); }
    [[nodiscard]] QString totalText() const;
    [[nodiscard]] QString countText() const;
    [[nodiscard]] QString filesText() const;
    [[nodiscard]] QString measuringText() const;  // empty when all is measured
    [[nodiscard]] int selectedCount() const { return static_cast<int>(selection_.count()); }
    [[nodiscard]] std::int64_t selectedSize() const { return selection_.size(); }
    [[nodiscard]] QString selectionText() const;
    [[nodiscard]] QString questionText() const;
    /// Whether everything that can be removed is selected; never before that is known of everything.
    [[nodiscard]] bool allSelected() const;
    [[nodiscard]] bool isRemoving() const { return removing_; }
    [[nodiscard]] bool hasLastRemoval() const { return lastRemoval_ != nullptr; }
    [[nodiscard]] QString lastRemovalText() const;
    [[nodiscard]] QString lastRemovalReasons() const;

    /// Lists the current folder, or looks for the large files in it.
    Q_INVOKABLE void load();
    /// Measures everything anew.
    Q_INVOKABLE void rescan();
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void goForward();
    Q_INVOKABLE void goTo(int index);
    Q_INVOKABLE void navigateTo(const QUrl& folder);
    /// Goes to a folder by the way over the root and the home; one outside the disk changes nothing.
    void navigate(const Path& to);
    /// Only folders are opened, and only while folders are shown.
    void open(const AnalyzeEntry& entry);
    void open(const SubSlice& slice);
    void setMode(Mode mode);
    void setFocus(std::optional<AnalyzeFocus> focus);
    /// Clears the focus if it still is this one.
    void clearFocus(const AnalyzeFocus& focus);
    /// The entry that is highlighted itself, or by a slice of it.
    [[nodiscard]] std::optional<Id> lit() const { return lit_; }

    [[nodiscard]] bool canRemove(const AnalyzeEntry& entry) const { return refusal(entry).empty(); }
    /// The guard's words on why an entry cannot be removed; empty when it can.
    [[nodiscard]] std::string refusal(const AnalyzeEntry& entry) const;
    /// The same without asking the guard: nullptr while its words are awaited.
    [[nodiscard]] const std::string* knownRefusal(Id id) const { return selection_.refusal(id); }

    [[nodiscard]] bool isSelected(Id id) const { return selection_.holds(id); }
    void toggleSelection(const AnalyzeEntry& entry);
    /// Selects everything that can be removed or, when all of it is selected, nothing.
    Q_INVOKABLE void toggleAll();
    Q_INVOKABLE void clearSelection();

    /// Moves things to the Trash, unless a removal runs. What lies in another of them goes with that.
    void trash(const Entries& entries);
    Q_INVOKABLE void trashSelected();

  Q_SIGNALS:
    void pathChanged();
    void modeChanged();
    void listingChanged();
    void entriesChanged();
    void focusChanged();
    void selectionChanged();
    void removalChanged();
    void refusalsChanged();

  private:
    /// What a removal took, on its way out of what is shown.
    struct Leaving {
        bool isComplete = true;           // whether the report covers all items
        std::uint64_t contentNumber = 0;  // to which the ids belong
        std::vector<Id> ids;
        std::size_t forgotten = 0;  // of those in the report
    };
    static constexpr std::size_t forgottenAtOnce = 4000;

    void move(bool moved);
    void show(AnalyzeContent content);
    void measurePending();
    void measured(Id id, const DiskIndex::Info& info);
    void stalled(Id id);
    void publishSoon();
    void publish();
    void updateSubSlices();
    void vet();
    void vetted(const DiskWork::Reasons& reasons);
    [[nodiscard]] const std::string& refusal(Id id) const;
    void selectionWasChanged();
    void setListing(bool on);
    void begin(std::vector<CleanItem> items);
    void finishRemoval(const CleanRunner::Report& report, std::size_t asked);
    void forgetAll(Leaving leaving);
    void forget(const std::vector<std::string_view>& paths);
    void leave(const Leaving& leaving);
    void takeOut(const std::vector<Id>& ids);
    [[nodiscard]] bool leaveRemoved(const CleanReport& report);
    void endRemoval();

    AnalyzeServices services_;
    CleanSession session_;
    FolderPath path_;
    Mode mode_ = Mode::Folders;
    bool listing_ = false;

    AnalyzeContent content_;
    std::uint64_t contentNumber_ = 0;
    SubSlices subSlices_;
    std::optional<AnalyzeFocus> focus_;
    std::optional<Id> lit_;

    // One load. Its answers are dropped if another load has begun.
    std::uint64_t generation_ = 0;
    std::stop_source loadStop_;
    std::vector<Id> pending_;  // to be asked for, the next one last
    std::unordered_map<Id, std::shared_ptr<SizeService::Wait>> waits_;
    std::unordered_map<Id, std::shared_ptr<SizeService::Wait>>
        stalledWaits_;  // these keep no other from asking
    bool asking_ = false;
    bool publishDue_ = false;
    Instant nextPublish_ = distantPast;  // not before

    mutable AnalyzeSelection selection_;  // keeps what the guard was asked
    std::stop_source vetStop_;

    bool removing_ = false;
    CleanRunner::Report lastRemoval_;
};

}  // namespace tavrel
