#pragma once

#include "cleaning/CleanJob.h"
#include "cleaning/SafetyGuard.h"
#include "cli/Console.h"
#include "cli/GlobalOptions.h"
#include "core/PreferenceValues.h"
#include "core/UserDefaults.h"
#include "profiles/Profile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel::cli {

/// Whom a command works for: a user's home, the system it belongs to, and what the user chose.
class Session {
  public:
    using Path = std::filesystem::path;

    /// Looks at the places that the options name. The error is a line for the user: the home or the root is
    /// no folder.
    [[nodiscard]] static tl::expected<Session, std::string> open(const GlobalOptions& options);

    [[nodiscard]] const Profile& profile() const { return profile_; }
    [[nodiscard]] const Places& places() const { return profile_.places; }
    [[nodiscard]] const PreferenceValues& preferences() const { return preferences_; }
    [[nodiscard]] UserDefaults& defaults() { return defaults_; }

    /// Reads again what the user chose: another program may have changed it since.
    void refresh();

    /// A guard of this moment.
    [[nodiscard]] SafetyGuard guard(std::vector<Path> extraRoots) const;

    /// Warns of settings that count as their defaults because they cannot be read.
    void warnOfSettings(Console& console) const;

    /// Whether the folders that the user barred can be read.
    [[nodiscard]] CleanJob::ProtectedPaths protectedPaths() const;
    /// Why the protected folders cannot be known; nothing when they are. Nothing may be removed then.
    [[nodiscard]] std::optional<std::string> protectionUnknown() const;

  private:
    explicit Session(Profile profile);

    Profile profile_;
    UserDefaults defaults_;
    PreferenceValues preferences_;
};

}  // namespace tavrel::cli
