#pragma once

#include "core/PreferenceValues.h"
#include "core/UserDefaults.h"

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <filesystem>
#include <vector>

namespace tavrel {

/// What the user chose, as screens observe it: read once when made, each field written back when it changes.
/// A change that cannot be written still holds until the program ends. Lives as long as the process.
class Preferences final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QStringList protectedPaths READ protectedPaths NOTIFY protectedPathsChanged)
    Q_PROPERTY(QStringList projectRoots READ projectRoots NOTIFY projectRootsChanged)
    Q_PROPERTY(
        int staleProjectDays READ staleProjectDays WRITE setStaleProjectDays NOTIFY staleProjectDaysChanged)
    Q_PROPERTY(bool dryRun READ dryRun WRITE setDryRun NOTIFY dryRunChanged)
    Q_PROPERTY(bool alwaysTrash READ alwaysTrash WRITE setAlwaysTrash NOTIFY alwaysTrashChanged)
    Q_PROPERTY(bool sounds READ sounds WRITE setSounds NOTIFY soundsChanged)

  public:
    using Path = std::filesystem::path;

    /// The two lists of folders that the settings edit.
    enum class PathList { ProtectedPaths, ProjectRoots };
    Q_ENUM(PathList)

    static constexpr int fewestStaleDays = 1;
    static constexpr int mostStaleDays = 365;

    /// `defaults` must outlive this object. A path chosen below `home` is kept as "~" and the rest.
    Preferences(UserDefaults& defaults, Path home);

    [[nodiscard]] const PreferenceValues& values() const { return values_; }

    /// Whether the folders that the user barred are known. They are not when the file cannot be read, or
    /// holds something else in their place; nothing may be removed then.
    [[nodiscard]] bool knowsProtectedPaths() const { return knowsProtectedPaths_; }

    /// For reading: bytes that are no UTF-8 stand escaped.
    [[nodiscard]] QStringList protectedPaths() const;
    [[nodiscard]] QStringList projectRoots() const;
    [[nodiscard]] int staleProjectDays() const { return static_cast<int>(values_.staleProjectDays); }
    [[nodiscard]] bool dryRun() const { return values_.dryRun; }
    [[nodiscard]] bool alwaysTrash() const { return values_.alwaysTrash; }
    [[nodiscard]] bool sounds() const { return values_.sounds; }
    [[nodiscard]] const std::vector<MenuBarMetric>& menuBarMetrics() const { return values_.menuBarMetrics; }
    /// Names of the processes that stay at the top of the list.
    [[nodiscard]] const std::vector<std::string>& pinnedProcesses() const { return values_.pinnedProcesses; }

    void setStaleProjectDays(int days);  // limited to 1 ... 365
    void setDryRun(bool on);
    void setAlwaysTrash(bool on);
    void setSounds(bool on);

    /// Adds the metric before those that come after it in the enumeration, or takes it out.
    void toggleMetric(MenuBarMetric metric);
    /// Pins the processes of that name, or lets them go.
    Q_INVOKABLE void togglePinned(const QString& name);

    /// Appends each folder that the list does not hold yet.
    void addFolders(PathList list, const std::vector<Path>& folders);
    Q_INVOKABLE void addFolders(tavrel::Preferences::PathList list, const QList<QUrl>& folders);
    /// Takes out the entry at `index`; nothing happens when there is none.
    Q_INVOKABLE void removeFolder(tavrel::Preferences::PathList list, int index);

  Q_SIGNALS:
    void protectedPathsChanged();
    void projectRootsChanged();
    void staleProjectDaysChanged();
    void dryRunChanged();
    void alwaysTrashChanged();
    void soundsChanged();
    void menuBarMetricsChanged();
    void pinnedProcessesChanged();

  private:
    using Signal = void (Preferences::*)();

    struct ListField;
    [[nodiscard]] static const ListField& field(PathList list);
    void changed(const char* key, Signal signal);
    template <typename T>
    void assign(T PreferenceValues::*member, T value, const char* key, Signal signal);

    UserDefaults& defaults_;
    Path home_;
    PreferenceValues values_;
    bool knowsProtectedPaths_;
};

}  // namespace tavrel
