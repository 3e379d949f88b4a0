#include "profiles/linux/LinuxTables.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

namespace tavrel::Linux {

namespace {

// clang-format off
/// The folders themselves stay; what is in them may go.
constexpr std::string_view structure[] = {
    "", ".cache", ".config", ".local", ".local/share", ".local/share/applications", ".local/state",
    ".local/bin", ".local/lib", ".var", ".var/app", "snap", "bin", "Applications",
};

/// Keys, secrets, mail, profiles, and what a shell remembers or reads.
constexpr std::string_view personal[] = {
    ".ssh", ".gnupg", ".config/gnupg", ".pki", ".password-store", ".local/share/password-store",
    ".local/share/keyrings", ".local/share/kwalletd", ".local/share/gnupg", ".mozilla", ".thunderbird",
    ".local/share/evolution", ".config/evolution", ".local/share/akonadi", ".local/share/kmail2",
    ".local/share/local-mail", ".var/app/org.mozilla.firefox/.mozilla",
    ".var/app/org.mozilla.Thunderbird/.thunderbird", "snap/firefox/common/.mozilla",
    "snap/thunderbird/common/.thunderbird", ".kube/config", ".aws/credentials", ".aws/config",
    ".docker/config.json", ".config/gcloud/credentials.db", ".netrc", ".git-credentials", ".gitconfig",
    ".config/git", ".npmrc", ".pypirc", ".cargo/credentials.toml", ".local/share/Tavrel", ".config/Tavrel",
    ".bash_history", ".zsh_history", ".zhistory", ".local/share/fish/fish_history", ".python_history",
    ".node_repl_history", ".psql_history", ".sqlite_history", ".mysql_history", ".lesshst", ".viminfo",
    ".profile", ".bashrc", ".bash_profile", ".bash_login", ".bash_logout", ".bash_aliases", ".inputrc",
    ".zshrc", ".zshenv", ".zprofile", ".zlogin", ".zlogout", ".config/fish", ".cshrc", ".tcshrc", ".kshrc",
    ".xprofile", ".xinitrc", ".xsessionrc", ".Xresources", ".Xauthority", ".ICEauthority",
    ".config/user-dirs.dirs",
};

/// Browsers that keep caches between the profiles' own data.
constexpr std::string_view browserProfiles[] = {
    ".config/google-chrome", ".config/google-chrome-beta", ".config/google-chrome-unstable", ".config/chromium",
    ".config/BraveSoftware/Brave-Browser", ".config/microsoft-edge", ".config/vivaldi", ".config/opera",
};
// clang-format on

/// User folders that hold works rather than files on their way somewhere.
constexpr std::string_view works[] = {"PICTURES", "MUSIC", "VIDEOS"};

std::vector<std::string> holding(const std::vector<std::string>& entries) {
    std::set<std::string> folders;
    for (const std::string& entry : entries) {
        for (auto slash = entry.rfind('/'); slash != std::string::npos && slash > 0;
             slash = entry.rfind('/', slash - 1)) {
            folders.insert(entry.substr(0, slash));
        }
    }
    return {folders.begin(), folders.end()};
}

}  // namespace

SafetyGuard::Lists guardLists(const UserDirs& dirs, const std::filesystem::path& trashFolder) {
    SafetyGuard::Lists lists;
    lists.neverInside.assign(std::begin(personal), std::end(personal));
    lists.profiles.assign(std::begin(browserProfiles), std::end(browserProfiles));
    lists.profileCaches.assign(std::begin(SpecialScanners::webCacheNames),
                               std::end(SpecialScanners::webCacheNames));
    lists.profileCaches.emplace_back("Crash Reports");
    for (const std::string_view name : works)
        lists.neverInside.push_back(dirs.at(std::string(name)).native());

    lists.neverRemove.assign(std::begin(structure), std::end(structure));
    for (const auto& [name, folder] : dirs) lists.neverRemove.push_back(folder.native());
    for (const char* part : {"", "/files", "/info"}) lists.neverRemove.push_back(trashFolder.native() + part);
    // A refusal inside a folder is worth nothing when the folder itself could go.
    for (const auto& entries : {lists.neverInside, lists.profiles, lists.neverRemove}) {
        for (std::string& folder : holding(entries)) lists.neverRemove.push_back(std::move(folder));
    }
    return lists;
}

}  // namespace tavrel::Linux
