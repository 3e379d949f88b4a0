#include "platform/linux/graphics/DrmClients.h"

#include "core/Files.h"
#include "platform/linux/kernel/Attributes.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// Looking at one costs about 2 microseconds.
constexpr int looksEachCall = 500;
// A program opens the graphics among its first files.
constexpr int handlesOfAProcess = 250;
constexpr std::size_t mostHandles = 200;

/// What came before is a mean of the past, of a time when nobody watched, say.
constexpr std::chrono::seconds oldestLook{10};

bool isOwn(const fs::path& process) {
    struct stat status {};
    return ::stat(process.c_str(), &status) == 0 && status.st_uid == ::geteuid();
}

/// What a client did in the meantime; nothing where it counted backwards, or did not count.
double increase(const std::optional<std::uint64_t>& now, const std::optional<std::uint64_t>& before) {
    return now && before && *now > *before ? static_cast<double>(*now - *before) : 0;
}

struct Work {
    double nanoseconds = 0;
    double cycles = 0;
    double totalCycles = 0;

    [[nodiscard]] double share(double elapsedNanoseconds) const {
        const double ofClock = totalCycles > 0 ? cycles / totalCycles : 0;
        return std::clamp(std::max(nanoseconds / elapsedNanoseconds, ofClock), 0.0, 1.0);
    }
};

}  // namespace

std::optional<double> DrmClients::load(const std::set<std::string>& devices, Time now) {
    lookForHandles();
    std::map<Key, DrmClient> clients = readClients(devices);
    const std::optional<Time> earlier = std::exchange(readAt_, now);
    std::swap(clients, before_);  // `clients` are now those of the last call
    if (!earlier || now <= *earlier || now - *earlier > oldestLook) return std::nullopt;
    std::map<std::string, Work> work;
    for (const auto& [key, client] : before_) {
        const auto last = clients.find(key);
        if (last == clients.end()) continue;
        Work& device = work[client.device];
        device.nanoseconds += increase(client.renderNanoseconds, last->second.renderNanoseconds);
        device.cycles += increase(client.renderCycles, last->second.renderCycles);
        device.totalCycles =
            std::max(device.totalCycles, increase(client.totalCycles, last->second.totalCycles));
    }
    const auto elapsed =
        static_cast<double>(std::chrono::duration_cast<std::chrono::nanoseconds>(now - *earlier).count());
    double busiest = 0;
    for (const auto& [device, done] : work) busiest = std::max(busiest, done.share(elapsed));
    return busiest;
}

void DrmClients::lookForHandles() {
    if (processes_.empty()) processes_ = Files::names(proc_);
    for (int looks = 0; looks < looksEachCall && !processes_.empty(); ++looks) {
        const std::string process = std::move(processes_.back());
        processes_.pop_back();
        if (process.find_first_not_of("0123456789") != std::string::npos || !isOwn(proc_ / process)) continue;
        std::error_code error;
        fs::directory_iterator handle(proc_ / process / "fd", error);
        for (int count = 0; !error && handle != fs::directory_iterator() && count < handlesOfAProcess;
             ++count, ++looks, handle.increment(error)) {
            std::error_code unreadable;
            const fs::path target = fs::read_symlink(handle->path(), unreadable);
            if (!target.native().starts_with("/dev/dri/") || handles_.size() >= mostHandles) continue;
            handles_.insert(proc_ / process / "fdinfo" / handle->path().filename());
        }
    }
}

std::map<DrmClients::Key, DrmClient> DrmClients::readClients(const std::set<std::string>& devices) {
    std::map<Key, DrmClient> clients;
    for (auto handle = handles_.begin(); handle != handles_.end();) {
        const auto text = Attributes::text(*handle);
        auto client = text ? DrmClient::parse(*text) : std::nullopt;
        handle = client ? std::next(handle) : handles_.erase(handle);
        if (client && devices.contains(client->device)) {
            clients.insert_or_assign({client->device, client->id}, std::move(*client));
        }
    }
    return clients;
}

}  // namespace tavrel
