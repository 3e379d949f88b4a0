#include "disk/TreeRecord.h"
#include "support/Sandbox.h"

#include <numeric>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using Kind = TreeChange::Kind;

constexpr std::int64_t large = 3'000'000;

TreeRecord record(std::map<std::string, DiskIndex::Info> folders, std::map<std::string, std::int64_t> files,
                  std::int64_t total) {
    return {.root = "/data", .total = {total, 1}, .folders = std::move(folders), .files = std::move(files)};
}

TEST(TreeRecord, TellsWhereATreeChanged) {
    const TreeRecord before =
        record({{"a", {900, 1}}, {"a/b", {400, 1}}, {"old", {300, 2}}, {"old/in", {200, 1}}},
               {{"a/b/film", large}, {"gone.iso", large}}, large * 2 + 5000);
    const TreeRecord now =
        record({{"a", {1500, 1}}, {"a/b", {700, 1}}, {"new", {large, 2}}, {"new/in", {large, 1}}},
               {{"a/b/film", large + 100}, {"new/in/x", large}}, large * 2 + 5500);
    const auto all = changes(before, now);
    EXPECT_THAT(all,
                ElementsAre(TreeChange{"gone.iso", Kind::gone, false, -large},
                            TreeChange{"new", Kind::appeared, true, large},
                            TreeChange{"a", Kind::grew, true, 300}, TreeChange{"old", Kind::gone, true, -300},
                            TreeChange{"", Kind::grew, true, 200}, TreeChange{"a/b", Kind::grew, true, 200},
                            TreeChange{"a/b/film", Kind::grew, false, 100}));
    const std::int64_t sum =
        std::accumulate(all.begin(), all.end(), std::int64_t{0},
                        [](std::int64_t so, const TreeChange& each) { return so + each.delta; });
    EXPECT_EQ(sum, now.total.size - before.total.size);
    EXPECT_TRUE(changes(before, before).empty());

    const std::int64_t limit = TreeRecord::largeFile;
    EXPECT_THAT(
        changes(record({}, {{"a", limit - 4096}, {"b", limit - 4096}}, limit),
                record({}, {{"a", limit + 4096}, {"b", limit - 8192}}, limit + 4096)),
        ElementsAre(TreeChange{"a", Kind::grew, false, 8192}, TreeChange{"", Kind::shrank, true, -4096}))
        << "small files are told by their folder";
}

TEST(TreeRecord, SurvivesItsFileAndRefusesOthers) {
    const testing::Sandbox sandbox;
    const auto root = sandbox.folder("tree");
    sandbox.file("tree/deep/er/big", large);
    sandbox.file("tree/deep/\xff\n\"odd\"/small", 1);
    const TreeRecord taken = TreeRecord::take(root, Instant(std::chrono::hours(1000)));
    EXPECT_EQ(taken.folders.size(), 3U);
    ASSERT_EQ(taken.files.size(), 1U);
    EXPECT_GE(taken.files.at("deep/er/big"), large);
    std::filesystem::create_hard_link(root / "deep/er/big", root / "deep/second name");
    const auto linked = TreeRecord::take(root, taken.taken);
    EXPECT_EQ(linked.files.size(), 1U);
    EXPECT_EQ(linked.total.size, taken.total.size);
    const auto read = TreeRecord::decoded(taken.encoded());
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, taken);
    EXPECT_TRUE(changes(*read, taken).empty());

    std::string cut = taken.encoded();
    cut.resize(cut.size() / 2);
    for (const std::string& text :
         {cut, std::string(), std::string("[]"), std::string("{\"format\":\"tavrel-tree\"}"),
          std::string(R"({"format":"tavrel-tree","version":1,"root":"/","taken":1,)"
                      R"("total":[1,-5],"folders":{},"files":{}})"),
          std::string(R"({"format":"tavrel-tree","version":1,"root":"/","taken":9223372037,)"
                      R"("total":[1,5],"folders":{},"files":{}})"),
          std::string(R"({"format":"tavrel-tree","version":1,"root":"/","taken":1,)"
                      R"("total":[1,5],"folders":{"a":[18446744073709551615,1]},"files":{}})")}) {
        EXPECT_FALSE(TreeRecord::decoded(text)) << text;
    }
}

}  // namespace
}  // namespace tavrel
