#include "support/SampleMac.h"

#include "core/FileHandle.h"
#include "core/Paths.h"
#include "platform/posix/NoCommands.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>

namespace tavrel::testing {

namespace fs = std::filesystem;

SampleMac::SampleMac(Path disk) : root_(std::move(disk)) {
    fs::create_directories(home());
    // Being able to read this proves full disk access.
    fs::create_directories(home() / "Library/Safari");
}

SampleMac::Path SampleMac::at(std::string_view path) const {
    if (path.starts_with("~/")) return home() / path.substr(2);
    return root_ / path.substr(1);
}

SampleMac::Path SampleMac::file(std::string_view path, std::int64_t bytes, double daysOld) const {
    Path file = at(path);
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << std::string(static_cast<std::size_t>(bytes), 'x');
    if (!out.flush()) throw std::runtime_error("cannot write " + file.native());
    out.close();
    Sandbox::date(file, daysAgo(daysOld));
    return file;
}

SampleMac::Path SampleMac::folder(std::string_view path, int files, std::int64_t bytesEach,
                                  double daysOld) const {
    constexpr int filesPerFolder = 100;
    const std::string base(path);
    Path folder = at(path);
    fs::create_directories(folder);
    for (int i = 0; i < files; ++i) {
        const std::string below = files > filesPerFolder ? "/" + std::to_string(i / filesPerFolder) : "";
        const Path made = file(base + below + "/" + std::to_string(i) + ".bin", bytesEach, daysOld);
        Sandbox::date(made.parent_path(), daysAgo(daysOld));
    }
    Sandbox::date(folder, daysAgo(daysOld));
    return folder;
}

SampleMac::Path SampleMac::bulk(std::string_view path, std::int64_t bytes, double daysOld) const {
    Path made = file(path, 0);
    const FileHandle handle(::open(made.c_str(), O_WRONLY | O_CLOEXEC));
    if (::posix_fallocate(handle.get(), 0, bytes) != 0)
        throw std::runtime_error("no room for " + made.native());
    Sandbox::date(made, daysAgo(daysOld));
    return made;
}

SafetyGuard SampleMac::guard(std::vector<Path> extraRoots) const {
    return profile().safetyGuard(PreferenceValues(), std::move(extraRoots));
}

JunkScanner::Context SampleMac::context() const {
    return {.root = root_, .home = home(), .safety = guard(), .hasFullDiskAccess = true, .now = now()};
}

std::vector<CleanItem> SampleMac::scan(const std::set<CleanCategory>& categories,
                                       const JunkScanner::Context& context) const {
    NoCommands noTools;
    const NoNames noNames;
    return JunkScanner(profile().scan, noTools, noNames).scan(categories, context, [](CleanCategory) {});
}

const CleanItem* itemAt(const std::vector<CleanItem>& items, const fs::path& path) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const CleanItem& item) { return item.url == path; });
    return found == items.end() ? nullptr : &*found;
}

}  // namespace tavrel::testing
