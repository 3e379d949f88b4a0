#include "profiles/CatalogRow.h"
#include "profiles/linux/LinuxTables.h"

#include <iterator>

namespace tavrel::Linux {

using SpecialScanners::AiFolder;
using SpecialScanners::WebCache;
using SpecialScanners::WebCachePlaces;

namespace {

using enum CleanCategory;
using enum Risk;

// clang-format off
/// As everywhere, and what newer engines write. Pages decide what lies with their service workers.
constexpr WebCache linuxWebCaches[] = {
    {"Cache"}, {"Code Cache"}, {"GPUCache"}, {"DawnCache"}, {"DawnGraphiteCache"}, {"DawnWebGPUCache"},
    {"GPUPersistentCache"}, {"ShaderCache"}, {"GrShaderCache"}, {"GraphiteDawnCache"},
    {"BrowserMetrics",              safe,   "figures that are no longer sent"},
    {"DeferredBrowserMetrics",      safe,   "figures that are no longer sent"},
    {"Service Worker/CacheStorage", review, "copies of web pages that work without a network"},
    {"Service Worker/ScriptCache",  review, "copies of web pages that work without a network"},
};

/// The rows that win over those of every system name folders which hold more than a cache.
constexpr AiFolder linuxAiFolders[] = {
    {".gemini/tmp",                aiSessions, review, "Gemini CLI sessions and checkpoints"},
    {".cache/huggingface/datasets", aiModels,  review, "Hugging Face data sets; what you made of them goes too"},
    {".cache/huggingface/xet",     aiModels,   review, "Hugging Face download cache"},
    {".cache/torch",               aiModels,   review, "Models of PyTorch; downloaded again when needed"},
    {".cache/whisper",             aiModels,   review, "Models of Whisper; downloaded again when needed"},
    {".continue/logs",             aiCaches,   safe,   "Continue logs"},
    {".copilot/logs",              aiCaches,   safe,   "Copilot CLI logs"},
    {".local/share/opencode/log",  aiCaches,   safe,   "opencode logs"},
};
// clang-format on

}  // namespace

std::vector<WebCachePlaces> webCachePlaces() {
    std::vector<WebCachePlaces> places;
    for (const char* folders : {".config", ".config/BraveSoftware", ".var/app/*/config",
                                ".var/app/*/config/BraveSoftware", "snap/*/*/.config", "snap/*/common"}) {
        places.push_back({.folders = folders,
                          .skippedPrefix = {},
                          .skipped = {},
                          .caches = {std::begin(linuxWebCaches), std::end(linuxWebCaches)},
                          .parts = {"", "Default", "Profile *", "Partitions/*"}});
    }
    // Those of editors outside of a sandbox have rows.
    places.front().skipped = {std::begin(editorNames), std::end(editorNames)};
    return places;
}

std::vector<AiFolder> aiFolders() {
    return {std::begin(linuxAiFolders), std::end(linuxAiFolders)};
}

InstallerFinder::Tables installers(const Places& places) {
    return {
        .extensions = {"dmg", "pkg", "mpkg", "xip", "iso", "deb", "rpm", "appimage", "run", "flatpakref",
                       "flatpak", "snap"},
        .packages = {"app"},
        .applications = places.applications(),
        .alsoWorks = {"dmg", "pkg", "mpkg", "xip", "iso", "run"},
        .programs = {"appimage"},
        .toolchains = {"gcc-*.tar.*", "clang+llvm-*.tar.*", "go1.*linux-*.tar.gz", "node-v*-linux-*.tar.*",
                       "rust-*-linux-*.tar.*", "openjdk*.tar.gz", "jdk-*.tar.gz", "graalvm-*.tar.gz",
                       "apache-maven-*.tar.gz", "gradle-*-bin.zip", "cmake-*-linux-*.tar.gz",
                       "android-studio-*.tar.gz", "commandlinetools-linux-*.zip",
                       "arm-gnu-toolchain-*.tar.*"},
        .inboxes = {places.downloads(), places.desktop()},
    };
}

}  // namespace tavrel::Linux
