#include "core/Text.h"

#include "core/Identity.h"

#include <array>
#include <cstdint>
#include <libintl.h>
#include <memory>
#include <vector>

#include <fmt/format.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace tavrel::Text {
namespace {

using Identity::textDomain;
constexpr std::string_view replacement = "\uFFFD";
constexpr std::string_view ellipsis = "…";

/// One code point and the bytes that it stands in; `value` is negative for an invalid sequence.
struct Character {
    UChar32 value = 0;
    std::string_view bytes;
};

Character characterAt(std::string_view text, std::size_t start) {
    Character character;
    std::size_t end = start;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside ICU's macro
    U8_NEXT(text.data(), end, text.size(), character.value);
#pragma GCC diagnostic pop
    character.bytes = text.substr(start, end - start);
    return character;
}

template <typename Visit>
void forEachCharacter(std::string_view text, Visit visit) {
    for (std::size_t at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        visit(character);
        at += character.bytes.size();
    }
}

void appendHex(std::string& out, std::string_view bytes) {
    for (const char byte : bytes) out += fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
}

/// What a terminal may obey rather than print, or what reorders the letters around it.
bool steersTerminal(UChar32 character) {
    constexpr std::uint32_t separators = U_GC_CC_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_GET_GC_MASK(character) & separators) != 0 ||
           u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0;
}

std::size_t columns(UChar32 character) {
    constexpr UChar32 softHyphen = 0xAD;
    constexpr std::uint32_t invisible = U_GC_CC_MASK | U_GC_CF_MASK | U_GC_MN_MASK | U_GC_ME_MASK;
    if (character < 0 || character == softHyphen) return 1;
    if ((U_GET_GC_MASK(character) & invisible) != 0) return 0;
    // Vowels and finals of Hangul are drawn into the cell of the letter before them.
    const int syllable = u_getIntPropertyValue(character, UCHAR_HANGUL_SYLLABLE_TYPE);
    if (syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO) return 0;
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

/// What a reader takes for one letter, with the marks on it: the units that a cut may not split.
std::vector<std::string_view> clusters(std::string_view utf8) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const std::unique_ptr<UText, decltype(&utext_close)> text(
        utext_openUTF8(nullptr, utf8.data(), static_cast<std::int64_t>(utf8.size()), &status), &utext_close);
    if (U_SUCCESS(status)) breaks->setText(text.get(), status);
    if (U_FAILURE(status)) return {utf8};

    std::vector<std::string_view> found;
    std::int32_t start = breaks->first();
    for (std::int32_t end = breaks->next(); end != icu::BreakIterator::DONE; end = breaks->next()) {
        found.push_back(utf8.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
        start = end;
    }
    return found;
}

/// As many clusters as fit into `room` columns, from the front of the range on.
template <typename Iterator>
Iterator fitting(Iterator first, Iterator last, std::size_t room) {
    for (; first != last; ++first) {
        const std::size_t width = Text::columns(*first);
        if (width > room) break;
        room -= width;
    }
    return first;
}

constexpr std::size_t escapeLength = 4;  // of "\xNN"

std::optional<unsigned> hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
    return std::nullopt;
}

/// The byte that "\xNN" at the start of `text` stands for.
std::optional<char> escapedByte(std::string_view text) {
    if (text.size() < escapeLength || !text.starts_with("\\x")) return std::nullopt;
    const auto high = hexDigit(text[2]);
    const auto low = hexDigit(text[3]);
    if (!high || !low) return std::nullopt;
    return static_cast<char>(static_cast<unsigned char>(*high * 16 + *low));
}

bool readsAsEscape(std::string_view text) {
    for (std::size_t at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("\\\\") || escapedByte(rest)) return true;
    }
    return false;
}

}  // namespace

std::string localized(English english) {
    if (*english == '\0') return {};  // the key of a catalogue's own header
    return ::dgettext(textDomain, english);
}

std::string localized(English one, English many, unsigned long count) {
    return ::dngettext(textDomain, one, many, count);
}

std::string translated(const std::string& english) {
    if (english.empty()) return {};
    return ::dgettext(textDomain, english.c_str());
}

std::string replaceInvalidUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    forEachCharacter(bytes, [&text](const Character& character) {
        text += character.value < 0 ? replacement : character.bytes;
    });
    return text;
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const Character character = characterAt(bytes, at);
        if (character.value < 0) return false;
        at += character.bytes.size();
    }
    return true;
}

std::string escapedForDisplay(std::string_view bytes) {
    std::string text;
    forEachCharacter(bytes, [&text](const Character& character) {
        if (character.value == '\n') {
            text += "\\n";
        } else if (character.value == '\t') {
            text += "\\t";
        } else if (character.value < 0 || steersTerminal(character.value)) {
            appendHex(text, character.bytes);
        } else {
            text += character.bytes;
        }
    });
    return text;
}

std::string encodePath(std::string_view bytes) {
    if (isUtf8(bytes) && !readsAsEscape(bytes)) return std::string(bytes);
    std::string text;
    forEachCharacter(bytes, [&text](const Character& character) {
        if (character.value < 0) {
            appendHex(text, character.bytes);
        } else {
            if (character.value == '\\') text += '\\';
            text += character.bytes;
        }
    });
    return text;
}

std::string decodePath(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        if (const auto byte = escapedByte(text)) {
            bytes += *byte;
            text.remove_prefix(escapeLength);
        } else {
            bytes += text.front();
            text.remove_prefix(text.starts_with("\\\\") ? 2 : 1);
        }
    }
    return bytes;
}

std::size_t columns(std::string_view utf8) {
    std::size_t total = 0;
    forEachCharacter(utf8, [&total](const Character& character) { total += columns(character.value); });
    return total;
}

std::string elided(std::string_view utf8, std::size_t width) {
    if (columns(utf8) <= width) return std::string(utf8);
    if (width == 0) return {};
    const std::vector<std::string_view> letters = clusters(utf8);
    const std::size_t room = width - 1;
    const auto head = fitting(letters.begin(), letters.end(), room - room / 2);
    const auto tail = fitting(letters.rbegin(), letters.rend(), room / 2).base();

    std::string text;
    for (auto letter = letters.begin(); letter != head; ++letter) text += *letter;
    text += ellipsis;
    for (auto letter = tail; letter != letters.end(); ++letter) text += *letter;
    return text;
}

std::string lowercased(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lower;
}

std::string trimmed(std::string_view text) {
    std::optional<std::size_t> first;
    std::size_t end = 0;
    forEachCharacter(text, [&](const Character& character) {
        if (character.value >= 0 && u_isUWhiteSpace(character.value) != 0) return;
        const auto start = static_cast<std::size_t>(character.bytes.data() - text.data());
        if (!first) first = start;
        end = start + character.bytes.size();
    });
    return first ? std::string(text.substr(*first, end - *first)) : std::string();
}

}  // namespace tavrel::Text
