#include "profiles/Profile.h"

#include <utility>

namespace tavrel {

SafetyGuard Profile::safetyGuard(const PreferenceValues& preferences,
                                 std::vector<std::filesystem::path> extraRoots) const {
    return {places.home(), preferences.protectedPaths, std::move(extraRoots), guardLists};
}

std::optional<Profile::Family> Profiles::family(std::string_view name) {
    if (name == "macos") return Profile::Family::macos;
    if (name == "linux") return Profile::Family::linux;
    return std::nullopt;
}

Profile::Family Profiles::ofThisSystem() {
#ifdef __APPLE__
    return Profile::Family::macos;
#else
    return Profile::Family::linux;
#endif
}

}  // namespace tavrel
