#include "disk/FolderPath.h"

#include "core/Paths.h"

#include <algorithm>
#include <utility>

namespace tavrel {

FolderPath::FolderPath(Path root, Path home) : root_(std::move(root)), home_(std::move(home)) {
    stack_ = wayTo(home_).value_or(Stack{root_});
}

void FolderPath::enter(const Path& folder) {
    // What is entered may still be a row of the folder that was left a moment ago.
    const auto holder = std::find(stack_.rbegin(), stack_.rend(), folder.parent_path());
    if (holder == stack_.rend()) return static_cast<void>(navigate(folder));
    ahead_.clear();
    stack_.erase(holder.base(), stack_.end());
    stack_.push_back(folder);
}

bool FolderPath::goBack() {
    if (isAtRoot()) return false;
    ahead_.push_back(std::move(stack_.back()));
    stack_.pop_back();
    return true;
}

bool FolderPath::goForward() {
    if (ahead_.empty()) return false;
    stack_.push_back(std::move(ahead_.back()));
    ahead_.pop_back();
    return true;
}

bool FolderPath::cutTo(std::size_t index) {
    if (index + 1 >= stack_.size()) return false;
    stack_.resize(index + 1);
    ahead_.clear();
    return true;
}

bool FolderPath::navigate(const Path& folder) {
    auto way = wayTo(folder);
    if (!way) return false;
    stack_ = std::move(*way);
    ahead_.clear();
    return true;
}

std::optional<FolderPath::Stack> FolderPath::wayTo(const Path& folder) const {
    const Path target = Paths::standardized(folder);
    Stack stack = {root_};
    if (target == root_) return stack;
    if (Paths::isInside(target.native(), home_.native())) {
        if (home_ != root_) stack.push_back(home_);
    } else if (!Paths::isInside(target.native(), root_.native())) {
        return std::nullopt;
    }
    const std::string rest = target.native().substr(stack.back().native().size());
    for (const std::string& name : Paths::components(rest)) stack.push_back(stack.back() / name);
    return stack;
}

}  // namespace tavrel
