#include "platform/root/RootStep.h"

#include "core/Text.h"

namespace tavrel {

namespace {

Text::English words(RootRefusal refusal) {
    switch (refusal) {
        case RootRefusal::notUnderstood:
            return "Tavrel and its helper for administrator work are of different versions";
        case RootRefusal::tooLong:
            return "Its path is too long";
        case RootRefusal::tooMany:
            return "Too much for one run; clean again for the rest";
        case RootRefusal::outside:
            return "Not below a folder that Tavrel cleans as administrator";
        case RootRefusal::replaceable:
            return "Others than the administrator can change the folder it is in";
        case RootRefusal::badArguments:
            return "A name in the command is not allowed";
        case RootRefusal::toolMissing:
            return "The tool for it is missing, or others than the administrator can change it";
    }
    return "";
}

/// Root's side speaks English: the sentence is the key of its translation, and where it stopped may follow.
std::string inOwnLanguage(const std::string& message) {
    const std::size_t end = message.find(": ");
    const std::string sentence = message.substr(0, end);
    if (sentence.empty()) return message;
    return Text::localized(sentence.c_str()) + (end == std::string::npos ? "" : message.substr(end));
}

}  // namespace

std::string StepResult::reason() const {
    if (state == State::done) return {};
    if (state == State::refused) return Text::localized(words(refusal));
    if (message.empty()) return Text::localized("It failed and did not say why");
    return inOwnLanguage(message);
}

}  // namespace tavrel
