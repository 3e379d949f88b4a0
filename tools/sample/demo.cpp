#include "app/Graphics.h"
#include "app/Launch.h"
#include "app/Program.h"
#include "app/SessionBus.h"
#include "models/support/Background.h"
#include "sample/SampleMac.h"
#include "sample/SampleMachine.h"
#include "support/Sandbox.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

// Builds the large sample Mac and opens the window over it: its settings, history and Trash are those of the
// sample's home, the figures of the Status tab those of a sample laptop. Without a display it shows what the
// command line, which stands beside this program, finds. Given a folder, which must not exist yet, the Mac is
// left there for trying things out.

namespace {

namespace fs = std::filesystem;
using tavrel::sample::SampleMachine;

int show(const std::string& program, const tavrel::sample::SampleMac& mac) {
    int failures = 0;
    for (const char* mode : {"system", "ai", "projects", "installers"}) {
        std::cout << fmt::format("\n=== tavrelctl scan {} ===\n", mode) << std::flush;
        const std::string command = fmt::format("'{}' --profile macos --root '{}' --home '{}' scan {}",
                                                program, mac.root().native(), mac.home().native(), mode);
        if (std::system(command.c_str()) != 0) ++failures;  // NOLINT(cert-env33-c): paths of our own making
    }
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// The window as it always is, but no login starts it and no second start finds it.
int openWindow(const tavrel::sample::SampleMac& mac, int& argc, char** argv) {
    tavrel::Graphics::choose();
    const tavrel::Launch::Application application(argc, argv);
    auto parts = tavrel::Program::partsOf(mac.profile(), tavrel::Program::Start::byUser);
    parts.machine = SampleMachine::readers(std::make_shared<SampleMachine>());
    tavrel::Program program(std::move(parts));
    return tavrel::Launch::run(program, tavrel::SessionBus::connect(), nullptr);
}

int run(int argc, char** argv) {
    if (argc > 2) {
        std::cerr << "usage: tavrel-demo [FOLDER]\n";
        return 2;
    }
    try {
        const std::string program = fs::canonical("/proc/self/exe").replace_filename("tavrelctl");
        if (argc == 2) {
            if (!fs::create_directories(argv[1])) throw std::runtime_error("the folder is there already");
            const tavrel::sample::SampleMac mac(fs::canonical(argv[1]));
            mac.fill();
            return show(program, mac);
        }
        const tavrel::testing::Sandbox folder;
        const tavrel::sample::SampleMac mac(folder.root());
        mac.fill();
        return hasDisplay() ? openWindow(mac, argc, argv) : show(program, mac);
    } catch (const std::exception& problem) {
        std::cerr << "tavrel-demo: " << problem.what() << '\n';
        return EXIT_FAILURE;
    }
}

}  // namespace

int main(int argc, char** argv) {
    return tavrel::Background::leave(run(argc, argv));
}
