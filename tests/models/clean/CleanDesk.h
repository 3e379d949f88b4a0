#pragma once

#include "core/UserDefaults.h"
#include "models/clean/CleanListModel.h"
#include "models/program/Preferences.h"
#include "models/show/FakeIconSource.h"
#include "models/show/FileIcons.h"
#include "models/show/Shockwave.h"
#include "models/show/Sounds.h"
#include "support/EventLoop.h"
#include "support/FakeSoundPlayer.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <QPromise>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::testing {

/// Work that ends when the test says so.
template <typename Result>
class Held {
  public:
    int begun = 0;

    [[nodiscard]] QFuture<Result> begin() {
        ++begun;
        promise_ = QPromise<Result>();
        promise_.start();
        running_ = true;
        return promise_.future();
    }
    void end(Result result) {
        promise_.addResult(std::move(result));
        promise_.finish();
        running_ = false;
        settle();
    }
    [[nodiscard]] bool isRunning() const { return running_; }

  private:
    QPromise<Result> promise_;
    bool running_ = false;
};

/// Removes nothing, notes what it is asked for and reports what the test wants.
class HeldRunner final : public CleanRunner {
  public:
    std::vector<CleanJob> jobs;
    Held<Report> cleaning;
    Held<std::int64_t> emptying;
    Held<Runs> finding;
    Held<RestoreReport> restoring;
    std::vector<Restorer::Item> asked;

    [[nodiscard]] QFuture<Report> clean(CleanJob job) override {
        jobs.push_back(std::move(job));
        return cleaning.begin();
    }
    [[nodiscard]] QFuture<std::int64_t> emptyTrash() override { return emptying.begin(); }
    [[nodiscard]] QFuture<Runs> findTrashed(std::vector<History::Entry> /*entries*/) override {
        return finding.begin();
    }
    [[nodiscard]] QFuture<RestoreReport> restore(std::vector<Restorer::Item> items) override {
        asked = std::move(items);
        return restoring.begin();
    }
    void report(const CleanReport& report) { cleaning.end(std::make_shared<const CleanReport>(report)); }
};

/// A list of removable things whose searches and removals end when the test says so, with everything that it
/// asks for, in time that stands still.
class CleanDesk {
  public:
    using Items = CleanListModel::Items;
    using Stage = CleanListModel::Stage;

    /// `settings` is the content of the file with the preferences; none when absent.
    explicit CleanDesk(const std::string& action = "clean", const std::optional<std::string>& settings = {});
    /// The work that is still held ends after the list is gone.
    ~CleanDesk();
    CleanDesk(const CleanDesk&) = delete;
    CleanDesk& operator=(const CleanDesk&) = delete;

    /// A whole scan with this result.
    void find(const Items& items);
    void endScan(const Items& items) { search.end(std::make_shared<const Items>(items)); }
    /// A whole clean with this result, its show included.
    void clean(const CleanReport& report);
    /// Brings a fresh desk to this stage; one item is selected from `ready` on.
    void reach(Stage stage);

    [[nodiscard]] std::set<std::string> selected() const {
        return {list->selection().begin(), list->selection().end()};
    }
    [[nodiscard]] static std::vector<std::string> names(const Items& items);

    const Sandbox sandbox;
    UserDefaults defaults;
    Preferences preferences;
    ManualClock clock;
    FakeIconSource iconSource;
    FileIcons icons{iconSource, {}};
    Shockwave shockwave;
    FakeSoundPlayer player;
    Sounds sounds{preferences, shockwave, player, clock};
    HeldRunner runner;
    Held<CleanListModel::Found> search;
    std::unique_ptr<CleanListModel> list;
};

/// Things that are nowhere on disk.
[[nodiscard]] inline CleanItem safeItem(const std::string& path, std::int64_t size = 1'000,
                                        CleanCategory category = CleanCategory::userCaches) {
    return {.url = path, .size = size, .category = category, .risk = Risk::safe};
}
[[nodiscard]] inline CleanItem reviewItem(const std::string& path, std::int64_t size = 1'000,
                                          CleanCategory category = CleanCategory::userCaches) {
    return {.url = path, .size = size, .category = category, .risk = Risk::review};
}

}  // namespace tavrel::testing
