#include "cleaning/Scanning.h"
#include "cleaning/SpecialScanners.h"
#include "core/Files.h"
#include "core/Text.h"

#include <algorithm>
#include <set>

// What coding agents and local model tools leave behind. What can be regenerated unnoticed is a safe cache;
// what records past work is safe once it is old; what may hold uncommitted work or costs a long download is
// for review.

namespace tavrel::SpecialScanners {

using Scanning::note;
using Text::localized;

namespace {

constexpr std::int64_t leastAiSize = 16384;  // session files are small and many
constexpr int worktreeAgeDays = 30;

// clang-format off
constexpr AiFolder fixedFolders[] = {
    {".claude/debug",           CleanCategory::aiCaches, Risk::safe, "Claude Code debug logs"},
    {".claude/shell-snapshots", CleanCategory::aiCaches, Risk::safe, "Claude Code shell snapshots"},
    {".codex/log",              CleanCategory::aiCaches, Risk::safe, "Codex logs"},
    {".codex/.tmp",             CleanCategory::aiCaches, Risk::safe, "Codex temp files"},
    {".cache/codex-runtimes",   CleanCategory::aiCaches, Risk::safe, "Codex runtimes; re-downloaded when needed"},
    {".gemini/tmp",             CleanCategory::aiCaches, Risk::safe, "Gemini CLI temp files"},
};
// clang-format on

/// The newest date near the top of a tree: of the folder itself and of what is visible down to `depth`
/// levels.
Instant newestModification(const Path& in, int depth) {
    Instant newest = Files::modificationDate(in).value_or(distantPast);
    if (depth < 1 || !Files::isFolder(in)) return newest;
    for (const std::string& name : Files::names(in, Files::Hidden::skip)) {
        newest = std::max(newest, newestModification(in / name, depth - 1));
    }
    return newest;
}

/// The last piece of a project folder's name: "-Users-ana-code-shop" is "shop".
std::string projectLabel(std::string_view name) {
    const auto end = name.find_last_not_of('-');
    if (end == std::string_view::npos) return {};
    name = name.substr(0, end + 1);
    const auto dash = name.rfind('-');
    return std::string(dash == std::string_view::npos ? name : name.substr(dash + 1));
}

class AiScan {
  public:
    AiScan(const Path& home, const SafetyGuard& safety, Instant now)
        : home_(home), safety_(safety), now_(now) {}

    void claudeSessions(int ageDays) {
        const Path projects = home_ / ".claude/projects";
        for (const std::string& project : Files::names(projects)) {
            for (const std::string& name : Files::names(projects / project)) {
                const Path session = projects / project / name;
                if (Paths::extension(session) != "jsonl") continue;
                if (Files::modificationDate(session).value_or(distantFuture) >= now_ - Days(ageDays))
                    continue;
                add(session, CleanCategory::aiSessions, Risk::safe, "Claude Code · " + projectLabel(project));
            }
        }
    }

    void codexSessions(int ageDays) {
        const Path sessions = home_ / ".codex/sessions";
        for (const std::string& year : Files::names(sessions)) {
            for (const std::string& month : Files::names(sessions / year)) {
                if (newestModification(sessions / year / month, 3) >= now_ - Days(ageDays)) continue;
                add(sessions / year / month, CleanCategory::aiSessions, Risk::safe,
                    note("Codex", localized("sessions from ").append(year).append("-").append(month)));
            }
        }
    }

    void worktrees() {
        for (const std::string_view folder : {".claude/worktrees", ".codex/worktrees"}) {
            for (const std::string& name : Files::names(home_ / folder)) {
                const Path worktree = home_ / folder / name;
                if (newestModification(worktree, 2) >= now_ - Days(worktreeAgeDays)) continue;
                add(worktree, CleanCategory::aiSessions, Risk::review,
                    localized("Agent worktree untouched for 30+ days; uncommitted work in it goes too"));
            }
        }
    }

    void folders(std::span<const AiFolder> rows) {
        for (const AiFolder& row : rows) {
            for (const Path& path : Files::matching(home_, row.path))
                add(path, row.category, row.risk, localized(row.note));
        }
    }

    void superseded() {
        append(olderVersions(home_ / ".local/share/claude/versions", CleanCategory::aiCaches, "Claude Code",
                             safety_));
        append(olderVersions(home_ / ".local/share/cursor-agent/versions", CleanCategory::aiCaches,
                             "Cursor Agent", safety_));
    }

    void models() {
        for (const std::string_view base : {".lmstudio/models", ".cache/lm-studio/models"}) {
            for (const std::string& publisher : Files::names(home_ / base)) {
                for (const std::string& model : Files::names(home_ / base / publisher)) {
                    add(home_ / base / publisher / model, CleanCategory::aiModels, Risk::review,
                        note("LM Studio", model));
                }
            }
        }
        const Path hub = home_ / ".cache/huggingface/hub";
        for (const std::string& name : Files::names(hub)) {
            if (!name.starts_with("models--") && !name.starts_with("datasets--")) continue;
            add(hub / name, CleanCategory::aiModels, Risk::review, "Hugging Face");
        }
        add(home_ / ".ollama/models", CleanCategory::aiModels, Risk::review,
            localized("Ollama · all models (remove single ones with `ollama rm`)"));
    }

    Items take() { return std::move(items_); }

  private:
    void add(const Path& path, CleanCategory category, Risk risk, std::string words) {
        if (!Files::exists(path) || !Scanning::vet(safety_, path) || !seen_.insert(path).second) return;
        const std::int64_t size = FileSizer::size(path);
        if (size < leastAiSize) return;
        items_.push_back(
            {.url = path, .size = size, .category = category, .risk = risk, .note = std::move(words)});
    }

    void append(Items more) { items_.insert(items_.end(), more.begin(), more.end()); }

    const Path& home_;
    const SafetyGuard& safety_;
    Instant now_;
    std::set<Path> seen_;
    Items items_;
};

}  // namespace

Items ai(const Path& home, const SafetyGuard& safety, int sessionAgeDays, Instant now,
         std::span<const AiFolder> folders) {
    AiScan scan(home, safety, now);
    scan.folders(folders);
    scan.claudeSessions(sessionAgeDays);
    scan.codexSessions(sessionAgeDays);
    scan.worktrees();
    scan.folders(fixedFolders);
    scan.superseded();
    scan.models();
    Items items = scan.take();
    Scanning::sortBySize(items);
    return items;
}

}  // namespace tavrel::SpecialScanners
