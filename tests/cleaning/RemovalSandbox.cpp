#include "cleaning/RemovalSandbox.h"

#include "cleaning/FlatTrash.h"
#include "cleaning/FreedesktopTrash.h"
#include "platform/linux/files/LinuxFolderAccess.h"

#include <cerrno>
#include <stdexcept>
#include <unistd.h>

namespace tavrel::testing {

namespace fs = std::filesystem;

RemovalSandbox::RemovalSandbox() {
    sandbox.folder("home");
    sandbox.text("outside/canary", "alive");
    sandbox.text("outside/folder/canary", "alive too");
}

SafetyGuard RemovalSandbox::guard() const {
    return {.home = home(), .protectedPaths = {}, .extraRoots = {}, .lists = {}};
}

Removal::Target RemovalSandbox::target(const FolderAccess& access, const Path& path) const {
    const auto seen = Removal::identify(access, path);
    const auto verdict = guard().check(path);
    if (!seen || !verdict.isAllowed()) throw std::runtime_error("no target at " + path.native());
    return Removal::target(path, verdict, *seen);
}

std::map<std::string, std::string> snapshot(const fs::path& folder) {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        auto& what = all[entry.path().native()];
        if (entry.is_symlink()) {
            what = "link " + fs::read_symlink(entry).native();
        } else {
            what = entry.is_directory() ? "folder" : "file " + contentOf(entry);
        }
    }
    return all;
}

const std::vector<NamedAccess>& accesses() {
    static const LinuxFolderAccess oldKernel([](int, const char*, std::uint64_t) {
        errno = ENOSYS;
        return -1;
    });
    static const std::vector<NamedAccess> all = {
        {"system", systemFolderAccess(), true},
        {"oldKernel", oldKernel, true},
        {"posix", posixFolderAccess(), false},
    };
    return all;
}

std::unique_ptr<Trash> makeTrash(Layout layout, const FolderAccess& access, const fs::path& home) {
    if (layout == Layout::flat) return std::make_unique<FlatTrash>(access, home, ".Trash", ::getuid());
    return std::make_unique<FreedesktopTrash>(access, home, ".local/share/Trash", ::getuid());
}

}  // namespace tavrel::testing
