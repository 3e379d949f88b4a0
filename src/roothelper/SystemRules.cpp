#include "platform/root/RootFolders.h"
#include "roothelper/HelperRules.h"

namespace tavrel {

HelperRules helperRules() {
    return {
        .work = {.folders = {linuxRootFolders.begin(), linuxRootFolders.end()}, .tools = RootTools::all()}};
}

}  // namespace tavrel
