#include "screens/status/ProcessRows.h"

#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "models/program/Preferences.h"
#include "profiles/Profile.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

/// -1 when it is in none.
int rowOf(const std::vector<ProcessInfo>& rows, std::int32_t pid) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [pid](const auto& row) { return row.pid == pid; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

}  // namespace

void ProcessRows::setMonitor(Monitor* monitor) {
    if (monitor_ == monitor) return;
    if (monitor_) disconnect(monitor_, nullptr, this, nullptr);
    monitor_ = monitor;
    if (monitor_) connect(monitor_, &Monitor::processesChanged, this, &ProcessRows::refresh);
    Q_EMIT monitorChanged();
    refresh();
}

void ProcessRows::setPreferences(Preferences* preferences) {
    if (preferences_ == preferences) return;
    if (preferences_) disconnect(preferences_, nullptr, this, nullptr);
    preferences_ = preferences;
    if (preferences_)
        connect(preferences_, &Preferences::pinnedProcessesChanged, this, &ProcessRows::refresh);
    Q_EMIT preferencesChanged();
    refresh();
}

void ProcessRows::setSort(int sort) {
    const auto wanted = static_cast<ProcessSort>(
        std::clamp(sort, static_cast<int>(ProcessSort::cpu), static_cast<int>(ProcessSort::energy)));
    if (std::exchange(sort_, wanted) == wanted) return;
    Q_EMIT sortChanged();
    refresh();
}

/// The rows stay where they are and say something else, so that nothing on the screen is made anew.
void ProcessRows::refresh() {
    std::vector<ProcessInfo> rows;
    if (monitor_ && preferences_)
        rows = processRows(monitor_->figures().processes, sort_, preferences_->pinnedProcesses());
    const int before = count();
    const int explained = explained_ < 0 ? -1 : rowOf(rows, rows_[static_cast<std::size_t>(explained_)].pid);
    const int now = static_cast<int>(rows.size());
    if (explained < before) setExplained(explained);  // before its row may go
    if (now > before) beginInsertRows({}, before, now - 1);
    if (now < before) beginRemoveRows({}, now, before - 1);
    rows_ = std::move(rows);
    if (now > before) endInsertRows();
    if (now < before) endRemoveRows();
    if (now != before) Q_EMIT countChanged();
    if (const int kept = std::min(before, now); kept > 0) Q_EMIT dataChanged(index(0), index(kept - 1));
    setExplained(explained);
}

void ProcessRows::setExplained(int row) {
    if (std::exchange(explained_, row < count() ? row : -1) != row) Q_EMIT explainedChanged();
}

QString ProcessRows::powerNote() const {
    return monitor_ ? QString::fromStdString(Text::localized(monitor_->texts().power)) : QString();
}

int ProcessRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ProcessRows::data(const QModelIndex& index, int role) const {
    if (!monitor_ || !preferences_ || index.row() < 0 || index.row() >= count()) return {};
    const ProcessInfo& row = rows_[static_cast<std::size_t>(index.row())];
    const auto& pinned = preferences_->pinnedProcesses();
    switch (role) {
        case Pid:
            return row.pid;
        case Name:
            return QString::fromStdString(row.name);
        case CpuText:
            return QString::fromStdString(oneDecimal(row.cpu) + "%");
        case MemoryText:
            return QString::fromStdString(byteCount(row.memory));
        case PowerText:
            return QString::fromStdString(oneDecimal(row.power));
        case Pinned:
            return std::find(pinned.begin(), pinned.end(), row.name) != pinned.end();
        case ExplanationText:
            return QString::fromStdString(explanation(monitor_->texts().processNotes, row.name).value_or(""));
        default:
            return {};
    }
}

QHash<int, QByteArray> ProcessRows::roleNames() const {
    return {{Pid, "pid"},
            {Name, "name"},
            {CpuText, "cpuText"},
            {MemoryText, "memoryText"},
            {PowerText, "powerText"},
            {Pinned, "pinned"},
            {ExplanationText, "explanation"}};
}

}  // namespace tavrel
