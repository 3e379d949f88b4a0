#pragma once

#include "core/EnumTable.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

namespace tavrel {

/// The groups that items are shown under, in the order they are shown. The raw value is the case's own name.
enum class CleanCategory {
    systemData,
    userCaches,
    logs,
    xcode,
    packageManagers,
    devCaches,
    editors,
    appData,
    browsers,
    mail,
    downloads,
    iosBackups,
    trash,
    projects,
    installers,
    appLeftovers,
    aiSessions,
    aiCaches,
    aiModels,
};

namespace CleanCategories {

inline constexpr auto allCases = enumCases<CleanCategory, 19>();

[[nodiscard]] std::string_view rawValue(CleanCategory category);
/// The category of that raw value; nothing for any other text.
[[nodiscard]] std::optional<CleanCategory> fromRawValue(std::string_view text);

[[nodiscard]] std::string title(CleanCategory category);
/// The line below the title for `user`. Root's does not mention the password, since root is not prompted.
[[nodiscard]] std::string summary(CleanCategory category, uid_t user = ::geteuid());
/// The name of the group's icon in the symbol set.
[[nodiscard]] std::string_view symbol(CleanCategory category);

}  // namespace CleanCategories
}  // namespace tavrel
