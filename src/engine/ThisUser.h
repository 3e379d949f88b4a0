#pragma once

#include "profiles/Profile.h"

#include <filesystem>

/// The person whom this process works for, as the environment tells.
namespace tavrel::ThisUser {

/// Empty when neither the environment nor the system's list of users knows it.
[[nodiscard]] std::filesystem::path home();
/// Where the environment moves the user's folders.
[[nodiscard]] UserEnvironment environment();
/// The profile of this very system and user.
[[nodiscard]] Profile profile();

}  // namespace tavrel::ThisUser
