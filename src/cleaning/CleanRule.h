#pragma once

#include "cleaning/CleanCategory.h"
#include "cleaning/Risk.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

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
    /// "~/" and a path below the home, or an absolute path. A part with a "*" stands for every name that it
    /// fits.
    std::string path;
    Mode mode;
    Risk risk = Risk::review;
    std::string note;
    int minAgeDays = 0;  // what was modified more recently does not qualify; 0 takes everything
    bool permanent = false;
    int reviewWithinDays = 0;          // what was modified more recently is `review`; 0 leaves the risk alone
    std::string magic;                 // a candidate is a file that begins with these bytes; empty: anything
    std::int64_t minItemSize = 65536;  // bytes; nothing smaller is worth a line
    bool toTrash = false;              // see CleanItem
    std::vector<std::string> owners;   // programs that use the items, beside those of the item's own name
    std::vector<std::string> profiles;  // of the owners, like `path`; a part "*" is the item's own name
    std::vector<std::string> keeps;     // entries of a `whole` folder that stay, so that its others are items
    bool onlyOfInstalled = false;       // of a program that is not installed the item is `review`

    bool operator==(const CleanRule&) const = default;
};

}  // namespace tavrel
