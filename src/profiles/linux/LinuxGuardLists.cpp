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
    // keys and passwords
    ".ssh", ".gnupg", ".config/gnupg", ".local/share/gnupg", ".pki", ".password-store",
    ".local/share/password-store", ".local/share/keyrings", ".local/share/kwalletd", ".config/keepassxc",
    ".cache/keepassxc", ".electrum", ".bitcoin", ".netrc", ".git-credentials",
    // what tools sign in with
    ".kube/config", ".aws/credentials", ".aws/config", ".docker/config.json", ".config/gcloud/credentials.db",
    ".npmrc", ".pypirc", ".cargo/credentials.toml", ".config/gh", ".config/rclone", ".claude/.credentials.json",
    ".codex/auth.json", ".gemini/oauth_creds.json", ".ollama/id_ed25519", ".cache/huggingface/token",
    ".cache/huggingface/stored_tokens",
    // mail, and profiles of Mozilla's kin: their caches lie elsewhere
    ".mozilla", ".config/mozilla", ".thunderbird", ".config/thunderbird", ".librewolf", ".config/librewolf",
    ".waterfox", ".floorp", ".zen", ".local/share/torbrowser",
    ".var/app/org.mozilla.firefox/.mozilla", ".var/app/org.mozilla.firefox/config/mozilla",
    ".var/app/org.mozilla.Thunderbird/.thunderbird", ".var/app/org.mozilla.Thunderbird/config/thunderbird",
    ".var/app/io.gitlab.librewolf-community/.librewolf",
    "snap/firefox/common/.mozilla", "snap/firefox/common/.config/mozilla",
    "snap/thunderbird/common/.thunderbird", "snap/thunderbird/common/.config/thunderbird",
    ".local/share/evolution", ".config/evolution", ".local/share/akonadi", ".local/share/kmail2",
    ".local/share/local-mail",
    // waiting to be uploaded, and what editors write before a file is saved
    ".cache/rclone/vfs", ".cache/rclone/vfsMeta", ".cache/vim", ".local/state/vim", ".local/state/nvim/swap",
    ".local/state/nvim/undo", ".local/state/nvim/backup", ".cache/nvim/swap", ".cache/nvim/undo",
    ".cache/nvim/backup",
    // the shell's memory and settings
    ".bash_history", ".zsh_history", ".zhistory", ".cache/zsh/history", ".local/share/fish/fish_history",
    ".python_history", ".node_repl_history", ".psql_history", ".sqlite_history", ".mysql_history", ".lesshst",
    ".viminfo", ".profile", ".bashrc", ".bash_profile", ".bash_login", ".bash_logout", ".bash_aliases",
    ".inputrc", ".zshrc", ".zshenv", ".zprofile", ".zlogin", ".zlogout", ".config/fish", ".cshrc", ".tcshrc",
    ".kshrc", ".xprofile", ".xinitrc", ".xsessionrc", ".Xresources", ".Xauthority", ".ICEauthority",
    ".gitconfig", ".config/git", ".config/user-dirs.dirs", ".local/share/Tavrel", ".config/Tavrel",
};

/// Where browser engines keep an application's data. Caches lie between them, so the folder itself may go.
constexpr std::string_view engineData[] = {
    ".config/*", ".config/*/Partitions/*", ".var/app/*/config/*", ".var/app/*/config/*/Partitions/*",
    "snap/*/*/.config/*", "snap/*/*/.config/*/Partitions/*",
};

/// What signs a person in, or is kept nowhere else.
constexpr std::string_view engineSecrets[] = {
    "Cookies", "Cookies-journal", "Network/Cookies", "Network/Cookies-journal", "Local Storage", "IndexedDB",
};

/// Browsers and messengers that keep caches between what is personal.
constexpr std::string_view browserProfiles[] = {
    ".config/google-chrome", ".config/google-chrome-beta", ".config/google-chrome-unstable", ".config/chromium",
    ".config/BraveSoftware/Brave-Browser", ".config/microsoft-edge", ".config/vivaldi", ".config/opera",
    ".config/Signal", ".config/Signal Beta",
    ".var/app/*/config/google-chrome", ".var/app/*/config/chromium",
    ".var/app/*/config/BraveSoftware/Brave-Browser", ".var/app/*/config/microsoft-edge",
    ".var/app/*/config/vivaldi", ".var/app/*/config/Signal", "snap/chromium/common/chromium",
};

/// What these browsers write anew beside the caches of the engine.
constexpr std::string_view browserLeavings[] = {
    "Crash Reports", "BrowserMetrics", "DeferredBrowserMetrics", "BrowserMetrics-spare.pma",
    "GPUPersistentCache",
};

/// Databases of passwords, wherever they lie.
constexpr std::string_view vaults[] = {"*.kdbx", "*.kdb"};
// clang-format on

/// User folders that hold works rather than files on their way somewhere.
constexpr std::string_view works[] = {"PICTURES", "MUSIC", "VIDEOS"};

std::vector<std::string> holding(const std::vector<std::string>& entries) {
    std::set<std::string> folders;
    for (const std::string& entry : entries) {
        if (entry.find('*') != std::string::npos) continue;
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
    for (const SpecialScanners::WebCache& cache : SpecialScanners::webCaches)
        lists.profileCaches.emplace_back(cache.path);
    lists.profileCaches.insert(lists.profileCaches.end(), std::begin(browserLeavings),
                               std::end(browserLeavings));
    lists.neverNamed.assign(std::begin(vaults), std::end(vaults));
    for (const std::string_view name : works)
        lists.neverInside.push_back(dirs.at(std::string(name)).native());

    lists.neverRemove.assign(std::begin(structure), std::end(structure));
    for (const auto& [name, folder] : dirs) lists.neverRemove.push_back(folder.native());
    for (const char* part : {"", "/files", "/info"}) lists.neverRemove.push_back(trashFolder.native() + part);
    // A refusal inside a folder is worth nothing when the folder itself could go.
    for (const auto& entries : {lists.neverInside, lists.profiles, lists.neverRemove}) {
        for (std::string& folder : holding(entries)) lists.neverRemove.push_back(std::move(folder));
    }
    // The data of an application goes whole, when it goes.
    for (const std::string_view data : engineData) {
        for (const std::string_view secret : engineSecrets)
            lists.neverInside.push_back(std::string(data).append("/").append(secret));
    }
    return lists;
}

}  // namespace tavrel::Linux
