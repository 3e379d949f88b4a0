#include "sample/SampleMac.h"

#include "core/FileHandle.h"
#include "support/Sandbox.h"

#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace tavrel::sample {

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
    testing::Sandbox::date(file, testing::daysAgo(daysOld));
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
        testing::Sandbox::date(made.parent_path(), testing::daysAgo(daysOld));
    }
    testing::Sandbox::date(folder, testing::daysAgo(daysOld));
    return folder;
}

SampleMac::Path SampleMac::bulk(std::string_view path, std::int64_t bytes, double daysOld) const {
    Path made = file(path, 0);
    const FileHandle handle(::open(made.c_str(), O_WRONLY | O_CLOEXEC));
    if (::posix_fallocate(handle.get(), 0, bytes) != 0)
        throw std::runtime_error("no room for " + made.native());
    testing::Sandbox::date(made, testing::daysAgo(daysOld));
    return made;
}

SafetyGuard SampleMac::guard(std::vector<Path> extraRoots) const {
    return profile().safetyGuard(PreferenceValues(), std::move(extraRoots));
}

}  // namespace tavrel::sample
