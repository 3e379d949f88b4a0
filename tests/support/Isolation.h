#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tavrel::testing {

/// Whether a body was run. Where the machine forbids it, the test has to skip and say so.
enum class Ran { yes, forbidden };

/// Runs `body` in a child process; its failed assertions fail the test in hand.
void inChild(const std::function<void()>& body);
/// The same with mounts of its own, which go with the child.
[[nodiscard]] Ran withPrivateMounts(const std::function<void()>& body);
/// The same as an ordinary user, for whom permission bits count.
[[nodiscard]] Ran asOrdinaryUser(const std::function<void()>& body);

/// Both for use within `withPrivateMounts`; they throw where the mount fails.
void bindMount(const std::filesystem::path& what, const std::filesystem::path& over);
/// An empty file system in memory over the folder `at`; `options` as mount(8) takes them.
void mountMemory(const std::filesystem::path& at, const std::string& options = "size=16m");

}  // namespace tavrel::testing
