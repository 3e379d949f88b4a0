#include "cli/CommandLine.h"
#include "engine/Language.h"

int main(int argc, char** argv) {
    using namespace tavrel::cli;
    tavrel::Language::use();

    const auto line = CommandLine::parse(argc, argv);
    if (!line) return line.error();
    Console console(line->global);
    return console.finish(line->command(line->global, console));
}
