#include "disk/Trees.h"

#include "core/FileHandle.h"

#include <cstring>
#include <fcntl.h>
#include <random>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;

void check(bool worked) {
    if (!worked) throw std::runtime_error(std::strerror(errno));
}

void growSpecialFiles(const Sandbox& sandbox) {
    sandbox.file("folder/file", 5000);
    sandbox.link("folder/to-file", "file");
    sandbox.link("folder/to-folder", "..");
    sandbox.link("folder/to-nothing", "absent");
    sandbox.link("folder/long", std::string(1000, 'x'));  // too long for the inode: has a block of its own
    check(::mkfifo(sandbox.path("folder/fifo").c_str(), 0600) == 0);

    const FileHandle socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const std::string at = sandbox.path("socket").native();
    check(at.size() < sizeof address.sun_path);
    at.copy(address.sun_path, at.size());
    check(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
}

void growSparseFiles(const Sandbox& sandbox) {
    for (const char* name : {"empty", "a/holes", "a/b/holes"}) {
        const fs::path at = sandbox.file(name, 9000);
        check(::truncate(at.c_str(), 0) == 0);
        check(::truncate(at.c_str(), 50'000'000) == 0);
    }
    sandbox.file("a/b/full", 100'000);
}

void growOddNames(const Sandbox& sandbox) {
    for (const char* name : {"new\nline", "\xff\xfe not UTF-8", " ", "-rf", "...", "tab\there", "*"}) {
        sandbox.file(fs::path(name) / name / "file", 3000);
    }
    sandbox.file(std::string(255, 'n') + "/file", 1);
}

/// The first name of each file in the order of the walk may stand in any folder, above or below the others.
void growHardLinks(const Sandbox& sandbox) {
    constexpr int folders = 60;
    std::mt19937 random(7);
    std::vector<fs::path> files;
    for (int at = 0; at < folders; ++at) {
        const fs::path below = "f" + std::to_string(at % 7);
        const fs::path folder =
            at % 3 == 0 ? below : below / ("g" + std::to_string(at % 5)) / std::to_string(at);
        files.push_back(sandbox.file(folder / ("own" + std::to_string(at)), 1000LL * at));
        for (int link = 0; link < 4; ++link) {
            const fs::path& known = files[random() % files.size()];
            fs::create_hard_link(known, sandbox.path(folder / ("l" + std::to_string(at * 10 + link))));
        }
    }
}

/// Every file of a second, equal tree is a link to the first.
void growTwins(const Sandbox& sandbox) {
    for (int at = 0; at < 300; ++at) {
        const fs::path name = fs::path(std::to_string(at % 50)) / std::to_string(at);
        const fs::path original = sandbox.file("one" / name, 2000);
        fs::create_directories(sandbox.path("two" / name).parent_path());
        fs::create_hard_link(original, sandbox.path("two" / name));
    }
}

void growWide(const Sandbox& sandbox) {
    for (int at = 0; at < 1000; ++at) sandbox.file("wide/" + std::to_string(at), at % 100 == 0 ? 5000 : 0);
    for (int at = 0; at < 200; ++at) sandbox.folder("folders/" + std::to_string(at));
}

void growLibraries(const Sandbox& sandbox) {
    for (const char* name : {"My.photoslibrary", "My.musiclibrary", "My.tvlibrary", ".photoslibrary",
                             "My.PhotosLibrary", "My.photoslibrary2", "photoslibrary"}) {
        sandbox.file(fs::path("Pictures") / name / "originals/one", 40'000);
    }
    sandbox.file("a file.photoslibrary", 50'000);
}

void growRandom(const Sandbox& sandbox) {
    std::mt19937 random(11);
    std::vector<fs::path> folders = {""};
    for (int at = 0; at < 150; ++at) {
        folders.push_back(folders[random() % folders.size()] / std::to_string(at));
        sandbox.folder(folders.back());
        for (auto files = random() % 6; files > 0; --files) {
            sandbox.file(folders.back() / ("x" + std::to_string(files)),
                         static_cast<std::int64_t>(random() % 20'000));
        }
    }
}

int makeAndOpen(int above, const char* name) {
    check(::mkdirat(above, name, 0700) == 0);
    const int handle = ::openat(above, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    check(handle >= 0);
    return handle;
}

void makeFile(int folder) {
    const FileHandle file(::openat(folder, "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    check(::write(file.get(), "content", 7) == 7);
}

}  // namespace

void PrintTo(const Tree& tree, std::ostream* out) {
    *out << tree.name;
}

const std::vector<Tree>& hostileTrees() {
    static const std::vector<Tree> trees = {
        {"Empty", [](const Sandbox&) {}},
        {"SpecialFiles", growSpecialFiles},
        {"SparseFiles", growSparseFiles},
        {"OddNames", growOddNames},
        {"HardLinks", growHardLinks},
        {"Twins", growTwins},
        {"Wide", growWide},
        {"Libraries", growLibraries},
        {"Random", growRandom},
        {"DeepChain", [](const Sandbox& sandbox) { growDeep(sandbox, 100, Teeth::none); }},
        {"Comb", [](const Sandbox& sandbox) { growDeep(sandbox, 100, Teeth::one); }},
    };
    return trees;
}

void growDeep(const Sandbox& sandbox, int depth, Teeth teeth) {
    constexpr int levelsPerFile = 20;
    FileHandle at(::open(sandbox.root().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < depth; ++level) {
        // Whatever order the file system lists names in, the tooth is often the one that has to wait.
        const bool swapNames = level % 2 != 0;
        const bool toothFirst = level % 4 < 2;
        FileHandle tooth;
        const auto addTooth = [&] { tooth = FileHandle(makeAndOpen(at.get(), swapNames ? "in" : "to")); };
        if (teeth == Teeth::one && toothFirst) addTooth();
        FileHandle next(makeAndOpen(at.get(), swapNames ? "to" : "in"));
        if (teeth == Teeth::one && !toothFirst) addTooth();
        at = std::move(next);
        if (level % levelsPerFile != 0) continue;
        makeFile(at.get());
        if (tooth) makeFile(tooth.get());
    }
}

void growBroad(const Sandbox& sandbox, int folders, int names) {
    constexpr int files = 5;
    for (int folder = 0; folder < folders; ++folder) {
        const auto path = [&](int name) { return fs::path(std::to_string(folder)) / std::to_string(name); };
        for (int name = 0; name < names; ++name) {
            if (name < files)
                sandbox.file(path(name), 1 + 4096 * name);
            else
                fs::create_hard_link(sandbox.path(path(name % files)), sandbox.path(path(name)));
        }
    }
}

}  // namespace tavrel::testing
