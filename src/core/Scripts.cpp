#include "core/Scripts.h"

namespace tavrel::Scripts {

std::string statusBatch(const std::vector<std::string>& commands) {
    std::string script = "status=0; ";
    for (const std::string& command : commands) script += command + " || status=1; ";
    return script + "exit $status";
}

}  // namespace tavrel::Scripts
