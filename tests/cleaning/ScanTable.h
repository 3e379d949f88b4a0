#pragma once

#include "cleaning/JunkScanner.h"
#include "sample/SampleMac.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tavrel::testing {

/// Puts things on a disk and expects that a scan finds what it should and nothing else, from a table with a
/// line each: "path | bytes | days old | risk | note". A path that ends in "/" is a folder with one such
/// file; without bytes nothing is put there. What has no risk is not to be found; a note that is left out may
/// be any.
void expectScan(const sample::SampleMac& mac, const std::string& table,
                const std::function<std::vector<CleanItem>()>& scan);

/// Applications of a machine that has none.
struct NoApplications : ApplicationNames {
    [[nodiscard]] std::optional<std::string> displayName(const std::string& /*id*/) const override {
        return {};
    }
};

/// What the scanner of the system finds on a disk whose machine does not run: no tool answers, no application
/// is known.
[[nodiscard]] std::vector<CleanItem> systemScan(const Profile& profile, const JunkScanner::Context& context,
                                                const std::set<CleanCategory>& categories,
                                                const ApplicationNames& names = NoApplications());

}  // namespace tavrel::testing
