#include "support/SampleMac.h"
#include "support/Sandbox.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <unistd.h>

#include <fmt/format.h>

// Builds the large sample Mac and shows what the command line finds on it. `tavrel-demo TAVRELCTL [FOLDER]`:
// with a folder, which must not exist, the Mac is left there for trying things out.

namespace {

namespace fs = std::filesystem;

int show(const std::string& program, const tavrel::testing::SampleMac& mac) {
    int failures = 0;
    for (const char* mode : {"system", "ai", "projects", "installers"}) {
        std::cout << fmt::format("\n=== tavrelctl scan {} ===\n", mode) << std::flush;
        const std::string command = fmt::format("'{}' --profile macos --root '{}' --home '{}' scan {}",
                                                program, mac.root().native(), mac.home().native(), mode);
        if (std::system(command.c_str()) != 0) ++failures;  // NOLINT(cert-env33-c): paths of our own making
    }
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: tavrel-demo TAVRELCTL [FOLDER]\n";
        return 2;
    }
    const std::string program = argv[1];
    try {
        if (argc == 3) {
            if (!fs::create_directories(argv[2])) throw std::runtime_error("the folder is there already");
            const tavrel::testing::SampleMac mac(fs::canonical(argv[2]));
            mac.fill();
            return show(program, mac);
        }
        const tavrel::testing::Sandbox folder;
        const tavrel::testing::SampleMac mac(folder.root());
        mac.fill();
        return show(program, mac);
    } catch (const std::exception& problem) {
        std::cerr << "tavrel-demo: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
}
