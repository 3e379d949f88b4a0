#pragma once

#include "models/analyze/AnalyzeModel.h"
#include "models/clean/CleanFixture.h"
#include "models/program/Preferences.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::testing {

/// Disk work that is done when the test says so, with the result that it says.
class HeldDiskWork final : public DiskWork {
  public:
    template <typename Result>
    struct Call {
        Path path;
        std::stop_token stop;
        Done<Result> done;
    };
    std::vector<Call<SizeFindings>> walks;
    std::vector<std::string> begunWalks;
    std::map<std::string, Progress> progress;
    std::vector<Call<FolderListing>> listings;
    std::vector<Call<LargeFiles>> searches;
    std::vector<Call<Reasons>> vettings;
    std::vector<std::pair<SafetyGuard, FolderListing::Paths>> vetted;

    void measure(Path path, std::stop_token stop, Progress counter, Done<SizeFindings> done) override {
        begunWalks.push_back(path.native());
        progress[path.native()] = std::move(counter);
        walks.push_back({std::move(path), std::move(stop), std::move(done)});
    }
    void list(Path folder, std::stop_token stop, Done<FolderListing> done) override {
        listings.push_back({std::move(folder), std::move(stop), std::move(done)});
    }
    void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) override {
        searches.push_back({std::move(under), std::move(stop), std::move(done)});
    }
    void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
             Done<Reasons> done) override {
        vettings.push_back({{}, std::move(stop), std::move(done)});
        vetted.emplace_back(std::move(guard), std::move(paths));
    }

    void findPlaces(PlaceFinder find, Done<FoundPlaces> done) override { done(find()); }
    void discard(std::shared_ptr<void> /*something*/) override {}

    /// Ends the walk of a path that began last.
    void endWalk(const Path& path, const DiskIndex::Measurement& found) {
        const auto call =
            std::find_if(walks.rbegin(), walks.rend(), [&](auto& each) { return each.path == path; });
        if (call == walks.rend()) throw std::runtime_error("no walk of " + path.native());
        const auto done = std::move(call->done);
        walks.erase(std::next(call).base());
        done(SizeFindings::of(found));
    }
    void endVetting() {
        Reasons reasons;
        for (const std::string& path : *vetted.back().second)
            reasons.push_back(vetted.back().first.check(path).reason());
        vettings.back().done(std::move(reasons));
    }
};

/// The explorer over a disk that the test makes up, in time that stands still.
class ExplorerFixture {
  public:
    using Path = std::filesystem::path;
    /// What a folder holds: bytes of a file; no bytes for a folder.
    using Things = std::map<std::string, std::optional<std::int64_t>>;

    ExplorerFixture() {
        model = std::make_unique<AnalyzeModel>(AnalyzeServices{
            .places = {sandbox.root(), home(), {}},
            .clock = clock,
            .preferences = preferences,
            .sizes = sizes,
            .work = work,
            .runner = runner,
            .safetyGuard =
                [this] {
                    return SafetyGuard{
                        home(), preferences.values().protectedPaths, {}, {.neverRemove = {"", "kept"}}};
                },
        });
    }
    ~ExplorerFixture() {
        model.reset();
        if (runner.cleaning.isRunning()) runner.report({});
    }
    ExplorerFixture(const ExplorerFixture&) = delete;
    ExplorerFixture& operator=(const ExplorerFixture&) = delete;

    [[nodiscard]] Path home() const { return sandbox.root() / "home"; }
    [[nodiscard]] Path at(const std::string& name) const { return home() / name; }

    /// The listing that was begun last ends with these.
    void endListing(const Things& things) {
        FolderListing listing;
        auto paths = std::make_shared<std::vector<std::string>>();
        const auto call = work.listings.back();
        work.listings.pop_back();
        for (const auto& [name, bytes] : things) {
            const bool isPackage = name.ends_with(".app");
            AnalyzeEntry entry{.url = call.path / name, .size = bytes, .isFolder = !bytes && !isPackage};
            if (bytes) entry.files = 1;
            listing.all.push_back(std::move(entry));
            paths->push_back(listing.all.back().url.native());
        }
        listing.paths = std::move(paths);
        call.done(std::move(listing));
    }
    void load(const Things& things) {
        model->load();
        endListing(things);
    }
    void measured(const std::string& name, std::int64_t size, std::int64_t files = 1) {
        work.endWalk(at(name), {.size = size, .files = files, .folders = {}});
    }
    /// The removal ends so; its rows go in an event of their own.
    void report(const CleanReport& report) {
        runner.report(report);
        settle();
    }
    [[nodiscard]] AnalyzeEntry entry(const std::string& name) const {
        const auto id = model->content().find(at(name).native());
        return id ? model->content().entry(*id) : AnalyzeEntry{.url = at(name)};
    }
    /// Names in the order of the list, those that are not measured with a question mark.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& each : model->entries())
            all.push_back(each.url.filename().native() + (each.size ? "" : "?"));
        return all;
    }

    const Sandbox sandbox;
    UserDefaults defaults{sandbox.path("settings.plist")};
    Preferences preferences{defaults, home()};
    ManualClock clock;
    HeldDiskWork work;
    SizeService sizes{work, clock, 4};
    HeldRunner runner;
    std::unique_ptr<AnalyzeModel> model;
};

}  // namespace tavrel::testing
