#pragma once

#include "support/Sandbox.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

/// Trees that are hard to measure.
namespace tavrel::testing {

struct Tree {
    std::string name;
    std::function<void(const Sandbox&)> grow;
};

void PrintTo(const Tree& tree, std::ostream* out);

/// Each small enough to be named in full by a path.
const std::vector<Tree>& hostileTrees();

/// `depth` nested folders below the sandbox, of two-letter names, with a file in some. With teeth each has a
/// second sub-folder, so that every level is left open on the way down.
enum class Teeth { none, one };
void growDeep(const Sandbox& sandbox, int depth, Teeth teeth);

/// Small folders of `names` names each: files, and after a few of them further names of those.
void growBroad(const Sandbox& sandbox, int folders, int names);

}  // namespace tavrel::testing
