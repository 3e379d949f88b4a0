#include "core/PropertyList.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using PropertyList::Tree;

std::string binary(const Tree& tree) {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(tree.get(), &bytes, &length);
    std::string copy(bytes, length);
    plist_to_bin_free(bytes);
    return copy;
}

/// A dictionary with a text, a nested array of 40 numbers and a nested dictionary.
Tree sample() {
    Tree root(plist_new_dict());
    plist_dict_set_item(root.get(), "name", plist_new_string("Tavrel é"));
    plist_t numbers = plist_new_array();
    for (std::uint64_t number = 0; number < 40; ++number)
        plist_array_append_item(numbers, plist_new_uint(number));
    plist_dict_set_item(root.get(), "numbers", numbers);
    plist_dict_set_item(root.get(), "inner", plist_new_dict());
    return root;
}

TEST(PropertyList, ReadsBothFormats) {
    for (const std::string& bytes : {PropertyList::xml(sample()), binary(sample())}) {
        const Tree tree = PropertyList::parseDictionary(bytes);
        ASSERT_TRUE(tree);
        EXPECT_EQ(PropertyList::text(plist_dict_get_item(tree.get(), "name")), "Tavrel é");
        EXPECT_EQ(plist_array_get_size(plist_dict_get_item(tree.get(), "numbers")), 40);
        EXPECT_EQ(PropertyList::text(plist_dict_get_item(tree.get(), "numbers")), std::nullopt);
        EXPECT_EQ(PropertyList::text(plist_dict_get_item(tree.get(), "none")), std::nullopt);
    }
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t index = 0; index < times; ++index) all += text;
    return all;
}

/// A binary list in which object n is an array that names object n + 1 `times` times; the last is empty.
std::string chainOfArrays(std::size_t length, std::size_t times) {
    std::string bytes = "bplist00";
    std::vector<std::size_t> offsets;
    const auto append = [&bytes](std::uint64_t value, std::size_t size) {
        while (size-- > 0) bytes += static_cast<char>(value >> (8 * size));
    };
    for (std::size_t object = 0; object < length; ++object) {
        const std::size_t count = object + 1 < length ? times : 0;
        offsets.push_back(bytes.size());
        append(0xA0 + count, 1);
        for (std::size_t index = 0; index < count; ++index) append(object + 1, 2);
    }
    const std::size_t table = bytes.size();
    for (const std::size_t offset : offsets) append(offset, 4);
    append(0, 6);
    append(4, 1);
    append(2, 1);
    append(length, 8);
    append(0, 8);
    append(table, 8);
    return bytes;
}

TEST(PropertyList, RefusesWhatIsNoDictionaryOrHasNoBounds) {
    const std::string cases[] = {
        "",
        "bplist00",
        "no list",
        std::string(4096, '\0'),
        "<plist version=\"1.0\"><string>text</string></plist>",
        repeated("<array>", 1'000'000),                 // deeper than any stack
        repeated("<array><!--</array>-->", 1'000'000),  // and hidden from who counts the ends
        chainOfArrays(60'000, 1),
        chainOfArrays(30, 14),  // small, and 14^29 arrays when unfolded
    };
    for (const std::string& bytes : cases) EXPECT_FALSE(PropertyList::parseDictionary(bytes));
}

/// Whether `bytes` are refused, or give a tree that can be walked to its end.
bool refusedOrWhole(const std::string& bytes) {
    const Tree tree = PropertyList::parseDictionary(bytes);
    return !tree || !PropertyList::xml(tree).empty();
}

TEST(PropertyList, SurvivesEveryDamagedByte) {
    for (const std::string& sound : {PropertyList::xml(sample()), binary(sample())}) {
        for (std::size_t at = 0; at < sound.size(); ++at) {
            EXPECT_TRUE(refusedOrWhole(sound.substr(0, at)));
            for (const char damage : {'\0', '\xFF', '\xAF', '<'}) {
                std::string bytes = sound;
                bytes[at] = damage;
                EXPECT_TRUE(refusedOrWhole(bytes)) << at;
            }
        }
    }
}

}  // namespace
}  // namespace tavrel
