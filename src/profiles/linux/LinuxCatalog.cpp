#include "profiles/CatalogRow.h"
#include "profiles/linux/LinuxTables.h"

namespace tavrel::Linux {

namespace {

using enum CleanCategory;
using enum CatalogRow::Mode;
using enum Risk;

// clang-format off
constexpr CatalogRow packageManagerRows[] = {
    {"~/.npm/_cacache",                   packageManagers, whole, safe,   "npm download cache"},
    {"~/.cache/yarn",                     packageManagers, whole, safe,   "Yarn download cache"},
    {"~/.yarn/berry/cache",               packageManagers, whole, safe,   "Yarn Berry cache"},
    {"~/.local/share/pnpm/store",         packageManagers, whole, review, "pnpm store; projects re-link on next install"},
    {"~/.bun/install/cache",              packageManagers, whole, safe,   "Bun download cache"},
    {"~/.cache/pip",                      packageManagers, whole, safe,   "pip download cache"},
    {"~/.cache/uv",                       packageManagers, whole, safe,   "uv download cache"},
    {"~/.cache/pypoetry",                 packageManagers, whole, safe,   "Poetry cache"},
    {"~/.cache/pdm",                      packageManagers, whole, safe,   "PDM cache"},
    {"~/.cache/go-build",                 packageManagers, whole, safe,   "Go build cache"},
    {"~/.cargo/registry/cache",           packageManagers, whole, safe,   "Cargo crate downloads"},
    {"~/.cargo/registry/src",             packageManagers, whole, safe,   "Unpacked Cargo crates"},
    {"~/.gradle/caches",                  packageManagers, whole, review, "Gradle caches; next build re-downloads dependencies"},
    {"~/.m2/repository",                  packageManagers, whole, review, "Maven repository; next build re-downloads dependencies"},
    {"~/.cache/composer",                 packageManagers, whole, safe,   "Composer cache"},
    {"~/.composer/cache",                 packageManagers, whole, safe,   "Composer cache"},
    {"~/.nuget/packages",                 packageManagers, whole, review, "NuGet packages; next build restores them"},
    {"~/.pub-cache/hosted",               packageManagers, whole, review, "Dart/Flutter packages"},
    {"~/.conda/pkgs",                     packageManagers, whole, review, "Conda package cache"},
    {"~/miniconda3/pkgs",                 packageManagers, whole, review, "Conda package cache"},
    {"~/anaconda3/pkgs",                  packageManagers, whole, review, "Conda package cache"},
};

constexpr CatalogRow devCacheRows[] = {
    {"~/.cache/ccache",                   devCaches, whole,    safe,   "Compiler cache; builds fill it again"},
    {"~/.ccache",                         devCaches, whole,    safe,   "Compiler cache; builds fill it again"},
    {"~/.cache/sccache",                  devCaches, whole,    safe,   "Compiler cache; builds fill it again"},
    {"~/.cache/bazel",                    devCaches, whole,    review, "Bazel build cache"},
    {"~/.cache/pre-commit",               devCaches, whole,    safe,   "pre-commit hook environments"},
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
    {"~/.cache/deno",                     devCaches, whole,    safe,   "Deno cache"},
    {"~/.gradle/daemon",                  devCaches, whole,    safe,   "Gradle daemon logs"},
    {"~/.gradle/wrapper/dists",           devCaches, children, review, "Gradle distributions; re-downloaded per project"},
    {"~/.android/cache",                  devCaches, whole,    safe,   "Android SDK cache"},
    {"~/.android/build-cache",            devCaches, whole,    safe,   "Android build cache"},
    {"~/go/pkg/mod/cache/download",       devCaches, whole,    review, "Go module downloads"},
    {"~/.rustup/downloads",               devCaches, whole,    safe,   "rustup downloads"},
    {"~/.rustup/tmp",                     devCaches, whole,    safe,   "rustup temp files"},
    {"~/.cargo/git/checkouts",            devCaches, whole,    review, "Cargo git dependencies"},
    {"~/.expo/native-modules-cache",      devCaches, whole,    safe,   "Expo cache"},
    {"~/.expo/android-apk-cache",         devCaches, whole,    safe,   "Expo Go builds"},
    {"~/.docker/buildx/cache",            devCaches, whole,    safe,   "Docker buildx cache"},
    {"~/.kube/cache",                     devCaches, whole,    safe,   "kubectl discovery cache"},
    {"~/.terraform.d/plugin-cache",       devCaches, whole,    review, "Terraform providers"},
    {"~/.aws/cli/cache",                  devCaches, whole,    safe,   "AWS CLI cache"},
    {"~/.config/gcloud/logs",             devCaches, whole,    safe,   "gcloud logs"},
    {"~/.azure/logs",                     devCaches, whole,    safe,   "Azure CLI logs"},
    {"~/.oh-my-zsh/cache",                devCaches, whole,    safe,   "Oh My Zsh cache"},
};

constexpr CatalogRow ideCacheRows[] = {
    {"~/.cache/JetBrains",                devCaches, children, review, "JetBrains IDE caches and indexes; rebuilt on next open"},
    {"~/.config/unity3d/cache",           devCaches, whole,    safe,   "Unity package cache"},
    {"~/.cache/nvim",                     devCaches, whole,    safe,   "Neovim cache"},
};

// Profiles lie elsewhere and are not touched. The owner is the program's executable.
constexpr CatalogRow browserRows[] = {
    {"~/.cache/mozilla/firefox",          browsers, children, safe, "Firefox page cache",                   {.owner = "firefox"}},
    {"~/.cache/google-chrome",            browsers, whole,    safe, "Chrome page cache; logins are kept",   {.owner = "chrome"}},
    {"~/.cache/chromium",                 browsers, whole,    safe, "Chromium page cache; logins are kept", {.owner = "chromium"}},
    {"~/.cache/BraveSoftware",            browsers, whole,    safe, "Brave page cache",                     {.owner = "brave"}},
    {"~/.cache/microsoft-edge",           browsers, whole,    safe, "Edge page cache",                      {.owner = "msedge"}},
    {"~/.cache/vivaldi",                  browsers, whole,    safe, "Vivaldi page cache",                   {.owner = "vivaldi-bin"}},
    {"~/.cache/opera",                    browsers, whole,    safe, "Opera page cache",                     {.owner = "opera"}},
    {"~/.cache/epiphany",                 browsers, whole,    safe, "GNOME Web page cache",                 {.owner = "epiphany"}},
    {"~/.cache/thunderbird",              browsers, children, safe, "Thunderbird cache; mail is kept",      {.owner = "thunderbird"}},
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
    {"~/.local/share/Steam/steamapps/shadercache",    userCaches, whole,    review, "Steam shader cache; games stutter until it is rebuilt", {.owner = "steam"}},
    {"~/.local/share/Steam/appcache/httpcache",       userCaches, whole,    safe,   "Steam download cache", {.owner = "steam"}},
    {"~/.local/share/Steam/logs",                     userCaches, whole,    safe,   "Steam logs", {.owner = "steam"}},
    {"~/.xsession-errors",                            logs,       whole,    safe,   "Messages of graphical sessions", {.minAgeDays = 2}},
    {"~/.xsession-errors.old",                        logs,       whole,    safe,   "Messages of graphical sessions", {.minAgeDays = 2}},
    {"~/.local/share/xorg",                           logs,       files,    safe,   "Log of an earlier X server", {.extensions = "old", .minAgeDays = 2}},
    {"~/.config/google-chrome/Crash Reports",         logs,       whole,    safe,   "Crash reports", {.minAgeDays = 7, .owner = "chrome"}},
    {"~/.config/chromium/Crash Reports",              logs,       whole,    safe,   "Crash reports", {.minAgeDays = 7, .owner = "chromium"}},
    {"~/.config/BraveSoftware/Brave-Browser/Crash Reports", logs, whole,    safe,   "Crash reports", {.minAgeDays = 7, .owner = "brave"}},
    {"~/.config/microsoft-edge/Crash Reports",        logs,       whole,    safe,   "Crash reports", {.minAgeDays = 7, .owner = "msedge"}},
};

// Rows that take what no row above names. Two of them are models and runtimes that the AI mode shows.
constexpr CatalogRow genericRows[] = {
    {"~/.cache/huggingface",     aiModels,   children, review, "Hugging Face"},
    {"~/.cache/lm-studio",       aiModels,   children, review, "LM Studio"},
    {"~/.cache/codex-runtimes",  aiCaches,   whole,    safe,   "Codex runtimes; re-downloaded when needed"},
    {"~/.cache",                 userCaches, children, safe,   "Regenerated by the app on demand", {.reviewWithinDays = 1}},
};
// clang-format on

// Where these lie is the user's choice.
constexpr CatalogRow unfinishedDownloads{"",
                                         downloads,
                                         files,
                                         safe,
                                         "Download that never finished",
                                         {.extensions = "crdownload part download partial", .minAgeDays = 2}};
constexpr CatalogRow trashedFiles{"", trash, children, safe, "Already in the Trash", {.permanent = true}};

CleanRule ruleAt(const std::filesystem::path& folder, const CatalogRow& row) {
    CleanRule rule = rulesOf({&row, 1}).front();
    rule.path = "~/" + folder.native();
    return rule;
}

}  // namespace

Catalog catalog(const std::filesystem::path& downloadsFolder, const std::filesystem::path& trashFolder) {
    Catalog made{
        .packageManagers = rulesOf(packageManagerRows),
        .devCaches = rulesOf(devCacheRows),
        .ideCaches = rulesOf(ideCacheRows),
        .appCaches = rulesOf(appCacheRows),
        .editors = editorRules("~/.config", editorNames, editorRows),
        .browsers = rulesOf(browserRows),
        .generic = rulesOf(genericRows),
    };
    made.generic.push_back(ruleAt(downloadsFolder, unfinishedDownloads));
    made.generic.push_back(ruleAt(trashFolder / "files", trashedFiles));
    return made;
}

}  // namespace tavrel::Linux
