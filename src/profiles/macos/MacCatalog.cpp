#include "profiles/CatalogRow.h"
#include "profiles/macos/MacTables.h"

namespace tavrel::Mac {

namespace {

using enum CleanCategory;
using enum CatalogRow::Mode;
using enum Risk;

// clang-format off
constexpr CatalogRow xcodeRows[] = {
    {"~/Library/Developer/Xcode/DerivedData",            xcode, children, safe,   "Build products and indexes; Xcode rebuilds them"},
    {"~/Library/Developer/Xcode/iOS DeviceSupport",      xcode, children, review, "Debug symbols per iOS version; re-copied when the device connects"},
    {"~/Library/Developer/Xcode/watchOS DeviceSupport",  xcode, children, review, "Debug symbols per watchOS version"},
    {"~/Library/Developer/Xcode/Archives",               xcode, children, review, "Archived builds; keep the ones you may need to symbolicate"},
    {"~/Library/Developer/CoreSimulator/Caches",         xcode, whole,    safe,   "Simulator dyld and runtime caches"},
    {"~/Library/Developer/Xcode/UserData/Previews",      xcode, whole,    safe,   "SwiftUI preview simulators"},
    {"~/Library/Caches/com.apple.dt.Xcode",              xcode, whole,    safe,   "Xcode's own cache"},
    {"~/Library/Developer/Xcode/DocumentationCache",     xcode, whole,    safe,   "Downloaded documentation; Xcode fetches it again"},
    {"~/Library/Developer/Xcode/iOS Device Logs",        xcode, whole,    safe,   "Logs pulled from connected devices"},
    {"~/Library/Developer/CoreSimulator/Devices/.cache", xcode, whole,    safe,   "Simulator device cache"},
};

constexpr CatalogRow packageManagersRows[] = {
    {"~/Library/Caches/Homebrew",          packageManagers, whole,    safe,   "Homebrew downloads"},
    {"~/.npm/_cacache",                    packageManagers, whole,    safe,   "npm download cache"},
    {"~/Library/Caches/Yarn",              packageManagers, whole,    safe,   "Yarn download cache"},
    {"~/.yarn/berry/cache",                packageManagers, whole,    safe,   "Yarn Berry cache"},
    {"~/Library/pnpm/store",               packageManagers, whole,    review, "pnpm store; projects re-link on next install"},
    {"~/.bun/install/cache",               packageManagers, whole,    safe,   "Bun download cache"},
    {"~/Library/Caches/pip",               packageManagers, whole,    safe,   "pip download cache"},
    {"~/.cache/uv",                        packageManagers, whole,    safe,   "uv download cache"},
    {"~/Library/Caches/pypoetry",          packageManagers, whole,    safe,   "Poetry cache"},
    {"~/Library/Caches/CocoaPods",         packageManagers, whole,    safe,   "CocoaPods spec and pod cache"},
    {"~/Library/Caches/org.swift.swiftpm", packageManagers, whole,    safe,   "Swift Package Manager cache"},
    {"~/Library/Caches/go-build",          packageManagers, whole,    safe,   "Go build cache"},
    {"~/.cargo/registry/cache",            packageManagers, whole,    safe,   "Cargo crate downloads"},
    {"~/.gradle/caches",                   packageManagers, whole,    review, "Gradle caches; next build re-downloads dependencies"},
    {"~/.m2/repository",                   packageManagers, whole,    review, "Maven repository; next build re-downloads dependencies"},
    {"~/.composer/cache",                  packageManagers, whole,    safe,   "Composer cache"},
    {"~/.pub-cache/hosted",                packageManagers, whole,    review, "Dart/Flutter packages"},
};

constexpr CatalogRow devCachesRows[] = {
    {"~/.cache/pre-commit",                devCaches, whole,    safe,   "pre-commit hook environments"},
    {"~/.cache/ruff",                      devCaches, whole,    safe,   "Ruff cache"},
    {"~/.cache/node-gyp",                  devCaches, whole,    safe,   "node-gyp headers"},
    {"~/Library/Caches/node-gyp",          devCaches, whole,    safe,   "node-gyp headers"},
    {"~/.node-gyp",                        devCaches, whole,    safe,   "node-gyp headers (legacy)"},
    {"~/.npm/_logs",                       devCaches, whole,    safe,   "npm debug logs"},
    {"~/.cache/typescript",                devCaches, whole,    safe,   "TypeScript type cache"},
    {"~/Library/Caches/typescript",        devCaches, whole,    safe,   "TypeScript type cache"},
    {"~/.cache/prisma",                    devCaches, whole,    safe,   "Prisma engines"},
    {"~/.cache/electron",                  devCaches, whole,    safe,   "Electron binaries"},
    {"~/Library/Caches/electron",          devCaches, whole,    safe,   "Electron binaries"},
    {"~/.cache/puppeteer",                 devCaches, whole,    review, "Browsers for Puppeteer; re-downloaded on next run"},
    {"~/Library/Caches/ms-playwright",     devCaches, children, review, "Browsers for Playwright; re-downloaded on next install"},
    {"~/Library/Caches/Cypress",           devCaches, children, review, "Cypress app binaries"},
    {"~/.cache/bazel",                     devCaches, whole,    review, "Bazel build cache"},
    {"~/Library/Caches/deno",              devCaches, whole,    safe,   "Deno cache"},
    {"~/.gradle/daemon",                   devCaches, whole,    safe,   "Gradle daemon logs"},
    {"~/.gradle/wrapper/dists",            devCaches, children, review, "Gradle distributions; re-downloaded per project"},
    {"~/.android/cache",                   devCaches, whole,    safe,   "Android SDK cache"},
    {"~/.android/build-cache",             devCaches, whole,    safe,   "Android build cache"},
    {"~/.conda/pkgs",                      devCaches, whole,    safe,   "Conda package cache"},
    {"~/miniconda3/pkgs",                  devCaches, whole,    safe,   "Conda package cache"},
    {"~/anaconda3/pkgs",                   devCaches, whole,    safe,   "Conda package cache"},
    {"~/.nuget/packages",                  devCaches, whole,    review, "NuGet packages; next build restores them"},
    {"~/go/pkg/mod/cache/download",        devCaches, whole,    review, "Go module downloads"},
    {"~/.rustup/downloads",                devCaches, whole,    safe,   "rustup downloads"},
    {"~/.rustup/tmp",                      devCaches, whole,    safe,   "rustup temp files"},
    {"~/.cargo/git/checkouts",             devCaches, whole,    review, "Cargo git dependencies"},
    {"~/.expo/native-modules-cache",       devCaches, whole,    safe,   "Expo cache"},
    {"~/.expo/versions-cache",             devCaches, whole,    safe,   "Expo cache"},
    {"~/.expo/ios-simulator-app-cache",    devCaches, whole,    safe,   "Expo Go builds"},
    {"~/.expo/android-apk-cache",          devCaches, whole,    safe,   "Expo Go builds"},
    {"~/.docker/buildx/cache",             devCaches, whole,    safe,   "Docker buildx cache"},
    {"~/.kube/cache",                      devCaches, whole,    safe,   "kubectl discovery cache"},
    {"~/.terraform.d/plugin-cache",        devCaches, whole,    review, "Terraform providers"},
    {"~/.aws/cli/cache",                   devCaches, whole,    safe,   "AWS CLI cache"},
    {"~/.config/gcloud/logs",              devCaches, whole,    safe,   "gcloud logs"},
    {"~/.azure/logs",                      devCaches, whole,    safe,   "Azure CLI logs"},
    {"~/.oh-my-zsh/cache",                 devCaches, whole,    safe,   "Oh My Zsh cache"},
    {"~/Library/Developer/Xcode/Products", devCaches, whole,    safe,   "Xcode build products"},
};

constexpr CatalogRow ideCachesRows[] = {
    {"~/Library/Caches/JetBrains",               devCaches, children, safe,   "JetBrains IDE caches and indexes; rebuilt on next open"},
    {"~/Library/Unity/cache",                    devCaches, whole,    safe,   "Unity package cache"},
    {"~/Library/Caches/com.unity3d.UnityEditor", devCaches, whole,    safe,   "Unity editor cache"},
};

constexpr CatalogRow browsersRows[] = {
    {"~/Library/Caches/Google/Chrome",    browsers, whole,    safe,   "Chrome page cache; logins are kept"},
    {"~/Library/Caches/com.apple.Safari", browsers, whole,    safe,   "Safari page cache; logins are kept"},
    {"~/Library/Caches/Firefox",          browsers, whole,    safe,   "Firefox page cache"},
    {"~/Library/Caches/BraveSoftware",    browsers, whole,    safe,   "Brave page cache"},
    {"~/Library/Caches/Microsoft Edge",   browsers, whole,    safe,   "Edge page cache"},
    {"~/Library/Caches/Arc",              browsers, whole,    safe,   "Arc page cache"},
};

constexpr CatalogRow appCachesRows[] = {
    {"~/Library/Application Support/Spotify/PersistentCache",        userCaches, whole,    safe,   "Spotify streaming cache; songs re-download as you play them"},
    {"~/Library/Application Support/Adobe/Common/Media Cache Files", userCaches, whole,    safe,   "Adobe media cache; rebuilt when a project opens"},
    {"~/Library/Application Support/Adobe/Common/Media Cache",       userCaches, whole,    safe,   "Adobe media cache database"},
    {"~/Library/Application Support/Steam/appcache",                 userCaches, whole,    safe,   "Steam app cache"},
    {"~/Library/Application Support/Steam/logs",                     userCaches, whole,    safe,   "Steam logs"},
    {"~/Library/iTunes/iPhone Software Updates",                     userCaches, children, safe,   "Downloaded iPhone software update; re-downloaded if ever needed"},
    {"~/Library/iTunes/iPad Software Updates",                       userCaches, children, safe,   "Downloaded iPad software update"},
    {"~/Library/Application Support/CrashReporter",                  logs,       children, safe,   "Old crash reporter data", {.minAgeDays = 7}},
};

constexpr CatalogRow genericRows[] = {
    {"~/Library/Caches",                                                userCaches, children, safe,   "Regenerated by the app on demand"},
    {"~/Library/Logs",                                                  logs,       children, safe,   "Diagnostic logs", {.minAgeDays = 1}},
    {"~/Library/Containers/com.apple.mail/Data/Library/Mail Downloads", mail,       children, safe,   "Copies of opened attachments; the originals stay in Mail"},
    {"~/Downloads",                                                     downloads,  files,    safe,   "Download that never finished", {.extensions = "crdownload part download partial", .minAgeDays = 2}},
    {"~/Library/Application Support/MobileSync/Backup",                 iosBackups, children, review, "Local device backup; make sure it's not your only one"},
    {"~/.Trash",                                                        trash,      children, safe,   "Already in the Trash", {.permanent = true}},
};
// clang-format on

}  // namespace

std::vector<CleanRule> rules() {
    std::vector<CleanRule> all = rulesOf({xcodeRows, packageManagersRows, devCachesRows, ideCachesRows});
    append(all, editorRules("~/Library/Application Support", editorNames, editorRows));
    append(all, rulesOf({browsersRows, appCachesRows, genericRows}));
    return all;
}

}  // namespace tavrel::Mac
