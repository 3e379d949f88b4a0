#include "platform/root/RootStep.h"

#include "core/Text.h"

#include <algorithm>
#include <iterator>

namespace tavrel {

namespace {

struct Words {
    RootRefusal refusal;
    Text::English text;
};
constexpr Words words[] = {
    {RootRefusal::notUnderstood, "Tavrel and its helper for administrator work are of different versions"},
    {RootRefusal::tooLong, "Its path is too long"},
    {RootRefusal::tooMany, "Too much for one run; clean again for the rest"},
    {RootRefusal::outside, "Not below a folder that Tavrel cleans as administrator"},
    {RootRefusal::replaceable, "Others than the administrator can change the folder it is in"},
    {RootRefusal::badArguments, "A name in the command is not allowed"},
    {RootRefusal::toolMissing, "The tool for it is missing, or others than the administrator can change it"},
};

std::string wordsFor(RootRefusal refusal) {
    const auto* row = std::find_if(std::begin(words), std::end(words),
                                   [&](const Words& each) { return each.refusal == refusal; });
    return row == std::end(words) ? std::string() : Text::localized(row->text);
}

/// Root's side speaks English: the sentence is the key of its translation, and where it stopped may follow.
std::string inOwnLanguage(const std::string& message) {
    const std::size_t end = message.find(": ");
    const std::string sentence = message.substr(0, end);
    return Text::translated(sentence) + (end == std::string::npos ? "" : message.substr(end));
}

}  // namespace

std::string StepResult::reason() const {
    if (state == State::done) return {};
    if (state == State::refused) return wordsFor(refusal);
    if (message.empty()) return Text::localized("It failed and did not say why");
    return inOwnLanguage(message);
}

}  // namespace tavrel
