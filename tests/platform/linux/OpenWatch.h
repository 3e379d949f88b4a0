#pragma once

#include "core/FileHandle.h"

#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel::testing {

/// Which files in a folder, those of its folders left out, have been opened since it was last asked.
class OpenWatch {
  public:
    explicit OpenWatch(const std::filesystem::path& folder)
        : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(events_.get(), folder.c_str(), IN_OPEN), 0) << folder;
    }
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> names;
        alignas(inotify_event) std::array<char, 4096> buffer{};
        const auto bytes = ::read(events_.get(), buffer.data(), buffer.size());
        for (std::ptrdiff_t at = 0; at < bytes;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            if (event->len > 0) names.insert(event->name);
            at += static_cast<std::ptrdiff_t>(sizeof(inotify_event) + event->len);
        }
        return names;
    }

  private:
    FileHandle events_;
};

}  // namespace tavrel::testing
