#include "platform/root/RootProtocol.h"

#include "core/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <type_traits>
#include <vector>

#include <fmt/format.h>

namespace tavrel::RootProtocol {

namespace {

using std::string_view;
using Words = std::vector<string_view>;

constexpr string_view removeWord = "remove";
constexpr string_view runWord = "run";
constexpr string_view doneWord = "done";
constexpr string_view refusedWord = "refused";
constexpr string_view failedWord = "failed";

struct RefusalName {
    RootRefusal refusal;
    string_view name;
};
constexpr std::array refusalNames = {
    RefusalName{RootRefusal::notUnderstood, "not-understood"},
    RefusalName{RootRefusal::tooLong, "too-long"},
    RefusalName{RootRefusal::tooMany, "too-many"},
    RefusalName{RootRefusal::outside, "outside"},
    RefusalName{RootRefusal::replaceable, "replaceable"},
    RefusalName{RootRefusal::badArguments, "bad-arguments"},
    RefusalName{RootRefusal::toolMissing, "tool-missing"},
};

bool isPlain(char c) {
    return c > ' ' && c < '\x7f';
}

std::string encoded(string_view bytes) {
    std::string word;
    for (const char c : bytes) {
        if (isPlain(c) && c != '\\') {
            word += c;
        } else {
            word += fmt::format("\\x{:02X}", static_cast<unsigned char>(c));
        }
    }
    return word;
}

/// The words of a line; none when it is not of the form that lines have.
Words split(string_view line) {
    Words words;
    for (std::size_t end = 0; end != string_view::npos;) {
        end = line.find(' ');
        const string_view word = line.substr(0, end);
        if (word.empty() || !std::all_of(word.begin(), word.end(), isPlain)) return {};
        words.push_back(word);
        if (end != string_view::npos) line.remove_prefix(end + 1);
    }
    return words;
}

template <typename Number>
bool read(string_view word, Number& number) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size();
}

std::optional<EntryRemoval> removal(const Words& words) {
    enum Field { device = 1, inode, type, path, count };
    EntryRemoval entry;
    const bool ok = words.size() == count && read(words[device], entry.seen.device) &&
                    read(words[inode], entry.seen.inode) && read(words[type], entry.seen.type);
    if (!ok) return std::nullopt;
    entry.path = Text::decodePath(words[path]);
    return entry;
}

}  // namespace

std::string line(const RootStep& step) {
    if (const auto* entry = std::get_if<EntryRemoval>(&step)) {
        const FileIdentity& seen = entry->seen;
        return fmt::format("{} {} {} {} {}", removeWord, seen.device, seen.inode, seen.type,
                           encoded(entry->path.native()));
    }
    const auto& run = std::get<ToolRun>(step);
    const auto* row = RootTools::find(RootTools::all(), run.tool);
    std::string text = fmt::format("{} {}", runWord, row == nullptr ? "" : row->name);
    for (const std::string& argument : run.arguments) text += " " + encoded(argument);
    return text;
}

tl::expected<RootStep, RootRefusal> step(string_view line, const RootTools::Table& tools) {
    const auto notUnderstood = tl::unexpected(RootRefusal::notUnderstood);
    const Words words = split(line);
    if (words.size() < 2) return notUnderstood;
    if (words.front() == removeWord) {
        auto entry = removal(words);
        if (!entry) return notUnderstood;
        return std::move(*entry);
    }
    const auto* row = words.front() == runWord ? RootTools::find(tools, words[1]) : nullptr;
    if (row == nullptr) return notUnderstood;
    ToolRun run{row->tool, {}};
    for (std::size_t i = 2; i < words.size(); ++i) run.arguments.push_back(Text::decodePath(words[i]));
    return run;
}

std::string line(const StepResult& result) {
    switch (result.state) {
        case StepResult::State::done:
            return std::string(doneWord);
        case StepResult::State::failed:
            return fmt::format("{} {}", failedWord, encoded(result.message));
        case StepResult::State::refused:
            break;
    }
    const auto known = std::find_if(refusalNames.begin(), refusalNames.end(),
                                    [&](const RefusalName& row) { return row.refusal == result.refusal; });
    return fmt::format("{} {}", refusedWord, known == refusalNames.end() ? "" : known->name);
}

StepResult result(string_view line) {
    if (line == doneWord) return StepResult::done();
    const Words words = split(line);
    if (words.size() != 2) return StepResult::failed({});
    if (words[0] == failedWord)
        return StepResult::failed(Text::replaceInvalidUtf8(Text::decodePath(words[1])));
    const auto known = std::find_if(refusalNames.begin(), refusalNames.end(),
                                    [&](const RefusalName& row) { return row.name == words[1]; });
    if (words[0] != refusedWord || known == refusalNames.end()) return StepResult::failed({});
    return StepResult::refused(known->refusal);
}

}  // namespace tavrel::RootProtocol
