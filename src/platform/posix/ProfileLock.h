#pragma once

#include <filesystem>

/// The locks that browsers, mail programs and their kin keep in the folder of a profile while they run.
namespace tavrel::ProfileLock {

/// Whether a program holds the lock of `profile`: ".parentlock" by a record lock (Mozilla), "lock" as a link
/// to "ADDRESS:+PROCESS" (Mozilla), "SingletonLock" as a link to "HOST-PROCESS" (Chromium). A lock of a
/// process that is gone is none. True in doubt, as for a lock of another host.
[[nodiscard]] bool isHeld(const std::filesystem::path& profile);

}  // namespace tavrel::ProfileLock
