#include "disk/TreeRecord.h"

#include "core/Text.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <set>
#include <sys/stat.h>
#include <utility>

#include <nlohmann/json.hpp>

namespace tavrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* format = "tavrel-tree";
constexpr int version = 1;
constexpr int everyLevel = std::numeric_limits<int>::max();

/// `path` below `root`; the root itself ends with a slash only where it is "/".
std::string below(const std::string& root, const std::string& path) {
    const std::size_t skip = root == "/" ? 1 : root.size() + 1;
    return path.size() > skip ? path.substr(skip) : std::string();
}

/// Whether no name of the file was met before: its blocks are there once, however many names it has.
class FirstNames {
  public:
    [[nodiscard]] bool isNew(const std::string& path) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0 || status.st_nlink < 2) return true;
        return met_.emplace(status.st_dev, status.st_ino).second;
    }

  private:
    std::set<std::pair<dev_t, ino_t>> met_;
};

std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

/// A whole number that is no less than 0.
std::optional<std::int64_t> count(const Json& value) {
    if (!value.is_number_integer() ||
        (value.is_number_unsigned() && value > Json(std::numeric_limits<std::int64_t>::max())))
        return std::nullopt;
    const auto number = value.get<std::int64_t>();
    return number < 0 ? std::nullopt : std::optional(number);
}

std::optional<DiskIndex::Info> info(const Json& value) {
    if (!value.is_array() || value.size() != 2) return std::nullopt;
    const auto size = count(value[0]);
    const auto files = count(value[1]);
    if (!size || !files) return std::nullopt;
    return DiskIndex::Info{*size, *files};
}

/// Fills `map` from an object; false when some value is none of its kind.
template <typename Value, typename Read>
bool readAll(const Json& document, const char* key, std::map<std::string, Value>& map, Read read) {
    const auto found = document.find(key);
    if (found == document.end() || !found->is_object()) return false;
    for (const auto& [path, value] : found->items()) {
        const auto one = read(value);
        if (!one) return false;
        map.emplace(Text::decodePath(path), *one);
    }
    return true;
}

/// How much each place differs by itself: what its named parts explain is theirs alone.
class Comparison {
  public:
    Comparison(const TreeRecord& before, const TreeRecord& now) : before_(before), now_(now) {
        unexplained_[""] = now.total.size - before.total.size;
        for (const auto& [path, info] : before.folders) folder(path);
        for (const auto& [path, info] : now.folders) {
            if (!before.folders.contains(path)) folder(path);
        }
        for (const auto& [path, size] : before.files) file(path);
        for (const auto& [path, size] : now.files) {
            if (!before.files.contains(path)) file(path);
        }
    }

    [[nodiscard]] std::vector<TreeChange> result() && {
        for (const auto& [path, delta] : unexplained_) {
            if (delta != 0)
                add(path, delta > 0 ? TreeChange::Kind::grew : TreeChange::Kind::shrank, true, delta);
        }
        std::sort(changes_.begin(), changes_.end(), [](const TreeChange& a, const TreeChange& b) {
            return std::abs(a.delta) != std::abs(b.delta) ? std::abs(a.delta) > std::abs(b.delta)
                                                          : a.path < b.path;
        });
        return std::move(changes_);
    }

  private:
    static std::int64_t size(const TreeRecord& record, const std::string& path) {
        const auto found = record.folders.find(path);
        return found == record.folders.end() ? 0 : found->second.size;
    }
    /// Whether a folder that came or went holds it, and so tells of it.
    [[nodiscard]] bool isTold(const std::string& path) const {
        for (std::string above = parent(path); !above.empty(); above = parent(above)) {
            if (whole_.contains(above)) return true;
        }
        return false;
    }

    void add(const std::string& path, TreeChange::Kind kind, bool isFolder, std::int64_t delta) {
        changes_.push_back({path, kind, isFolder, delta});
    }

