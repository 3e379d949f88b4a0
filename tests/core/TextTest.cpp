#include "core/Text.h"

#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Text, FallsBackToEnglishWithItsPlural) {
    EXPECT_EQ(Text::localized("Zero KB"), "Zero KB");
    EXPECT_EQ(Text::localized("item", "items", 1), "item");
    EXPECT_EQ(Text::localized("item", "items", 0), "items");
}

TEST(Text, RepairsWhatIsNotUtf8) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"plain é 日", "plain é 日"},
        {"a\xFFz", "a\uFFFDz"},
        {"a\xE2\x82", "a\uFFFD"},                          // cut off in the middle
        {"\xC0\xAF", "\uFFFD\uFFFD"},                      // a slash in too many bytes
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // half of a surrogate pair
        {std::string("a\0b", 3), std::string("a\0b", 3)},  // NUL is a character as any other
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Text::replaceInvalidUtf8(bytes), text);
        EXPECT_EQ(Text::isUtf8(bytes), bytes == text) << text;
    }
}

TEST(Text, ShowsNoNameThatSteersTheTerminal) {
    const std::pair<std::string, std::string> cases[] = {
        {"Café 日本 👩‍🚀", "Café 日本 👩‍🚀"},
        {"one\ntwo\tthree", "one\\ntwo\\tthree"},
        {"\x1B[2Jgone\r", "\\x1B[2Jgone\\x0D"},
        {"\x7F", "\\x7F"},
        {"\u009B2J", "\\xC2\\x9B2J"},                            // the one-character form of ESC [
        {"a\u2028b", "a\\xE2\\x80\\xA8b"},                       // a line separator
        {"a\u2066b\u2069", "a\\xE2\\x81\\xA6b\\xE2\\x81\\xA9"},  // what reorders letters
        {"bad\xFF", "bad\\xFF"},
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Text::escapedForDisplay(bytes), text);
}

TEST(Text, ExactFormTurnsBackIntoTheSameBytes) {
    const std::pair<std::string, std::string> cases[] = {
        {"/home/é", "/home/é"},     {"C:\\new", "C:\\new"},  // a backslash that escapes nothing stands alone
        {"end\\", "end\\"},         {"\xFF", "\\xFF"},      {"a\\b\xFF", "a\\\\b\\xFF"},
        {"\\x41", "\\\\x41"},  // text that reads as an escape
        {"two\\\\", "two\\\\\\\\"}, {"\\xZZ", "\\xZZ"},     {"\\x4", "\\x4"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Text::encodePath(bytes), text);
        EXPECT_TRUE(Text::isUtf8(text));
        EXPECT_EQ(Text::decodePath(text), bytes);
    }
    EXPECT_EQ(Text::decodePath("\\xfF"), "\xFF");
}

TEST(Text, EveryShortByteStringSurvivesItsExactForm) {
    const std::string alphabet = "\\x4F\xFF\xC3\xA9/";
    std::vector<std::string> words = {""};
    for (std::size_t next = 0; words[next].size() < 5; ++next) {
        for (const char letter : alphabet) words.push_back(words[next] + letter);
    }
    for (const std::string& word : words)
        ASSERT_EQ(Text::decodePath(Text::encodePath(word)), word) << Text::encodePath(word);
}

TEST(Text, CountsColumnsAsATerminalDoes) {
    const std::pair<std::string, std::size_t> cases[] = {
        {"", 0},
        {"abc", 3},
        {"日本", 4},
        {"e\u0301", 1},
        {"é", 1},
        {"ﾊﾝｶｸ", 4},
        {"ＡＢ", 4},
        {"\u200Bx", 1},
        {"🚀", 2},
        {"a\u00ADb", 3},
        {"\u1112\u1161\u11AB", 2},  // one Hangul syllable of three letters
    };
    for (const auto& [text, columns] : cases) EXPECT_EQ(Text::columns(text), columns) << text;
}

TEST(Text, ElidesInTheMiddleAndSplitsNoLetter) {
    const std::tuple<std::string, std::size_t, std::string> cases[] = {
        {"abcdef", 6, "abcdef"},
        {"abcdef", 5, "ab…ef"},
        {"abcdef", 4, "ab…f"},
        {"abcdef", 1, "…"},
        {"abcdef", 0, ""},
        {"日本日本", 6, "日…本"},  // half a wide letter does not fit
        {"e\u0301xxxxe\u0301", 3, "e\u0301…e\u0301"},
        {"👩‍🚀xxxxxxx", 10, "👩‍🚀x…xxxx"},
    };
    for (const auto& [text, width, elided] : cases) {
        EXPECT_EQ(Text::elided(text, width), elided);
        EXPECT_LE(Text::columns(Text::elided(text, width)), width);
    }
}

TEST(Text, LowersAsciiAloneAndTrimsEveryKindOfSpace) {
    EXPECT_EQ(Text::lowercased("AbZ É[@"), "abz É[@");
    EXPECT_EQ(Text::trimmed(" \t\r\n\u00A0a b\u2028\n"), "a b");
    EXPECT_EQ(Text::trimmed(" \n "), "");
}

}  // namespace
}  // namespace tavrel
