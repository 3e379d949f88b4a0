#include "monitoring/Processes.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t mostRows = 12;

bool comesFirst(ProcessSort sort, const ProcessInfo& a, const ProcessInfo& b) {
    switch (sort) {
        case ProcessSort::memory:
            return a.memory > b.memory;
        case ProcessSort::energy:
            return a.power > b.power;
        case ProcessSort::cpu:
            break;
    }
    return a.cpu > b.cpu;
}

bool matches(const ProcessNote& note, std::string_view name) {
    return note.match == ProcessNote::Match::start ? name.starts_with(note.name) : name == note.name;
}

}  // namespace

std::vector<ProcessInfo> processRows(std::vector<ProcessInfo> processes, ProcessSort sort,
                                     std::span<const std::string> pinned) {
    std::stable_sort(processes.begin(), processes.end(),
                     [sort](const ProcessInfo& a, const ProcessInfo& b) { return comesFirst(sort, a, b); });
    std::stable_partition(processes.begin(), processes.end(), [pinned](const ProcessInfo& process) {
        return std::find(pinned.begin(), pinned.end(), process.name) != pinned.end();
    });
    if (processes.size() > mostRows) processes.resize(mostRows);
    return processes;
}

std::optional<std::string> explanation(ProcessNotes notes, std::string_view name) {
    const auto note = std::find_if(notes.begin(), notes.end(),
                                   [name](const ProcessNote& each) { return matches(each, name); });
    if (note != notes.end()) return Text::localized(note->sentence);
    if (name.ends_with("Helper") || name.find("Helper (") != std::string_view::npos) {
        return Text::localized("A helper process of an app — usually a browser tab, renderer or extension.");
    }
    return std::nullopt;
}

}  // namespace tavrel
