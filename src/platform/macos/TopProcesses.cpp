#include "platform/macos/TopProcesses.h"

#include "platform/macos/TopReport.h"

namespace tavrel {

std::vector<ProcessInfo> TopProcesses::snapshot() {
    using namespace std::chrono_literals;
    const CommandResult result = shell_.run(
        "/usr/bin/top",
        {"-l", "2", "-s", "1", "-n", "60", "-o", "cpu", "-stats", "pid,command,cpu,mem,power"}, 10s);
    if (result.status != 0) return {};
    return TopReport::processes(result.output);
}

}  // namespace tavrel
