#pragma once

/// What the program is called by other programs and in the file system.
namespace tavrel::Identity {

inline constexpr const char* bundleID = "com.quennith.tavrel";
inline constexpr const char* name = "Tavrel";
inline constexpr const char* textDomain = "tavrel";  // of the catalogues of translations

}  // namespace tavrel::Identity