    /// Folders come in the order of their paths, each after those that hold it.
    void folder(const std::string& path) {
        if (isTold(path)) return;
        const std::int64_t delta = size(now_, path) - size(before_, path);
        const bool was = before_.folders.contains(path);
        const bool is = now_.folders.contains(path);
        unexplained_[parent(path)] -= delta;
        if (was && is) {
            unexplained_[path] += delta;
            return;
        }
        whole_.insert(path);
        if (delta != 0) add(path, is ? TreeChange::Kind::appeared : TreeChange::Kind::gone, true, delta);
    }

    void file(const std::string& path) {
        if (isTold(path)) return;
        const auto was = before_.files.find(path);
        const auto is = now_.files.find(path);
        const std::int64_t from = was == before_.files.end() ? 0 : was->second;
        const std::int64_t to = is == now_.files.end() ? 0 : is->second;
        if (from == to || std::max(from, to) < TreeRecord::largeFile) return;
        unexplained_[parent(path)] -= to - from;
        const auto changed = to > from ? TreeChange::Kind::grew : TreeChange::Kind::shrank;
        const auto kind = from == 0 ? TreeChange::Kind::appeared : to == 0 ? TreeChange::Kind::gone : changed;
        add(path, kind, false, to - from);
    }

    const TreeRecord& before_;
    const TreeRecord& now_;
    std::map<std::string, std::int64_t> unexplained_;  // by folder
    std::set<std::string> whole_;                      // folders that came or went
    std::vector<TreeChange> changes_;
};

}  // namespace

TreeRecord TreeRecord::take(const std::filesystem::path& root, Instant now) {
    const std::string& path = root.native();
    const auto measured = DiskIndex::measure(root, everyLevel);
    TreeRecord record = {.root = root, .taken = now, .total = {measured.size, measured.files}};
    for (const auto& [folder, info] : measured.folders) record.folders.emplace(below(path, folder), info);
    FirstNames names;
    for (const auto& file :
         DiskIndex::largeFiles(root, rememberedFile, std::numeric_limits<std::size_t>::max())) {
        if (names.isNew(file.path)) record.files.emplace(below(path, file.path), file.size);
    }
    return record;
}

std::string TreeRecord::encoded() const {
    Json folderList = Json::object();
    for (const auto& [path, info] : folders) folderList[Text::encodePath(path)] = {info.size, info.files};
    Json fileList = Json::object();
    for (const auto& [path, size] : files) fileList[Text::encodePath(path)] = size;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(taken).time_since_epoch().count();
    const Json document = {
        {"format", format},
        {"version", version},
        {"root", Text::encodePath(root.native())},
        {"taken", seconds},
        {"total", {total.size, total.files}},
        {"folders", std::move(folderList)},
        {"files", std::move(fileList)},
    };
    return document.dump() + "\n";
}

std::optional<TreeRecord> TreeRecord::decoded(std::string_view text) {
    const Json document = Json::parse(text, nullptr, false);
    if (!document.is_object() || document.value("format", Json()) != format ||
        document.value("version", Json()) != version)
        return std::nullopt;
    const auto root = document.find("root");
    constexpr auto lastSecond = std::chrono::floor<std::chrono::seconds>(distantFuture.time_since_epoch());
    const auto taken = count(document.value("taken", Json()));
    const auto total = info(document.value("total", Json()));
    if (root == document.end() || !root->is_string() || !taken || *taken > lastSecond.count() || !total)
        return std::nullopt;

    TreeRecord record = {.root = Text::decodePath(root->get<std::string>()), .total = *total};
    record.taken = Instant(std::chrono::seconds(*taken));
    if (!readAll(document, "folders", record.folders, info)) return std::nullopt;
    if (!readAll(document, "files", record.files, count)) return std::nullopt;
    return record;
}

std::vector<TreeChange> changes(const TreeRecord& before, const TreeRecord& now) {
    return Comparison(before, now).result();
}

}  // namespace tavrel
