#include "cli/Session.h"

#include "core/Phrase.h"
#include "engine/ThisUser.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace tavrel::cli {

namespace {

using Path = std::filesystem::path;

/// A folder or a link to one.
bool leadsToFolder(const Path& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

std::string noFolder(Text::English english, const Path& path) {
    return phrase(english, Text::escapedForDisplay(path.native()));
}

Profile profileFor(const GlobalOptions& options, const Path& home) {
    const auto named = options.profile ? Profiles::family(*options.profile) : std::nullopt;
    if (named.value_or(Profiles::ofThisSystem()) == Profile::Family::macos) {
        return Profiles::macos(options.root, home);
    }
    UserEnvironment environment;
    if (!options.home) environment = ThisUser::environment();
    return Profiles::linux(options.root, home, environment);
}

}  // namespace

tl::expected<Session, std::string> Session::open(const GlobalOptions& options) {
    const Path home = options.home ? Path(*options.home) : ThisUser::home();
    if (!leadsToFolder(home)) return tl::unexpected(noFolder("the home \"{}\" is not a folder", home));
    if (!leadsToFolder(options.root)) {
        return tl::unexpected(noFolder("the root \"{}\" is not a folder", options.root));
    }
    return Session(profileFor(options, home));
}

Session::Session(Profile profile)
    : profile_(std::move(profile)),
      defaults_(profile_.places.preferences()),
      preferences_(PreferenceValues::read(defaults_)) {}

void Session::refresh() {
    defaults_ = UserDefaults(places().preferences());
    preferences_ = PreferenceValues::read(defaults_);
}

SafetyGuard Session::guard(std::vector<Path> extraRoots) const {
    return profile_.safetyGuard(preferences_, std::move(extraRoots));
}

void Session::warnOfSettings(Console& console) const {
    const std::string file = Text::escapedForDisplay(defaults_.file().native());
    if (defaults_.state() == UserDefaults::State::damaged) {
        console.warn(phrase("the settings in {} cannot be read; their defaults are used", file));
    }
    for (const std::string& key : PreferenceValues::unreadableKeys(defaults_)) {
        console.warn(phrase("the setting {} in {} has a wrong type; its default is used", key, file));
    }
}

CleanJob::ProtectedPaths Session::protectedPaths() const {
    return PreferenceValues::knowsProtectedPaths(defaults_) ? CleanJob::ProtectedPaths::known
                                                            : CleanJob::ProtectedPaths::unknown;
}

std::optional<std::string> Session::protectionUnknown() const {
    if (protectedPaths() == CleanJob::ProtectedPaths::known) return std::nullopt;
    return phrase(
        "nothing is removed while the protected folders in {} cannot be read; "
        "write them anew with \"tavrelctl settings protectedPaths\"",
        Text::escapedForDisplay(defaults_.file().native()));
}

}  // namespace tavrel::cli
