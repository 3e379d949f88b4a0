#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <filesystem>

namespace tavrel::sample {

namespace {

constexpr std::int64_t KB = 1000;
constexpr std::int64_t MB = 1000 * KB;

/// A folder of equal files on the disk.
struct Folder {
    std::string_view path;
    int files;
    std::int64_t bytesEach;
    double daysOld;
};

/// One large file.
struct Bulk {
    std::string_view path;
    std::int64_t bytes;
    double daysOld;
};

// clang-format off
constexpr Folder folders[] = {
    // System data
    {"/Library/Caches/com.adobe.Shared",                                  200, 12 * KB, 40},
    {"/Library/Caches/com.apple.iconservices",                             50, 12 * KB, 40},
    // App caches
    {"~/Library/Caches/com.spotify.client",                              6000,  9 * KB,  3},
    {"~/Library/Caches/com.tinyspeck.slackmacgap",                       3000,  7 * KB,  9},
    {"~/Library/Caches/com.apple.Music",                                  800, 15 * KB,  2},
    {"~/Library/Caches/net.whatsapp.WhatsApp",                           1500,  6 * KB,  1},
    {"~/Library/Application Support/Adobe/Common/Media Cache Files",      400, 60 * KB, 70},
    {"~/Library/Containers/com.apple.Notes/Data/Library/Caches",          300,  9 * KB,  5},
    {"~/Library/Containers/org.pixelmator.Pro/Data/Library/Caches",       300, 20 * KB, 25},
    // Logs
    {"~/Library/Logs/DiagnosticReports",                                  150,  9 * KB, 12},
    {"~/Library/Logs/Zoom",                                                60, 11 * KB,  0},
    {"~/Library/Application Support/CrashReporter/old",                    40,  5 * KB, 60},
    // Xcode
    {"~/Library/Developer/Xcode/DerivedData/Orbit-ahjkqw",               5000,  8 * KB, 20},
    {"~/Library/Developer/Xcode/DerivedData/Comet-bqwert",               2500,  8 * KB,  1},
    {"~/Library/Developer/Xcode/iOS DeviceSupport/iPhone15,2 17.1 (21B74)", 400, 40 * KB, 200},
    {"~/Library/Developer/Xcode/iOS DeviceSupport/iPhone15,2 17.4 (21E219)", 400, 40 * KB, 30},
    {"~/Library/Developer/CoreSimulator/Caches/dyld",                     100, 90 * KB, 50},
    // Package managers and developer tools
    {"~/.npm/_cacache/content-v2",                                       6000,  5 * KB, 15},
    {"~/.cargo/registry/cache/index",                                     900, 14 * KB, 33},
    {"~/Library/Caches/pip/http",                                        1200,  9 * KB, 45},
    {"~/.gradle/caches/modules-2",                                       1500, 11 * KB, 80},
    {"~/.cache/pre-commit/repo",                                          700,  6 * KB, 61},
    {"~/Library/Caches/JetBrains/IntelliJIdea2024.1",                     800, 10 * KB, 90},
    // Editors
    {"~/Library/Application Support/Code/CachedData/abc",                 600, 10 * KB,  4},
    {"~/Library/Application Support/Code/User/workspaceStorage/w1",       100,  9 * KB, 14},
    {"~/.vscode/extensions/ms-python.python-2024.2.0-darwin-arm64",       500,  7 * KB, 99},
    {"~/.vscode/extensions/ms-python.python-2024.10.0-darwin-arm64",      500,  7 * KB,  9},
    // App web caches
    {"~/Library/Application Support/Slack/Cache/Cache_Data",             1500, 12 * KB,  2},
    {"~/Library/Application Support/Slack/Service Worker/CacheStorage/x", 500, 12 * KB,  2},
    {"~/Library/Application Support/discord/GPUCache",                     80,  9 * KB,  6},
    // Browsers and mail
    {"~/Library/Caches/Google/Chrome/Default/Cache",                     4000,  9 * KB,  1},
    {"~/Library/Caches/com.apple.Safari/fsCachedData",                   1500, 10 * KB,  1},
    {"~/Library/Containers/com.apple.mail/Data/Library/Mail Downloads/A1", 30, 30 * KB, 100},
    // Trash
    {"~/.Trash/old project",                                              400,  6 * KB, 15},
    // AI
    {"~/.codex/sessions/2025/11",                                          90,  9 * KB, 200},
    {"~/.claude/debug",                                                    60,  9 * KB, 10},
    {"~/.claude/worktrees/attempt-3",                                     300,  5 * KB, 70},
    // Projects
    {"~/Developer/shop/node_modules/react",                              3000,  4 * KB, 120},
    {"~/Developer/shop/.next/cache",                                      400, 20 * KB, 120},
    {"~/Developer/game/target/debug",                                    1500, 18 * KB, 75},
    {"~/Developer/today/node_modules/vite",                              1500,  4 * KB,  0},
    {"~/Developer/science/.venv/lib",                                    1200,  6 * KB, 60},
};

constexpr Bulk files[] = {
    {"/Library/Logs/DiagnosticReports/Finder_2026.ips",                           300 * KB,  20},
    {"/private/var/log/system.log.3.gz",                                          700 * KB,  14},
    {"/private/var/log/system.log",                                               900 * KB,   0},
    {"/Applications/Install macOS Sonoma.app/Contents/SharedSupport/image.dmg",   300 * MB, 300},
    {"~/Library/Application Support/MobileSync/Backup/00008110-A/blob",           250 * MB,  90},
    {"~/Downloads/Film.mkv.crdownload",                                            90 * MB,  12},
    {"~/Downloads/Firefox 118.dmg",                                                85 * MB,  50},
    {"~/Downloads/Yesterday.pkg",                                                  30 * MB,   1},
    {"~/Desktop/ubuntu.iso",                                                      160 * MB, 400},
    {"~/.ollama/models/blobs/sha256-1",                                           200 * MB,  33},
    {"~/.lmstudio/models/publisher/small-7b/weights.gguf",                        120 * MB,  33},
    {"~/.cache/huggingface/hub/models--org--tiny/blobs/1",                         40 * MB,  33},
    {"~/.claude/projects/-Users-ana-code-shop/1.jsonl",                           400 * KB, 120},
    {"~/.claude/projects/-Users-ana-code-shop/2.jsonl",                           400 * KB,   2},
    {"~/.local/share/claude/versions/1.0.1",                                       20 * MB,  60},
    {"~/.local/share/claude/versions/1.0.9",                                       20 * MB,   6},
    {"~/Documents/thesis.pages",                                                    2 * MB,   3},
    {"~/Pictures/Photos Library.photoslibrary/originals/1.heic",                    4 * MB,  30},
};

// Names that break careless tools: newlines, quotes, options, escapes, bytes that are no UTF-8.
constexpr std::string_view hostileNames[] = {
    "two\nlines", "it's \"quoted\"", "-rf", "$(reboot)", "\x1b[31mred", "latin\xe9", "tab\there", "back\\slash", "東京🌙",
};

struct Marker { std::string_view path; double daysOld; };
constexpr Marker markers[] = {
    {"~/Developer/shop/package.json",       120},
    {"~/Developer/shop/.git/HEAD",          120},
    {"~/Developer/game/Cargo.toml",          75},
    {"~/Developer/today/package.json",        0},
    {"~/Developer/science/pyproject.toml",   60},
};
// clang-format on

}  // namespace

void SampleMac::fill(double share) const {
    constexpr int fewest = 12;  // so that every folder stays worth a line
    for (const Folder& row : folders) {
        const int some = std::max(std::min(row.files, fewest), static_cast<int>(row.files * share));
        folder(row.path, some, row.bytesEach, row.daysOld);
    }
    for (const Bulk& row : files) bulk(row.path, row.bytes, row.daysOld);
    for (const Marker& row : markers) file(row.path, 20, row.daysOld);
    for (const std::string_view name : hostileNames) {
        folder("~/Library/Caches/" + std::string(name), 3, 40 * KB, 8);
    }
    // A project's age is that of what lies directly in it.
    for (const Marker& row : markers) {
        const Path project = at(row.path).parent_path();
        for (const auto& entry : std::filesystem::directory_iterator(project))
            testing::Sandbox::date(entry.path(), testing::daysAgo(row.daysOld));
    }
    std::filesystem::create_symlink("/etc", at("~/Library/Caches/linked"));
}

}  // namespace tavrel::sample
