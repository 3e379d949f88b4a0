// The rules of the helper that the tests start: one folder of theirs, tools of theirs, short limits. The
// variables are read by these rules alone; the program's own know no variable.

#include "roothelper/HelperRules.h"

#include <cstdlib>
#include <string>
#include <unistd.h>

namespace tavrel {

HelperRules helperRules() {
    const char* given = std::getenv("TEST_ROOT");
    const std::filesystem::path root = given == nullptr ? "/nonexistent" : given;
    const auto tool = [&](const char* name) { return (root / "tools" / name).native(); };
    using RootTools::Argument;
    return {
        .work =
            {.folders = {root / "log", root / "link"},
             .tools = {{RootTool::vacuumJournal, "vacuum-journal", tool("good"), {"{}"}, {Argument::number}},
                       {RootTool::cleanAptCache, "clean-apt-cache", tool("failing")},
                       {RootTool::cleanDnfCache, "clean-dnf-cache", tool("stubborn")},
                       {RootTool::thinPacmanCache, "thin-pacman-cache", tool("slow")},
                       {RootTool::uninstallRuntime, "uninstall-runtime", tool("missing")}},
             .alsoTrusted = ::geteuid(),
             .toolLimit = std::chrono::milliseconds(300)},
        .mostSteps = 1000,
        .mostBytes = 16'000'000,
        .idle = std::chrono::milliseconds(1500),
        .step = std::chrono::milliseconds(900)};
}

}  // namespace tavrel
