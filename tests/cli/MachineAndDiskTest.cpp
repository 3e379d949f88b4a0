#include "cli/Program.h"
#include "core/Text.h"

#include <algorithm>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

class MachineAndDiskTest : public ::testing::Test {
  protected:
    MachineAndDiskTest() {
        box_.folder("home");
        box_.folder("root");
    }

    testing::Sandbox box_;
    testing::Program tavrelctl_{box_, "linux"};
};

TEST_F(MachineAndDiskTest, ToldAsOneObjectForEachSample) {
    const auto status = tavrelctl_({"--json", "status"});
    ASSERT_EQ(status.status, 0) << status.err;
    const auto figures = status.json();
    ASSERT_TRUE(figures["memory"]["used"].is_number() && figures["memory"]["total"].is_number());
    EXPECT_GT(figures["memory"]["used"], 0);
    EXPECT_GT(figures["memory"]["total"], figures["memory"]["used"]);
    EXPECT_GT(figures["cores"], 0);
    EXPECT_GT(figures["healthScore"], 0);
    EXPECT_FALSE(figures["processes"].empty());
    for (const char* key : {"gpu", "cpuTemp", "battery", "connection", "load", "diskRead"})
        EXPECT_TRUE(figures.contains(key)) << key << " is told even where there is none";

    const auto watch = tavrelctl_({"--json", "watch", "--count", "2", "--interval", "0.5"});
    ASSERT_EQ(watch.status, 0) << watch.err;
    std::istringstream lines(watch.out);
    int objects = 0;
    for (std::string line; std::getline(lines, line); ++objects) {
        const auto sample = nlohmann::json::parse(line, nullptr, false);
        ASSERT_TRUE(sample.is_object()) << line;
        EXPECT_TRUE(sample["cpu"].is_number()) << "it is measured between two readings: " << line;
    }
    EXPECT_EQ(objects, 2);
}

TEST_F(MachineAndDiskTest, CardsStandInColumnsThatFitTheTerminal) {
    const testing::Program german(box_, "linux", "de");
    const std::string out = german.onScreen({.columns = 80}, {"status"}).out;
    EXPECT_TRUE(out.starts_with("Gesundheit  ")) << out;
    EXPECT_EQ(out.find('\x1b'), std::string::npos) << "its terminal understands no codes";
    std::istringstream text(out);
    std::set<std::size_t> endsOfGraphs;
    for (std::string line; std::getline(text, line) && line != "\r";) {
        line.pop_back();  // what a terminal ends a line with
        EXPECT_LE(Text::columns(line), 80U) << line;
        const bool mayBeLong = line.starts_with("Gesundheit") || line.starts_with("Festplatte");
        EXPECT_TRUE(mayBeLong || line.find("…") == std::string::npos) << line;
        const std::size_t end = line.rfind("\xE2\x96");  // how each step of a graph begins
        if (end != std::string::npos) endsOfGraphs.insert(Text::columns(line.substr(0, end + 3)));
    }
    EXPECT_LE(endsOfGraphs.size(), 1U) << out;

    const auto small =
        german.onScreen({.columns = 40, .rows = 5, .kind = "xterm"}, {"watch", "--count", "1"});
    EXPECT_EQ(std::count(small.out.begin(), small.out.end(), '\n'), 4) << "more would push it up";
}

TEST_F(MachineAndDiskTest, ExploresAFolderAndHoldsItAgainstAnEarlierDay) {
    const std::string tree = box_.folder("tree").native();
    box_.file("tree/films/old.mov", 3'000'000);
    box_.file("tree/films/raw/take.mov", 1'000'000);
    box_.file("tree/notes.txt", 10'000);
    const auto look = tavrelctl_({"--json", "explore", tree}).json();
    ASSERT_EQ(look["entries"].size(), 2U);
    EXPECT_EQ(look["entries"][0]["path"], tree + "/films");
    EXPECT_EQ(look["entries"][0]["files"], 2);
    EXPECT_GT(look["entries"][0]["share"], 0.9);
    EXPECT_EQ(look["entries"][0]["below"][0]["path"], tree + "/films/raw");

    const std::string record = box_.path("before.json").native();
    ASSERT_EQ(tavrelctl_({"explore", tree, "--export", record}).status, 0);
    box_.file("tree/new/big.iso", 5'000'000);
    std::filesystem::remove(box_.path("tree/films/old.mov"));
    const auto compared = tavrelctl_({"--json", "explore", tree, "--compare", record}).json();
    ASSERT_GE(compared["changes"].size(), 2U);
    EXPECT_EQ(compared["changes"][0]["path"], tree + "/new");
    EXPECT_EQ(compared["changes"][0]["change"], "appeared");
    EXPECT_EQ(compared["changes"][1]["path"], tree + "/films/old.mov");
    EXPECT_EQ(compared["changes"][1]["change"], "gone");
    EXPECT_EQ(compared["earlierPath"], tree);

    box_.link("shortcut", box_.path("tree/films"));
    const std::string above = box_.path("shortcut").native() + "/..";
    EXPECT_EQ(tavrelctl_({"--json", "explore", above}).json()["path"], tree);
    const auto other = tavrelctl_({"--json", "explore", tree + "/films", "--compare", record});
    EXPECT_EQ(other.status, 2);
    EXPECT_NE(other.err.find("was taken of"), std::string::npos) << other.err;

    EXPECT_EQ(tavrelctl_({"explore", tree, "--compare", tree + "/notes.txt"}).status, 1);
    EXPECT_EQ(tavrelctl_({"explore", tree + "/notes.txt"}).status, 1);
    EXPECT_EQ(tavrelctl_({"explore", tree, "--export", "a", "--compare", "b"}).status, 2);
}

}  // namespace
}  // namespace tavrel
