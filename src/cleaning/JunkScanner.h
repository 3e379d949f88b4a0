#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanRule.h"
#include "cleaning/Manner.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/SpecialScanners.h"
#include "core/Instant.h"
#include "platform/RunningApplications.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// Turns the catalog into the list that a person reviews. It only reads. A scan never fails and keeps
/// nothing.
class JunkScanner {
  public:
    /// What a profile knows of its system, beside the rows of the catalog.
    struct Tables {
        std::vector<CleanRule> rules;
        Manner manner;
        std::string systemCachePrefix;  // caches of this name are the system's own: always `review`
        std::vector<SpecialScanners::WebCachePlaces> webCaches;
        std::vector<SpecialScanners::ContainerPlace> containers;
        SpecialScanners::SystemPlaces system;
        /// Looks for the user's Trashes on the mounted volumes. Blocks as long as a volume does not answer.
        std::function<SpecialScanners::VolumeTrashes()> volumeTrashes = [] {
            return SpecialScanners::VolumeTrashes();
        };
        std::optional<std::filesystem::path> homeTrash;  // where no rule takes what lies in it
        std::optional<SpecialScanners::SharedRuntimes> userRuntimes;
        int trashReviewDays = 0;  // see SpecialScanners::trashed

        /// Folders that hold one copy a version, of which the newest may still be in use.
        struct Versioned {
            enum class Key { firstWord, letters };  // the part of a name that entries of one product share

            std::string parentSuffix;
            Key key = Key::firstWord;
            std::string newestNote;
            std::string olderNote;
            Risk olderRisk = Risk::safe;
        };
        std::vector<Versioned> versioned;
    };

    struct Context {
        std::filesystem::path root;  // absolute rows are looked for below it
        std::filesystem::path home;  // resolved
        SafetyGuard safety;
        RunningApplications running;
        std::optional<std::string> ownBundleID;
        bool hasFullDiskAccess = false;
        Instant now;
    };

    using Progress = std::function<void(CleanCategory)>;

    /// What the tools of the system are asked through; borrowed for the life of the scanner.
    JunkScanner(Tables tables, Shell& shell, const ApplicationNames& names);

    /// The categories of the Clean tab's system mode.
    [[nodiscard]] static const std::set<CleanCategory>& systemCategories();

    /// Items of the asked categories, largest first. `progress` is called on this thread when a rule or a
    /// special scanner is entered.
    [[nodiscard]] std::vector<CleanItem> scan(const std::set<CleanCategory>& categories,
                                              const Context& context, const Progress& progress) const;

  private:
    Tables tables_;
    Shell& shell_;
    const ApplicationNames& names_;
};

}  // namespace tavrel
