#pragma once

#include "profiles/Profile.h"

#include <filesystem>

/// The user whom this process works for, as the environment says.
namespace tavrel::ThisUser {

/// The environment's where that is a folder of this user, or else that of the system's list of users. Empty
/// when neither knows it.
[[nodiscard]] std::filesystem::path home();
/// Where the environment moves the user's folders.
[[nodiscard]] UserEnvironment environment();
/// The profile of this very system and user.
[[nodiscard]] Profile profile();

}  // namespace tavrel::ThisUser
