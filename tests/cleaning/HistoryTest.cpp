#include "cleaning/History.h"
#include "support/Isolation.h"
#include "support/Sandbox.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Sandbox;

constexpr const char* identifier = "0F8FAD5B-D9CB-469F-A165-70867728950E";

History::Entry entry(std::int64_t count) {
    return {.id = identifier,
            .date = Instant(std::chrono::seconds(1'795'383'605)),  // 22 November 2026, 21:40:05 UTC
            .action = "clean",
            .count = count,
            .bytes = 1'234,
            .paths = {"/a \"b\"", "/ü\n\\xFF"}};
}

class HistoryTest : public ::testing::Test {
  protected:
    Sandbox sandbox;
    fs::path file = sandbox.path("new/Tavrel/history.json");
};

TEST_F(HistoryTest, anEntryComesBackEqualToTheSecond) {
    auto written = entry(2);
    EXPECT_FALSE(History::record(file, written));
    EXPECT_EQ(History::load(file).entries, std::vector{written});
    written.date += std::chrono::milliseconds(900);
    EXPECT_EQ(History::encode({written}), History::encode({entry(2)}));
}

TEST_F(HistoryTest, theFileReadsAsOthersWroteIt) {
    EXPECT_EQ(History::encode({entry(2)}), R"([
  {
    "id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
    "date": "2026-11-22T21:40:05Z",
    "action": "clean",
    "count": 2,
    "bytes": 1234,
    "paths": [
      "/a \"b\"",
      "/ü\n\\xFF"
    ]
  }
]
)");
    EXPECT_EQ(History::encode({}), "[]\n");
}

TEST_F(HistoryTest, whereThingsLieIsKeptAndNeverSpoilsTheRest) {
    auto written = entry(1);
    written.trashed = {{"/a", "/Trash/\\xFF", 7}};
    EXPECT_FALSE(History::record(file, written));
    EXPECT_EQ(History::load(file).entries, std::vector{written});
    const std::string sound = testing::contentOf(file);
    for (const char* wrong :
         {"[7]", "{}", "[{\"path\": \"/a\"}]", "[{\"path\": 1, \"place\": \"\", \"size\": 1}]"}) {
        const auto at = sound.find("\"trashed\": ") + 11;
        std::ofstream(file) << sound.substr(0, at) << wrong << "}]";
        EXPECT_EQ(History::load(file).entries, std::vector{entry(1)}) << wrong;
    }
}

TEST_F(HistoryTest, theNewestStandsFirstAndTheOldestFallsOut) {
    std::vector<History::Entry> full;
    for (int i = 500; i > 0; --i) full.push_back(entry(i));
    sandbox.text("new/Tavrel/history.json", History::encode(full));
    EXPECT_FALSE(History::record(file, entry(501)));
    const auto entries = History::load(file).entries;
    ASSERT_EQ(entries.size(), 500U);
    EXPECT_EQ(entries.front().count, 501);
    EXPECT_EQ(entries.back().count, 2);
}

TEST_F(HistoryTest, whatDoesNotDecodeIsSetAsideAndBegunAnew) {
    const std::string sound = History::encode({entry(1)});
    const auto with = [&](const std::string& from, const std::string& to) {
        return std::regex_replace(sound, std::regex(from), to);
    };
    const std::vector<std::string> damaged = {
        "",
        "[",
        "{}",
        "[1]",
        sound + "]",
        std::string(100'000, '['),
        with("\"count\": 1", "\"count\": \"1\""),
        with("\"count\": 1", "\"count\": 1.5"),
        with("\"bytes\": 1234", "\"bytes\": 9223372036854775808"),
        with("\"bytes\": 1234,", ""),
        with("2026-11-22", "2026-02-30"),
        with("21:40:05Z", "21:40:05"),
        with("21:40:05Z", "24:00:00Z"),
        with("2026-11", "9999-11"),
        with("0F8FAD5B-", ""),
        with("\"clean\"", "null"),
        with("\"/a .*\",", "7,"),
    };
    for (const auto& content : damaged) {
        fs::remove_all(file.parent_path());
        sandbox.text("new/Tavrel/history.json", content);
        const auto record = History::load(file);
        EXPECT_EQ(record.state, History::State::damaged) << content.substr(0, 300);
        EXPECT_TRUE(record.entries.empty());

        EXPECT_FALSE(History::record(file, entry(9)));
        EXPECT_EQ(History::load(file).entries, std::vector{entry(9)});
        EXPECT_EQ(testing::contentOf(file.native() + ".damaged"), content) << "nothing is lost";
    }
}

TEST_F(HistoryTest, aMissingFileIsEmptyAndClearingItDoesNothing) {
    EXPECT_EQ(History::load(file).state, History::State::missing);
    History::clear(file);
    EXPECT_FALSE(History::record(file, entry(1)));
    History::clear(file);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(HistoryTest, onAFullDiskTheOldFileStaysWhole) {
    const auto ran = testing::withPrivateMounts([&] {
        sandbox.folder("small");
        testing::mountMemory(sandbox.path("small"), "size=256k");
        const auto small = sandbox.path("small/history.json");
        ASSERT_FALSE(History::record(small, entry(1)));
        const auto before = testing::contentOf(small);
        std::ofstream(sandbox.path("small/filler")) << std::string(1 << 20, 'x');
        EXPECT_TRUE(History::record(small, entry(2)));
        EXPECT_EQ(testing::contentOf(small), before);
    });
    if (ran == testing::Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
}

}  // namespace
}  // namespace tavrel
