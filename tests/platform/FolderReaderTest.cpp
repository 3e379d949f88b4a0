#include "core/FileHandle.h"
#include "platform/FolderReader.h"
#include "support/Sandbox.h"

#include <fcntl.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;

struct ReaderCase {
    const char* name;
    const FolderReader& (*reader)();
};

class EveryFolderReader : public ::testing::TestWithParam<ReaderCase> {
  protected:
    static FileHandle open(const fs::path& path) {
        return FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    }
    static const FolderReader& reader() { return GetParam().reader(); }
};

FolderEntry::Kind kindOf(const struct stat& status) {
    if (S_ISREG(status.st_mode)) return FolderEntry::Kind::file;
    if (S_ISDIR(status.st_mode)) return FolderEntry::Kind::folder;
    return S_ISLNK(status.st_mode) ? FolderEntry::Kind::link : FolderEntry::Kind::other;
}

TEST_P(EveryFolderReader, TellsOfEachEntryWhatItsMetadataSays) {
    const Sandbox sandbox;
    sandbox.file("file", 10'000);
    sandbox.folder("folder");
    sandbox.link("to-nothing", "absent");
    sandbox.link("to-folder", "folder");
    fs::create_hard_link(sandbox.path("file"), sandbox.path("twin"));
    ASSERT_EQ(::mkfifo(sandbox.path("fifo").c_str(), 0600), 0);
    for (const char* name : {"new\nline", "\xff", ".hidden", "..."}) sandbox.file(name, 1);

    std::set<std::string> names;
    const FileHandle folder = open(sandbox.root());
    EXPECT_TRUE(reader().read(folder.get(), [&](const FolderEntry& entry) {
        EXPECT_TRUE(names.emplace(entry.name).second) << entry.name;
        struct stat status {};
        EXPECT_EQ(::lstat(sandbox.path(entry.name).c_str(), &status), 0) << entry.name;
        EXPECT_EQ(entry.kind, kindOf(status)) << entry.name;
        EXPECT_EQ(entry.measured, !S_ISDIR(status.st_mode)) << entry.name;
        if (!entry.measured) return true;
        EXPECT_EQ(entry.device, status.st_dev);
        EXPECT_EQ(entry.inode, status.st_ino);
        EXPECT_EQ(entry.links, status.st_nlink);
        EXPECT_EQ(entry.allocated, status.st_blocks * 512);
        return true;
    }));
    EXPECT_EQ(names.size(), 10U);
}

TEST_P(EveryFolderReader, KeepsTheOrderOfTheFileSystem) {
    const Sandbox sandbox;
    const fs::path file = sandbox.file("one file of many names");
    for (int at = 0; at < 2500; ++at) {
        fs::create_hard_link(file, sandbox.path("a name of some length " + std::to_string(at)));
    }
    std::vector<std::string> expected;
    for (const auto& entry : fs::directory_iterator(sandbox.root()))
        expected.push_back(entry.path().filename());
    std::vector<std::string> names;
    const FileHandle folder = open(sandbox.root());
    EXPECT_TRUE(reader().read(folder.get(), [&](const FolderEntry& entry) {
        names.emplace_back(entry.name);
        return true;
    }));
    EXPECT_EQ(names, expected);
}

TEST_P(EveryFolderReader, StopsWhenTold) {
    const Sandbox sandbox;
    for (const char* name : {"a", "b", "c"}) sandbox.file(name);
    int visits = 0;
    const FileHandle folder = open(sandbox.root());
    EXPECT_TRUE(reader().read(folder.get(), [&](const FolderEntry&) { return ++visits < 2; }));
    EXPECT_EQ(visits, 2);
}

TEST_P(EveryFolderReader, DoesNotMeasureWhatVanished) {
    const Sandbox sandbox;
    for (const char* name : {"a", "b", "c"}) sandbox.file(name);
    int measured = 0;
    const FileHandle folder = open(sandbox.root());
    reader().read(folder.get(), [&](const FolderEntry& entry) {
        for (const char* name : {"a", "b", "c"}) fs::remove(sandbox.path(name));
        measured += entry.measured ? 1 : 0;
        return true;
    });
    EXPECT_EQ(measured, 1);
}

TEST_P(EveryFolderReader, SaysThatItCouldNotRead) {
    const Sandbox sandbox;
    const FileHandle file = open(sandbox.file("file"));
    for (const int handle : {file.get(), -1}) {
        EXPECT_FALSE(reader().read(handle, [](const FolderEntry&) { return true; }));
    }
}

INSTANTIATE_TEST_SUITE_P(Readers, EveryFolderReader,
                         ::testing::Values(ReaderCase{"portable", posixFolderReader},
                                           ReaderCase{"system", systemFolderReader}),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace tavrel::testing
