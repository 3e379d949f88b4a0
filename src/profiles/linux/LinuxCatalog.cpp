#include "profiles/CatalogRow.h"
#include "profiles/linux/LinuxTables.h"

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::Linux {

namespace {

using enum CleanCategory;
using enum CatalogRow::Mode;
using enum Risk;

// What a tool documents of its folder decides: a folder that is a cache only in part has a row for each part
// that is, and what no row names stays. A row is safe when all that lies below it can be had again without
// the person. Sources: the tools' manuals (npm-cache(5), ccache(1), pip's and poetry's and uv's pages on
// caching, "go help cache", the Cargo book on its home, Gradle's user manual on its user home, JetBrains'
// page on directories, Deno's on DENO_DIR, Mozilla's and Chromium's on the user data directory).
// clang-format off
constexpr CatalogRow packageManagerRows[] = {
    {"~/.npm/_cacache",                   packageManagers, whole,    safe,   "npm download cache"},
    {"~/.npm/_npx",                       packageManagers, children, safe,   "Packages that npx fetched to run once"},
    {"~/.cache/yarn",                     packageManagers, whole,    safe,   "Yarn download cache"},
    {"~/.yarn/berry/cache",               packageManagers, whole,    safe,   "Yarn Berry cache"},
    {"~/.local/share/pnpm/store",         packageManagers, whole,    review, "pnpm store; projects re-link on next install"},
    {"~/.bun/install/cache",              packageManagers, whole,    safe,   "Bun download cache"},
    {"~/.cache/pip",                      packageManagers, whole,    safe,   "pip download cache"},
    {"~/.cache/uv",                       packageManagers, whole,    review, "uv download cache; environments that link into it need `uv sync`", {.owners = "uv uvx"}},
    {"~/.cache/pypoetry/cache",           packageManagers, whole,    safe,   "Poetry download cache", {.owners = "poetry"}},
    {"~/.cache/pypoetry/artifacts",       packageManagers, whole,    safe,   "Poetry download cache", {.owners = "poetry"}},
    {"~/.cache/pypoetry/virtualenvs",     packageManagers, children, review, "Poetry environment; `poetry install` makes it again"},
    {"~/.cache/pdm/http",                 packageManagers, whole,    safe,   "PDM download cache"},
    {"~/.cache/pdm/wheels",               packageManagers, whole,    safe,   "PDM download cache"},
    {"~/.cache/pdm/packages",             packageManagers, whole,    review, "PDM packages; environments link into it"},
    {"~/.cache/go-build",                 packageManagers, whole,    safe,   "Go build cache", {.owners = "go", .keeps = "fuzz"}},
    {"~/.cargo/registry/cache",           packageManagers, whole,    safe,   "Cargo crate downloads", {.owners = "cargo"}},
    {"~/.cargo/registry/src",             packageManagers, whole,    review, "Unpacked Cargo crates; changes made in them go too", {.owners = "cargo"}},
    {"~/.gradle/caches",                  packageManagers, whole,    review, "Gradle caches; next build re-downloads dependencies"},
    {"~/.m2/repository",                  packageManagers, whole,    review, "Maven repository; what you installed in it yourself goes too"},
    {"~/.cache/composer",                 packageManagers, whole,    safe,   "Composer cache"},
    {"~/.composer/cache",                 packageManagers, whole,    safe,   "Composer cache"},
    {"~/.nuget/packages",                 packageManagers, whole,    review, "NuGet packages; next build restores them"},
    {"~/.pub-cache/hosted",               packageManagers, whole,    review, "Dart/Flutter packages"},
    {"~/.conda/pkgs",                     packageManagers, whole,    review, "Conda package cache; environments may link into it"},
    {"~/miniconda3/pkgs",                 packageManagers, whole,    review, "Conda package cache; environments may link into it"},
    {"~/anaconda3/pkgs",                  packageManagers, whole,    review, "Conda package cache; environments may link into it"},
};

constexpr CatalogRow devCacheRows[] = {
    {"~/.cache/ccache",                   devCaches, whole,    safe,   "Compiler cache; builds fill it again", {.owners = "ccache", .keeps = "ccache.conf"}},
    {"~/.ccache",                         devCaches, whole,    safe,   "Compiler cache; builds fill it again", {.owners = "ccache", .keeps = "ccache.conf"}},
    {"~/.cache/sccache",                  devCaches, whole,    safe,   "Compiler cache; builds fill it again", {.owners = "sccache"}},
    {"~/.cache/bazel",                    devCaches, whole,    review, "Bazel caches and build output"},
    {"~/.cache/pre-commit/repo*",         devCaches, whole,    safe,   "pre-commit hook environments"},
    {"~/.cache/ruff",                     devCaches, whole,    safe,   "Ruff cache"},
    {"~/.cache/mypy",                     devCaches, whole,    safe,   "mypy cache"},
    {"~/.cache/node-gyp",                 devCaches, whole,    safe,   "node-gyp headers"},
    {"~/.node-gyp",                       devCaches, whole,    safe,   "node-gyp headers (legacy)"},
    {"~/.npm/_logs",                      devCaches, whole,    safe,   "npm debug logs"},
    {"~/.cache/typescript",               devCaches, whole,    safe,   "TypeScript type cache"},
    {"~/.cache/prisma",                   devCaches, whole,    safe,   "Prisma engines"},
    {"~/.cache/electron",                 devCaches, whole,    safe,   "Electron binaries"},
    {"~/.cache/electron-builder",         devCaches, whole,    safe,   "Electron binaries"},
    {"~/.cache/puppeteer",                devCaches, whole,    review, "Browsers for Puppeteer; re-downloaded on next run"},
    {"~/.cache/ms-playwright",            devCaches, children, review, "Browsers for Playwright; re-downloaded on next install"},
    {"~/.cache/Cypress",                  devCaches, children, review, "Cypress app binaries"},
    {"~/.cache/deno/deps",                devCaches, whole,    safe,   "Deno download cache"},
    {"~/.cache/deno/remote",              devCaches, whole,    safe,   "Deno download cache"},
    {"~/.cache/deno/npm",                 devCaches, whole,    safe,   "Deno download cache"},
    {"~/.cache/deno/gen",                 devCaches, whole,    safe,   "Deno compiled code"},
    {"~/.gradle/daemon",                  devCaches, whole,    safe,   "Gradle daemon logs"},
    {"~/.gradle/wrapper/dists",           devCaches, children, review, "Gradle distributions; re-downloaded per project"},
    {"~/.android/cache",                  devCaches, whole,    safe,   "Android SDK cache"},
    {"~/.android/build-cache",            devCaches, whole,    safe,   "Android build cache"},
    {"~/go/pkg/mod/cache/download",       devCaches, whole,    review, "Go module downloads"},
    {"~/.rustup/downloads",               devCaches, whole,    safe,   "rustup downloads"},
    {"~/.rustup/tmp",                     devCaches, whole,    safe,   "rustup temp files"},
    {"~/.cargo/git/checkouts",            devCaches, whole,    review, "Cargo git dependencies; changes made in them go too"},
    {"~/.expo/native-modules-cache",      devCaches, whole,    safe,   "Expo cache"},
    {"~/.expo/android-apk-cache",         devCaches, whole,    safe,   "Expo Go builds"},
    {"~/.docker/buildx/cache",            devCaches, whole,    safe,   "Docker buildx cache"},
    {"~/.kube/cache",                     devCaches, whole,    safe,   "kubectl discovery cache"},
    {"~/.terraform.d/plugin-cache",       devCaches, whole,    review, "Terraform providers; projects link into it"},
    {"~/.aws/cli/cache",                  devCaches, whole,    safe,   "AWS CLI cache"},
    {"~/.config/gcloud/logs",             devCaches, whole,    safe,   "gcloud logs"},
    {"~/.azure/logs",                     devCaches, whole,    safe,   "Azure CLI logs"},
    {"~/.oh-my-zsh/cache",                devCaches, whole,    review, "Oh My Zsh cache; some plugins remember things in it"},
};

constexpr CatalogRow ideCacheRows[] = {
    {"~/.cache/JetBrains",                devCaches, children, review, "JetBrains IDE caches, indexes and local history"},
    {"~/.config/unity3d/cache",           devCaches, whole,    safe,   "Unity package cache"},
};

// Profiles lie elsewhere and are not touched. Owners are executables, Flatpak and snap names.
constexpr CatalogRow browserRows[] = {
    {"~/.cache/mozilla/firefox",          browsers, children, safe, "Firefox page cache",
        {.owners = "firefox firefox-esr firefox-bin", .profiles = "~/.mozilla/firefox/* ~/.config/mozilla/firefox/*"}},
    {"~/.cache/google-chrome",            browsers, whole,    safe, "Chrome page cache; logins are kept",
        {.owners = "chrome google-chrome google-chrome-stable", .profiles = "~/.config/google-chrome"}},
    {"~/.cache/chromium",                 browsers, whole,    safe, "Chromium page cache; logins are kept",
        {.owners = "chromium chromium-browser", .profiles = "~/.config/chromium"}},
    {"~/.cache/BraveSoftware",            browsers, whole,    safe, "Brave page cache",
        {.owners = "brave brave-browser", .profiles = "~/.config/BraveSoftware/Brave-Browser"}},
    {"~/.cache/microsoft-edge",           browsers, whole,    safe, "Edge page cache",
        {.owners = "msedge microsoft-edge", .profiles = "~/.config/microsoft-edge"}},
    {"~/.cache/vivaldi",                  browsers, whole,    safe, "Vivaldi page cache",
        {.owners = "vivaldi vivaldi-bin vivaldi-stable", .profiles = "~/.config/vivaldi"}},
    {"~/.cache/opera",                    browsers, whole,    safe, "Opera page cache",
        {.owners = "opera", .profiles = "~/.config/opera"}},
    {"~/.cache/epiphany",                 browsers, whole,    safe, "GNOME Web page cache",
        {.owners = "epiphany epiphany-browser org.gnome.Epiphany"}},
    {"~/.cache/thunderbird",              browsers, children, safe, "Thunderbird cache; mail is kept",
        {.owners = "thunderbird thunderbird-bin thunderbird-esr", .profiles = "~/.thunderbird/* ~/.config/thunderbird/*"}},
};

// Slow to rebuild or in use while a session runs, so for review.
constexpr CatalogRow appCacheRows[] = {
    {"~/.cache/thumbnails",                           userCaches, whole,    safe,   "Thumbnails; made again as folders are viewed"},
    {"~/.cache/fontconfig",                           userCaches, whole,    review, "Font cache; rebuilt slowly, in use while you are logged in"},
    {"~/.cache/mesa_shader_cache",                    userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.cache/mesa_shader_cache_db",                 userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.cache/radv_builtin_shaders64",               userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.cache/nvidia",                               userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.nv/GLCache",                                 userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.nv/ComputeCache",                            userCaches, whole,    review, "Compiled GPU programs; rebuilt on next use"},
    {"~/.cache/qtshadercache",                        userCaches, whole,    review, "Shader cache; games and apps stutter until it is rebuilt"},
    {"~/.local/share/Steam/steamapps/shadercache",    userCaches, whole,    review, "Steam shader cache; games stutter until it is rebuilt", {.owners = "steam"}},
    {"~/.local/share/Steam/appcache/httpcache",       userCaches, whole,    safe,   "Steam download cache", {.owners = "steam"}},
    {"~/.local/share/Steam/logs",                     userCaches, whole,    safe,   "Steam logs", {.owners = "steam"}},
};

constexpr CatalogRow logRows[] = {
    {"~/.xsession-errors",                                  logs, whole, safe,   "Messages of graphical sessions", {.minAgeDays = 2}},
    {"~/.xsession-errors.old",                              logs, whole, safe,   "Messages of graphical sessions", {.minAgeDays = 2}},
    {"~/.local/share/xorg",                                 logs, files, safe,   "Log of an earlier X server", {.extensions = "old", .minAgeDays = 2}},
    {"~/.local/state/*/log",                                logs, whole, safe,   "Diagnostic logs", {.minAgeDays = 1}},
    {"~/.local/state/*/logs",                               logs, whole, safe,   "Diagnostic logs", {.minAgeDays = 1}},
    {"~/.config/google-chrome/Crash Reports",               logs, whole, safe,   "Crash reports", {.minAgeDays = 7, .owners = "chrome"}},
    {"~/.config/chromium/Crash Reports",                    logs, whole, safe,   "Crash reports", {.minAgeDays = 7, .owners = "chromium"}},
    {"~/.config/BraveSoftware/Brave-Browser/Crash Reports", logs, whole, safe,   "Crash reports", {.minAgeDays = 7, .owners = "brave"}},
    {"~/.config/microsoft-edge/Crash Reports",              logs, whole, safe,   "Crash reports", {.minAgeDays = 7, .owners = "msedge"}},
    {"~/core",                                              logs, whole, review, "Memory of a crashed program; needed only to find its fault", {.magic = "\177ELF"}},
    {"~/core.[0-9]*",                                       logs, whole, review, "Memory of a crashed program; needed only to find its fault", {.magic = "\177ELF"}},
    {"~/hs_err_pid*.log",                                   logs, whole, review, "Report of a crashed Java program", {.minItemSize = 1}},
};

// Folders below ~/.cache that hold more than what can be had again without the person.
constexpr CatalogRow keptInCacheRows[] = {
    {"~/.cache/evolution",       userCaches, whole, review, "Mail and calendars for reading offline; changes not yet sent may be among them", {.owners = "evolution org.gnome.Evolution"}},
    {"~/.cache/zsh",             userCaches, whole, review, "Some keep the history of their shell in it"},
    {"~/.cache/nvim",            userCaches, whole, review, "Neovim cache; plugins may keep more in it", {.owners = "nvim"}},
    {"~/.cache/borg",            userCaches, whole, review, "Borg's index of backups; rebuilt slowly from the repository", {.owners = "borg"}},
    {"~/.cache/restic",          userCaches, whole, review, "restic's copy of backup indexes; fetched again slowly", {.owners = "restic"}},
    {"~/.cache/duplicity",       userCaches, whole, review, "duplicity's signatures of backups; fetched again slowly", {.owners = "duplicity"}},
    {"~/.cache/deja-dup",        userCaches, whole, review, "Signatures of backups; fetched again slowly", {.owners = "deja-dup org.gnome.DejaDup"}},
    {"~/.cache/winetricks",      userCaches, whole, review, "Downloads of winetricks; some can no longer be had", {.owners = "winetricks"}},
    {"~/.cache/lutris",          userCaches, whole, review, "Downloads of Lutris; some can no longer be had", {.owners = "lutris net.lutris.Lutris"}},
    {"~/.cache/tracker3",        userCaches, whole, review, "Index of your files; rebuilt slowly"},
    {"~/.cache/wal",             userCaches, whole, review, "Colours of your desktop"},
    {"~/.cache/torch",           aiModels,   whole, review, "Models of PyTorch; downloaded again when needed"},
    {"~/.cache/whisper",         aiModels,   whole, review, "Models of Whisper; downloaded again when needed"},
};

// Rows that take what no row above names. Some are models and runtimes that the AI mode shows.
constexpr CatalogRow genericRows[] = {
    {"~/.cache/huggingface",     aiModels,   children, review, "Hugging Face"},
    {"~/.cache/lm-studio",       aiModels,   children, review, "LM Studio"},
    {"~/.cache/codex-runtimes",  aiCaches,   whole,    safe,   "Codex runtimes; re-downloaded when needed"},
    {"~/.cache",                 userCaches, children, safe,   "Regenerated by the app on demand", {.reviewWithinDays = 1, .onlyOfInstalled = true}},
};
// clang-format on

// Where these lie is the user's choice.
constexpr CatalogRow unfinishedDownloads{
    "",
    downloads,
    files,
    safe,
    "Download that never finished",
    {.extensions = "crdownload part download partial", .minAgeDays = 2, .toTrash = true}};
/// What other systems leave in folders that they show.
constexpr CatalogRow strayFile{
    "", downloads, whole, review, "How another system shows this folder", {.minItemSize = 1}};
constexpr std::string_view strayNames[] = {".DS_Store", "Thumbs.db"};

CleanRule ruleAt(const std::filesystem::path& folder, const CatalogRow& row) {
    CleanRule rule = rulesOf({{&row, 1}}).front();
    rule.path = "~/" + folder.native();
    return rule;
}

/// What tells that an editor runs, beside the name of its folder.
std::vector<std::string> ownersOf(std::string_view editor) {
    if (editor == "Code") return {"code", "code-oss", "com.visualstudio.code"};
    if (editor == "Code - Insiders") return {"code-insiders", "com.visualstudio.code.insiders"};
    if (editor == "VSCodium") return {"codium", "vscodium", "com.vscodium.codium"};
    if (editor == "Zed") return {"zed", "zed-editor", "dev.zed.Zed"};
    return {Text::lowercased(editor)};
}

/// Every folder of an editor is in use while the editor runs.
std::vector<CleanRule> editorsWithOwners() {
    std::vector<CleanRule> all;
    for (const std::string_view name : editorNames) {
        for (CleanRule& rule : editorRules("~/.config", {&name, 1}, editorRows)) {
            rule.owners = ownersOf(name);
            rule.profiles = {std::string("~/.config/").append(name)};
            all.push_back(std::move(rule));
        }
    }
    return all;
}

}  // namespace

std::vector<CleanRule> rules(const std::filesystem::path& downloadsFolder) {
    std::vector<CleanRule> all = rulesOf({packageManagerRows, devCacheRows, ideCacheRows});
    append(all, editorsWithOwners());
    append(all, rulesOf({browserRows, appCacheRows, logRows, keptInCacheRows, genericRows}));
    for (const std::string_view name : strayNames) all.push_back(ruleAt(downloadsFolder / name, strayFile));
    all.push_back(ruleAt(downloadsFolder, unfinishedDownloads));
    return all;
}

}  // namespace tavrel::Linux
