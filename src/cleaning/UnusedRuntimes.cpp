#include "cleaning/UnusedRuntimes.h"

#include "core/Files.h"
#include "core/Text.h"

#include <algorithm>
#include <fnmatch.h>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

/// The values of a key file under "[GROUP]KEY"; a group without keys stands as "[GROUP]".
using Keys = std::map<std::string, std::string>;

/// What is deployed, by "NAME/ARCH/BRANCH".
using Deployments = std::map<std::string, Keys>;

std::optional<Keys> readKeys(const Path& file) {
    const auto text = Files::read(file);
    if (!text) return std::nullopt;
    Keys keys;
    std::string group;
    std::istringstream in(*text);
    for (std::string line; std::getline(in, line);) {
        line = Text::trimmed(line);
        const auto equals = line.find('=');
        if (line.starts_with('[')) {
            group = line.substr(0, line.find(']') + 1);
            keys.emplace(group, "");
        } else if (equals != std::string::npos) {
            keys.emplace(group + Text::trimmed(line.substr(0, equals)),
                         Text::trimmed(line.substr(equals + 1)));
        }
    }
    return keys;
}

std::string value(const Keys& keys, const std::string& key) {
    const auto found = keys.find(key);
    return found == keys.end() ? std::string() : found->second;
}

/// The names of folders in `folder`; the links beside them are other names of the same.
std::vector<std::string> folders(const Path& folder) {
    std::vector<std::string> names = Files::names(folder);
    std::erase_if(names, [&](const std::string& name) { return !Files::isFolder(folder / name); });
    return names;
}

/// What lies as NAME/ARCH/BRANCH below `kind`; nothing where the metadata of one cannot be read.
std::optional<Deployments> deployments(const Path& kind) {
    Deployments all;
    for (const std::string& name : folders(kind)) {
        for (const std::string& arch : folders(kind / name)) {
            for (const std::string& branch : folders(kind / name / arch)) {
                const Path active = kind / name / arch / branch / "active";
                if (!Files::isLink(active)) continue;  // left over from one that was removed
                auto keys = readKeys(active / "metadata");
                if (!keys) return std::nullopt;
                all.emplace((Path(name) / arch / branch).native(), std::move(*keys));
            }
        }
    }
    return all;
}

/// Which runtimes applications need, and which those need in turn.
class Needed {
  public:
    explicit Needed(const Deployments& runtimes) : runtimes_(runtimes) {}

    void addNeedsOf(const Keys& keys) {
        for (const char* key :
             {"[Application]runtime", "[Application]sdk", "[Runtime]runtime", "[Runtime]sdk"})
            add(value(keys, key));
    }
    [[nodiscard]] bool contains(const std::string& runtime) const { return names_.contains(runtime); }

  private:
    void add(const std::string& runtime) {
        if (runtime.empty() || !names_.insert(runtime).second) return;
        const auto deployed = runtimes_.find(runtime);
        if (deployed != runtimes_.end()) addNeedsOf(deployed->second);
    }

    const Deployments& runtimes_;
    std::set<std::string> names_;
};

/// Patterns of the runtimes that a person wants to keep; the last parts of one may be missing.
std::vector<std::string> pins(const Keys& configuration) {
    std::vector<std::string> patterns;
    std::istringstream list(value(configuration, "[core]xa.pinned"));
    for (std::string pattern; std::getline(list, pattern, ';');) {
        if (!pattern.empty()) patterns.push_back(pattern);
    }
    return patterns;
}

bool isPinned(const std::string& runtime, const std::vector<std::string>& patterns) {
    const std::string whole = "runtime/" + runtime;
    return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
        return ::fnmatch(pattern.c_str(), whole.c_str(), 0) == 0 ||
               ::fnmatch((pattern + "/*").c_str(), whole.c_str(), 0) == 0;
    });
}

/// Whether a shell reads the name as it stands.
bool isPlain(const std::string& runtime) {
    static const std::regex plain("[A-Za-z0-9._/-]+");
    return std::regex_match(runtime, plain);
}

}  // namespace

std::vector<std::string> unusedRuntimes(const Path& installation, const std::vector<Path>& others) {
    const auto configuration = readKeys(installation / "repo/config");
    const auto runtimes = deployments(installation / "runtime");
    const auto applications = deployments(installation / "app");
    if (!configuration || !runtimes || !applications) return {};

    Needed needed(*runtimes);
    for (const auto& [name, keys] : *applications) needed.addNeedsOf(keys);
    for (const Path& other : others) {
        for (const char* kind : {"app", "runtime"}) {
            const auto users = deployments(other / kind);
            if (!users) return {};
            for (const auto& [name, keys] : *users) needed.addNeedsOf(keys);
        }
    }

    const auto pinned = pins(*configuration);
    std::vector<std::string> unused;
    for (const auto& [name, keys] : *runtimes) {
        const bool extends = keys.contains("[ExtensionOf]");
        if (!extends && !needed.contains(name) && !isPinned(name, pinned) && isPlain(name))
            unused.push_back(name);
    }
    return unused;
}

}  // namespace tavrel
