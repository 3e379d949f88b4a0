#include "models/show/IconOwners.h"

namespace tavrel {
namespace {

// clang-format off
/// The rows of a Mac; those from `firstOfLinux` on are for folders that only Linux has.
constexpr KnownOwner rows[] = {
    {"/Developer/Xcode",         "com.apple.dt.Xcode"},
    {"/com.apple.dt.",           "com.apple.dt.Xcode"},
    {"/Developer/CoreSimulator", "com.apple.iphonesimulator"},
    {"/Google/Chrome",           "com.google.Chrome",                {"google-chrome", "chromium"}},
    {"/BraveSoftware",           "com.brave.Browser",                {"brave-browser", "com.brave.Browser"}},
    {"/Firefox",                 "org.mozilla.firefox",              {"firefox", "firefox-esr", "firefox_firefox"}},
    {"/Mozilla",                 "org.mozilla.firefox",              {"firefox", "firefox-esr", "firefox_firefox"}},
    {"/Microsoft Edge",          "com.microsoft.edgemac",            {"microsoft-edge", "com.microsoft.Edge"}},
    {"/Caches/Arc",              "company.thebrowser.Browser"},
    {"/Opera",                   "com.operasoftware.Opera",          {"opera", "com.opera.Opera"}},
    {"/Vivaldi",                 "com.vivaldi.Vivaldi",              {"vivaldi-stable", "com.vivaldi.Vivaldi"}},
    {"/JetBrains",               "com.jetbrains.intellij",           {"jetbrains-idea", "jetbrains-idea-ce", "com.jetbrains.IntelliJ-IDEA-Community"}},
    {"/Spotify",                 "com.spotify.client",               {"spotify", "com.spotify.Client", "spotify_spotify"}},
    {"/Steam",                   "com.valvesoftware.steam",          {"steam", "com.valvesoftware.Steam"}},
    {"/Adobe",                   "com.adobe.acc.AdobeCreativeCloud"},
    {"/Library/Caches/Homebrew", "com.apple.Terminal",               {"org.gnome.Terminal", "org.kde.konsole", "xterm"}},

    {"/.mozilla",                "org.mozilla.firefox",              {"firefox", "firefox-esr", "firefox_firefox"}},
    {"/mozilla/firefox",         "org.mozilla.firefox",              {"firefox", "firefox-esr", "firefox_firefox"}},
    {"/.thunderbird",            "org.mozilla.thunderbird",          {"thunderbird", "thunderbird-esr", "org.mozilla.Thunderbird"}},
    {"/.steam",                  "com.valvesoftware.steam",          {"steam", "com.valvesoftware.Steam"}},
    {"/vivaldi",                 "com.vivaldi.Vivaldi",              {"vivaldi-stable", "com.vivaldi.Vivaldi"}},
    {"/.vscode",                 "com.microsoft.VSCode",             {"code", "com.visualstudio.code", "codium"}},
};
// clang-format on
constexpr std::size_t firstOfLinux = 16;

}  // namespace

IconOwners IconOwners::macos(const std::filesystem::path& home) {
    const std::filesystem::path library = home / "Library";
    return {{library / "Containers", library / "Group Containers", library / "Application Support"},
            std::span(rows).first<firstOfLinux>()};
}

IconOwners IconOwners::linux(const std::filesystem::path& home) {
    return {{home / ".var/app", home / "snap", home / ".config", home / ".cache", home / ".local/share"},
            rows};
}

}  // namespace tavrel
