#include "cli/Program.h"

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
    EXPECT_GT(figures["memory"]["total"], 1'000'000);
    EXPECT_LE(figures["memory"]["used"], figures["memory"]["total"]);
    EXPECT_GE(figures["cores"], 1);
    EXPECT_LE(figures["healthScore"], 100);
    EXPECT_FALSE(figures["processes"].empty());
    for (const char* key : {"gpu", "cpuTemp", "battery", "connection", "load", "diskRead"})
        EXPECT_TRUE(figures.contains(key)) << key << " is told even where there is none";

    const auto watch = tavrelctl_({"--json", "watch", "--count", "2", "--interval", "0.5"});
    ASSERT_EQ(watch.status, 0) << watch.err;
    std::istringstream lines(watch.out);
    int objects = 0;
    for (std::string line; std::getline(lines, line); ++objects)
        EXPECT_TRUE(nlohmann::json::accept(line)) << line;
    EXPECT_EQ(objects, 2);
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
    EXPECT_EQ(other.json()["earlierPath"], tree);
    EXPECT_NE(other.err.find("was taken of"), std::string::npos) << other.err;

    EXPECT_EQ(tavrelctl_({"explore", tree, "--compare", tree + "/notes.txt"}).status, 1);
    EXPECT_EQ(tavrelctl_({"explore", tree + "/notes.txt"}).status, 1);
    EXPECT_EQ(tavrelctl_({"explore", tree, "--export", "a", "--compare", "b"}).status, 2);
}

}  // namespace
}  // namespace tavrel
