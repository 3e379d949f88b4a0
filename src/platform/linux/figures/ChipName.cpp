#include "platform/linux/figures/ChipName.h"

#include "core/Text.h"
#include "platform/linux/kernel/KernelText.h"

#include <algorithm>
#include <iterator>

namespace tavrel::ChipName {

namespace {

/// The value of the first line with that key.
std::string valueOf(std::string_view cpuinfo, std::string_view key) {
    while (!cpuinfo.empty()) {
        const std::string_view line = KernelText::takeLine(cpuinfo);
        const std::size_t colon = line.find(':');
        if (colon != std::string_view::npos && Text::trimmed(line.substr(0, colon)) == key) {
            return Text::trimmed(line.substr(colon + 1));
        }
    }
    return {};
}

void removeAll(std::string& text, std::string_view part) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
        text.insert(at, 1, ' ');
    }
}

bool saysLittle(std::string_view word) {
    return word == "CPU" || word == "Processor" || word == "processor" || word.ends_with("-Core");
}

struct Maker {
    std::string_view code;
    std::string_view name;
};

// Of the Main ID Register (Arm Architecture Reference Manual), as far as desktops and boards have them.
constexpr Maker makers[] = {
    {"0x41", "Arm"},    {"0x42", "Broadcom"}, {"0x43", "Cavium"},  {"0x46", "Fujitsu"}, {"0x48", "HiSilicon"},
    {"0x4e", "NVIDIA"}, {"0x51", "Qualcomm"}, {"0x56", "Marvell"}, {"0x61", "Apple"},   {"0xc0", "Ampere"},
};

}  // namespace

std::string inProcessors(std::string_view cpuinfo) {
    for (const std::string_view key : {"Hardware", "model name", "cpu model", "cpu"}) {
        std::string value = valueOf(cpuinfo, key);
        if (!value.empty()) return value;
    }
    return {};
}

std::string makerInProcessors(std::string_view cpuinfo) {
    const std::string code = valueOf(cpuinfo, "CPU implementer");
    const auto* known = std::find_if(std::begin(makers), std::end(makers),
                                     [&](const Maker& each) { return each.code == code; });
    return known == std::end(makers) ? std::string() : std::string(known->name);
}

std::string tidied(std::string_view name) {
    std::string text = Text::replaceInvalidUtf8(name.substr(0, std::min(name.find('@'), name.find('\0'))));
    for (const std::string_view mark : {"(R)", "(r)", "(TM)", "(tm)", "®", "™"}) removeAll(text, mark);
    // Graphics on the same chip have a figure of their own.
    for (const std::string_view graphics : {" with Radeon", " w/ Radeon"}) {
        text.resize(std::min(text.find(graphics), text.size()));
    }
    std::string tidy;
    std::string_view rest = text;
    for (std::string_view word = KernelText::takeWord(rest); !word.empty();
         word = KernelText::takeWord(rest)) {
        if (saysLittle(word)) continue;
        if (!tidy.empty()) tidy += ' ';
        tidy += word;
    }
    return tidy;
}

}  // namespace tavrel::ChipName
