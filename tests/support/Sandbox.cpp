#include "support/Sandbox.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>

namespace tavrel::testing {

namespace fs = std::filesystem;

Sandbox::Sandbox(const Path& under) {
    std::string pattern =
        ((under.empty() ? fs::temp_directory_path() : under) / "tavrel-test-XXXXXX").native();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    root_ = fs::canonical(pattern);
}

Sandbox::~Sandbox() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

Sandbox::Path Sandbox::file(const Path& relative, std::int64_t bytes) const {
    return text(relative, std::string(static_cast<std::size_t>(bytes), 'x'));
}

Sandbox::Path Sandbox::text(const Path& relative, std::string_view content) const {
    Path at = path(relative);
    fs::create_directories(at.parent_path());
    std::ofstream out(at, std::ios::binary);
    out << content;
    if (!out.flush()) throw std::runtime_error("cannot write " + at.native());
    return at;
}

Sandbox::Path Sandbox::folder(const Path& relative) const {
    fs::create_directories(path(relative));
    return path(relative);
}

Sandbox::Path Sandbox::link(const Path& relative, const Path& target) const {
    Path at = path(relative);
    fs::create_directories(at.parent_path());
    fs::create_symlink(target, at);
    return at;
}

void Sandbox::date(const Path& path, Instant modified) {
    using namespace std::chrono;
    const auto whole = floor<seconds>(modified);
    const timespec moment{static_cast<time_t>(whole.time_since_epoch().count()),
                          static_cast<long>((modified - whole).count())};
    const std::array times{moment, moment};
    if (::utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) != 0) {
        throw std::runtime_error("cannot date " + path.native());
    }
}

Instant now() {
    return std::chrono::system_clock::now();
}

Instant daysAgo(double days) {
    using namespace std::chrono;
    return now() - duration_cast<nanoseconds>(duration<double, std::ratio<86400>>(days));
}

std::int64_t allocated(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) throw std::runtime_error("no " + path.native());
    return status.st_blocks * 512;
}

std::string contentOf(const fs::path& file) {
    const std::ifstream in(file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

}  // namespace tavrel::testing
