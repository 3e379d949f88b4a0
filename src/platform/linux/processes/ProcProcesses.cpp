#include "platform/linux/processes/ProcProcesses.h"

#include "core/FileHandle.h"
#include "core/Text.h"
#include "platform/linux/figures/ProcStat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <thread>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;

constexpr auto shortestSpan = 1s;  // between two looks, for the counters' ticks to tell anything
constexpr auto oldestLook = 20s;
constexpr std::size_t mostListed = 60;
constexpr std::size_t busiestListed = 40;

constexpr std::size_t folderBufferSize = 32'768;  // some thousand processes a call
constexpr std::size_t textBufferSize = 4096;      // several times the longest line of a stat file

/// The kernel keeps this many bytes of a process's name (proc(5), "comm").
constexpr std::size_t keptNameLength = 15;

using Buffer = std::array<char, textBufferSize>;

/// "N/FILE" of a process, read in one call; empty when the process is gone.
std::string_view read(int procFolder, std::int32_t pid, const char* file, Buffer& buffer) {
    std::array<char, 32> path{};
    fmt::format_to_n(path.data(), path.size() - 1, "{}/{}", pid, file);
    const FileHandle handle(::openat(procFolder, path.data(), O_RDONLY | O_CLOEXEC));
    const ssize_t length = ::read(handle.get(), buffer.data(), buffer.size());
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

FileHandle openFolder(const std::filesystem::path& path) {
    return FileHandle(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Visits the number of every process in the folder.
template <typename Visit>
void forEachProcess(int procFolder, const Visit& visit) {
    alignas(dirent64) std::array<std::byte, folderBufferSize> buffer;
    while (true) {
        const ssize_t filled = ::getdents64(procFolder, buffer.data(), buffer.size());
        if (filled <= 0) return;
        for (ssize_t at = 0; at < filled;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(buffer.data() + at);
            at += entry.d_reclen;
            const std::string_view name = static_cast<const char*>(entry.d_name);
            std::int32_t pid = 0;
            const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
            if (error == std::errc() && rest == name.data() + name.size() && pid > 0) visit(pid);
        }
    }
}

/// The whole name where the kernel has cut it: that of the program in the first argument. Who has written
/// something else over the arguments joins them by blanks.
std::string wholeName(int procFolder, std::int32_t pid, const std::string& kept) {
    if (kept.size() == keptNameLength) {
        Buffer buffer;
        std::string_view program = read(procFolder, pid, "cmdline", buffer);
        program = program.substr(0, program.find('\0'));
        const std::size_t at = program.find(kept);
        if (at != std::string_view::npos) program = program.substr(0, program.find(' ', at + kept.size()));
        program.remove_prefix(program.rfind('/') + 1);  // nothing when there is no slash
        if (program.starts_with(kept)) return Text::replaceInvalidUtf8(program);
    }
    return Text::replaceInvalidUtf8(kept);
}

}  // namespace

ProcProcesses::ProcProcesses(std::filesystem::path procRoot, Time time, Machine machine)
    : procRoot_(std::move(procRoot)), time_(std::move(time)), machine_(machine) {}

ProcProcesses::Time ProcProcesses::systemTime() {
    return {.now = [] { return Duration(std::chrono::steady_clock::now().time_since_epoch()); },
            .wait = [](Duration span) { std::this_thread::sleep_for(span); }};
}

ProcProcesses::Machine ProcProcesses::thisMachine() {
    return {.ticksPerSecond = static_cast<double>(::sysconf(_SC_CLK_TCK)),
            .pageSize = ::sysconf(_SC_PAGESIZE),
            .processors = static_cast<double>(std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN)))};
}

std::vector<ProcessInfo> ProcProcesses::snapshot() {
    if (!before_ || time_.now() - before_->at >= oldestLook) before_ = look();
    const Duration missing = shortestSpan - (time_.now() - before_->at);
    if (missing > 0ns) time_.wait(missing);
    Snapshot after = look();
    std::vector<ProcessInfo> listed;
    if (!before_->samples.empty()) {  // else every process would seem new
        compare(*before_, after);
        listed = described(after);
    }
    before_ = std::move(after);
    return listed;
}

ProcProcesses::Snapshot ProcProcesses::look() const {
    Snapshot seen{.at = time_.now()};
    if (before_) seen.samples.reserve(before_->samples.size() + before_->samples.size() / 8);
    const FileHandle folder = openFolder(procRoot_);
    Buffer buffer;
    forEachProcess(folder.get(), [&](std::int32_t pid) {
        const auto stat = procStat(read(folder.get(), pid, "stat", buffer));
        if (!stat) return;
        const auto mostPages = std::numeric_limits<std::int64_t>::max() / machine_.pageSize;
        seen.samples.push_back(
            {.pid = pid,
             .start = stat->start,
             .used = stat->used,
             .memory = std::clamp<std::int64_t>(stat->pages, 0, mostPages) * machine_.pageSize,
             .name = std::string(stat->name)});
    });
    std::sort(seen.samples.begin(), seen.samples.end(),
              [](const Sample& a, const Sample& b) { return a.pid < b.pid; });
    return seen;
}

void ProcProcesses::compare(const Snapshot& before, Snapshot& after) const {
    const double seconds = std::chrono::duration<double>(after.at - before.at).count();
    if (seconds <= 0) return;
    std::uint64_t latestStart = 0;
    for (const Sample& sample : before.samples) latestStart = std::max(latestStart, sample.start);

    auto earlier = before.samples.begin();
    for (Sample& sample : after.samples) {
        while (earlier != before.samples.end() && earlier->pid < sample.pid) ++earlier;
        const bool known =
            earlier != before.samples.end() && earlier->pid == sample.pid && earlier->start == sample.start;
        if (!known && sample.start < latestStart) continue;
        const std::uint64_t usedBefore = known ? earlier->used : 0;
        if (sample.used <= usedBefore) continue;  // a counter that went back tells nothing
        const double gained = static_cast<double>(sample.used - usedBefore);
        const double most = 100 * machine_.processors;
        sample.cpu = std::min(100 * gained / machine_.ticksPerSecond / seconds, most);
    }
}

std::vector<ProcessInfo> ProcProcesses::described(const Snapshot& look) const {
    std::vector<const Sample*> chosen;
    chosen.reserve(look.samples.size());
    for (const Sample& sample : look.samples) chosen.push_back(&sample);
    const auto larger = [](const Sample* a, const Sample* b) {
        return a->memory != b->memory ? a->memory > b->memory : a->pid < b->pid;
    };
    const auto busier = [larger](const Sample* a, const Sample* b) {
        return a->cpu != b->cpu ? a->cpu > b->cpu : larger(a, b);
    };
    if (chosen.size() > mostListed) {
        const auto rest = chosen.begin() + busiestListed;
        std::nth_element(chosen.begin(), rest, chosen.end(), busier);
        std::nth_element(rest, chosen.begin() + mostListed, chosen.end(), larger);
        chosen.resize(mostListed);
    }
    std::sort(chosen.begin(), chosen.end(), busier);

    const FileHandle folder = openFolder(procRoot_);
    std::vector<ProcessInfo> listed;
    listed.reserve(chosen.size());
    for (const Sample* sample : chosen) {
        listed.push_back({.pid = sample->pid,
                          .name = wholeName(folder.get(), sample->pid, sample->name),
                          .cpu = sample->cpu,
                          .memory = sample->memory,
                          .power = sample->cpu / machine_.processors});
    }
    return listed;
}

}  // namespace tavrel
