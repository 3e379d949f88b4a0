#pragma once

#include "cleaning/CleanCategory.h"
#include "cleaning/Risk.h"

#include <set>
#include <string>

namespace tavrel {

/// One row of the catalog: where to look, and how to treat what lies there.
struct CleanRule {
    struct Mode {
        enum class Kind { files, whole, children };

        Kind kind = Kind::whole;
        std::set<std::string> extensions;  // of `files`: lower case, without the dot

        /// The entries of the folder whose extension is in the set.
        static Mode files(std::set<std::string> extensions) { return {Kind::files, std::move(extensions)}; }
        /// The path itself is the one candidate.
        static Mode whole() { return {Kind::whole, {}}; }
        /// Each entry of the folder is a candidate.
        static Mode children() { return {Kind::children, {}}; }

        bool operator==(const Mode&) const = default;
    };

    CleanCategory category = CleanCategory::userCaches;
    std::string path;  // "~/" and a path below the home, or an absolute path
    Mode mode;
    Risk risk = Risk::review;
    std::string note;
    int minAgeDays = 0;  // what was modified more recently does not qualify; 0 takes everything
    bool permanent = false;
    int reviewWithinDays = 0;  // what was modified more recently is `review`; 0 leaves the risk alone
    std::string owner;         // a program whose running makes the items `review`, beside the item's own name

    bool operator==(const CleanRule&) const = default;
};

}  // namespace tavrel
