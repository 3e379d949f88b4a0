#include "cli/CommandLine.h"

#include <clocale>

int main(int argc, char** argv) {
    using namespace tavrel::cli;
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");

    const auto line = CommandLine::parse(argc, argv);
    if (!line) return line.error();
    Console console(line->global);
    return console.finish(line->command(line->global, console));
}
