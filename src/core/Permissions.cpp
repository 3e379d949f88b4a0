#include "core/Permissions.h"

#include "core/FileHandle.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel::Permissions {
namespace {

/// Guarded folders may answer every question about themselves and still refuse to be listed: only reading
/// proves the access.
bool isReadable(const std::filesystem::path& path) {
    struct stat status {};
    if (::access(path.c_str(), R_OK) != 0 || ::stat(path.c_str(), &status) != 0) return false;
    if (S_ISDIR(status.st_mode)) {
        DIR* folder = ::opendir(path.c_str());
        return folder != nullptr && ::closedir(folder) == 0;
    }
    // A pipe in the place of the file must not hold the caller up.
    return static_cast<bool>(FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)));
}

}  // namespace

bool hasFullDiskAccess(const std::filesystem::path& home, std::span<const std::string_view> probes) {
    return probes.empty() || std::any_of(probes.begin(), probes.end(), [&home](std::string_view probe) {
               return isReadable(home / probe);
           });
}

}  // namespace tavrel::Permissions
