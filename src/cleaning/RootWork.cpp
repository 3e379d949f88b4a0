#include "cleaning/RootWork.h"

#include "cleaning/Removal.h"
#include "core/Paths.h"
#include "platform/posix/RootOwnedFolders.h"
#include "platform/root/LastLine.h"

#include <algorithm>

namespace tavrel {

namespace {

using Path = std::filesystem::path;

/// Whether the text means one place and no other, however it is read.
bool isUnambiguous(const Path& path) {
    return path.native().find('\0') == std::string::npos &&
           Paths::standardized(path).native() == path.native();
}

}  // namespace

StepResult RootWork::perform(const RootStep& step) const {
    if (const auto* entry = std::get_if<EntryRemoval>(&step)) return remove(*entry);
    return run(std::get<ToolRun>(step));
}

const Path* RootWork::folderAbove(const Path& path) const {
    if (!isUnambiguous(path)) return nullptr;
    const auto folder = std::find_if(rules_.folders.begin(), rules_.folders.end(), [&](const Path& each) {
        return path != each && Paths::isInside(path.native(), each.native());
    });
    return folder == rules_.folders.end() ? nullptr : &*folder;
}

StepResult RootWork::remove(const EntryRemoval& entry) const {
    const Path* folder = folderAbove(entry.path);
    if (folder == nullptr) return StepResult::refused(RootRefusal::outside);
    if (!onlyRootCanReplaceFoldersAbove(entry.path, rules_.alsoTrusted))
        return StepResult::refused(RootRefusal::replaceable);
    const auto below = std::string_view(entry.path.native()).substr(folder->native().size());
    const Removal::Target target{.root = *folder, .components = Paths::components(below), .seen = entry.seen};
    const auto outcome = Removal::erase(access_, target);
    return outcome ? StepResult::done() : StepResult::failed(outcome.error().reason);
}

StepResult RootWork::run(const ToolRun& run) const {
    const RootTools::Row* row = RootTools::find(rules_.tools, run.tool);
    if (row == nullptr) return StepResult::refused(RootRefusal::notUnderstood);
    const auto words = RootTools::words(*row, run.arguments);
    if (!words) return StepResult::refused(RootRefusal::badArguments);
    if (!onlyRootCanChangeProgram(row->program, rules_.alsoTrusted))
        return StepResult::refused(RootRefusal::toolMissing);
    const CommandResult ended = shell_.run(row->program, *words, rules_.toolLimit);
    return ended.status == 0 ? StepResult::done() : StepResult::failed(lastLine(ended.output));
}

}  // namespace tavrel
