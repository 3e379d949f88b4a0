#include "models/program/Preferences.h"

#include "core/Paths.h"
#include "core/Text.h"

#include <QFile>
#include <algorithm>
#include <system_error>
#include <utility>

namespace tavrel {

namespace {

using Texts = std::vector<std::string>;

QStringList shown(const Texts& texts) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts.size()));
    for (const std::string& text : texts) list.append(QString::fromStdString(Text::escapedForDisplay(text)));
    return list;
}

}  // namespace

struct Preferences::ListField {
    Texts PreferenceValues::*member;
    const char* key;
    Signal signal;
};

Preferences::Preferences(UserDefaults& defaults, Path home)
    : defaults_(defaults),
      home_(std::move(home)),
      values_(PreferenceValues::read(defaults)),
      knowsProtectedPaths_(PreferenceValues::knowsProtectedPaths(defaults)) {}

QStringList Preferences::protectedPaths() const {
    return shown(values_.protectedPaths);
}

QStringList Preferences::projectRoots() const {
    return shown(values_.projectRoots);
}

void Preferences::setStaleProjectDays(int days) {
    assign<std::int64_t>(&PreferenceValues::staleProjectDays,
                         std::clamp(days, fewestStaleDays, mostStaleDays), "staleProjectDays",
                         &Preferences::staleProjectDaysChanged);
}

void Preferences::setDryRun(bool on) {
    assign(&PreferenceValues::dryRun, on, "dryRun", &Preferences::dryRunChanged);
}

void Preferences::setAlwaysTrash(bool on) {
    assign(&PreferenceValues::alwaysTrash, on, "alwaysTrash", &Preferences::alwaysTrashChanged);
}

void Preferences::setSounds(bool on) {
    assign(&PreferenceValues::sounds, on, "sounds", &Preferences::soundsChanged);
}

void Preferences::toggleMetric(MenuBarMetric metric) {
    auto& metrics = values_.menuBarMetrics;
    if (std::erase(metrics, metric) == 0) {
        metrics.insert(std::find_if(metrics.begin(), metrics.end(),
                                    [metric](MenuBarMetric other) { return other > metric; }),
                       metric);
    }
    changed("menuBarMetrics", &Preferences::menuBarMetricsChanged);
}

void Preferences::togglePinned(const QString& name) {
    const std::string wanted = name.toStdString();
    if (std::erase(values_.pinnedProcesses, wanted) == 0) values_.pinnedProcesses.push_back(wanted);
    changed("pinnedProcesses", &Preferences::pinnedProcessesChanged);
}

void Preferences::addFolders(PathList list, const std::vector<Path>& folders) {
    Texts& texts = values_.*field(list).member;
    const std::size_t before = texts.size();
    for (const Path& folder : folders) {
        const std::string text = Paths::abbreviated(Paths::standardized(folder), home_);
        if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
    }
    if (texts.size() != before) changed(field(list).key, field(list).signal);
}

void Preferences::addFolders(PathList list, const QList<QUrl>& folders) {
    std::vector<Path> paths;
    for (const QUrl& folder : folders) {
        const Path path = QFile::encodeName(folder.toLocalFile()).toStdString();
        std::error_code ignored;
        if (std::filesystem::is_directory(path, ignored)) paths.push_back(path);
    }
    addFolders(list, paths);
}

void Preferences::removeFolder(PathList list, int index) {
    Texts& texts = values_.*field(list).member;
    if (index < 0 || static_cast<std::size_t>(index) >= texts.size()) return;
    texts.erase(texts.begin() + index);
    changed(field(list).key, field(list).signal);
}

const Preferences::ListField& Preferences::field(PathList list) {
    static const ListField protectedFolders = {&PreferenceValues::protectedPaths, "protectedPaths",
                                               &Preferences::protectedPathsChanged};
    static const ListField codeFolders = {&PreferenceValues::projectRoots, "projectRoots",
                                          &Preferences::projectRootsChanged};
    return list == PathList::ProtectedPaths ? protectedFolders : codeFolders;
}

template <typename T>
void Preferences::assign(T PreferenceValues::*member, T value, const char* key, Signal signal) {
    if (values_.*member == value) return;
    values_.*member = std::move(value);
    changed(key, signal);
}

void Preferences::changed(const char* key, Signal signal) {
    // Only the barred folders, chosen anew, may take the place of a file that nobody could read: any other
    // write would set it aside, and the next start would believe that nothing is barred.
    const bool mayWrite =
        defaults_.state() != UserDefaults::State::damaged || key == std::string_view("protectedPaths");
    const auto value = values_.value(key);
    if (value && mayWrite && !defaults_.set(key, *value)) {
        knowsProtectedPaths_ = PreferenceValues::knowsProtectedPaths(defaults_);
    }
    Q_EMIT(this->*signal)();
}

}  // namespace tavrel
