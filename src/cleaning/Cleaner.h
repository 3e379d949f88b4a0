#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanReport.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/Trash.h"
#include "core/Instant.h"
#include "platform/Administrator.h"
#include "platform/RunningApplications.h"
#include "platform/Shell.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// Removes what a person agreed to. Each item is vetted again at the moment of action, then deleted, moved to
/// the Trash, or left to root in one batch; the report gives its outcome and the history records the run.
class Cleaner {
  public:
    /// What a clean asks of the system, borrowed for the life of the cleaner.
    struct Tools {
        const FolderAccess& access;
        Trash& trash;
        Administrator& administrator;
        std::vector<std::filesystem::path> systemRoots;  // where root may remove
        std::filesystem::path history;                   // the file of the record
        std::function<Instant()> now;
        /// What runs at the moment of the call; may be empty where nothing can be at work with the items.
        std::function<RunningApplications()> running = {};
        Shell* shell = nullptr;  // runs the commands of items that need no root; without it they are skipped
    };

    struct Options {
        bool dryRun = false;
        bool alwaysTrash = false;
    };

    using Progress = std::function<void(double fraction)>;

    explicit Cleaner(Tools tools) : tools_(std::move(tools)) {}

    /// Categories whose safe items may be deleted outright instead of going to the Trash.
    [[nodiscard]] static const std::set<CleanCategory>& direct();

    /// `action` is the word in the history. `progress` is called after each ordinary item with the share of
    /// all items that is done, so a run with administrator items ends short of 1. Nothing that goes wrong
    /// with one item ends the run.
    [[nodiscard]] CleanReport clean(const std::vector<CleanItem>& items, const std::string& action,
                                    const SafetyGuard& safety, Options options,
                                    const Progress& progress) const;

    /// Deletes everything in the home Trash, which is the user's and so not vetted; the folder stays. Bytes
    /// removed.
    [[nodiscard]] static std::int64_t emptyTrash(const FolderAccess& access, Trash& trash);

  private:
    enum class Disposal { erase, trash };

    [[nodiscard]] static Disposal disposal(const CleanItem& item, Options options);
    /// Where the thing lies in the Trash; an empty path when it is deleted.
    [[nodiscard]] Trash::Expected<Trash::Trashed> dispose(const Removal::Target& target, Disposal how) const;
    /// What root is to do to remove the item; nothing when it is gone. The error says why root may not.
    [[nodiscard]] tl::expected<std::optional<RootStep>, std::string> rootStep(const CleanItem& item,
                                                                              const SafetyGuard& guard) const;

    /// What runs, no older than a second.
    class Watch;

    void runCommand(const CleanItem& item, Options options, CleanReport& report) const;
    void cleanOne(const CleanItem& item, const SafetyGuard& safety, Options options, Watch& watch,
                  CleanReport& report) const;
    void cleanWithAdmin(const std::vector<CleanItem>& items, const SafetyGuard& safety, Options options,
                        CleanReport& report) const;

    Tools tools_;
};

}  // namespace tavrel
