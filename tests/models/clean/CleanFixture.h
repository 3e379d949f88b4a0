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

#include <cstdint>
#include <functional>
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

    void begin(std::function<void(Result)> done) {
        ++begun;
        done_ = std::move(done);
    }
    void end(Result result) { std::exchange(done_, nullptr)(std::move(result)); }
    [[nodiscard]] bool isRunning() const { return done_ != nullptr; }

  private:
    std::function<void(Result)> done_;
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

    void clean(CleanJob job, Done<Report> done) override {
        jobs.push_back(std::move(job));
        cleaning.begin(std::move(done));
    }
    void emptyTrash(Done<std::int64_t> done) override { emptying.begin(std::move(done)); }
    void findTrashed(std::vector<History::Entry> /*entries*/, Done<Runs> done) override {
        finding.begin(std::move(done));
    }
    void restore(std::vector<Restorer::Item> items, Done<RestoreReport> done) override {
        asked = std::move(items);
        restoring.begin(std::move(done));
    }
    void report(const CleanReport& report) { cleaning.end(std::make_shared<const CleanReport>(report)); }
};

/// A list of removable things whose searches and removals end when the test says so, with everything that it
/// asks for, in time that stands still.
class CleanFixture {
  public:
    using Items = CleanListModel::Items;
    using Stage = CleanListModel::Stage;

    /// `settings` is the content of the file with the preferences; none when absent.
    explicit CleanFixture(const std::string& action = "clean",
                          const std::optional<std::string>& settings = {});
    /// The work that is still held ends after the list is gone.
    ~CleanFixture();
    CleanFixture(const CleanFixture&) = delete;
    CleanFixture& operator=(const CleanFixture&) = delete;

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
