// Vets one folder with its parent as the admitted root and removes it, as a clean does after its scan.
#include "cleaning/Removal.h"
#include "cleaning/SafetyGuard.h"
#include "platform/FolderAccess.h"

#include <cstdio>
#include <filesystem>

int main(int argc, char** argv) {
    using namespace tavrel;
    if (argc != 2) {
        std::fputs("usage: tavrel_bench_erase FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::canonical(argv[1]);
    const FolderAccess& access = systemFolderAccess();
    const auto seen = Removal::identify(access, folder);
    SafetyGuard guard;
    guard.extraRoots = {folder.parent_path()};
    const SafetyGuard::Verdict verdict = guard.check(folder);
    if (!seen || !verdict.isAllowed()) {
        std::fprintf(stderr, "refused: %s\n", verdict.reason().c_str());
        return 1;
    }
    const auto outcome = Removal::erase(access, Removal::target(folder, verdict, *seen));
    if (!outcome) std::fprintf(stderr, "%s\n", outcome.error().reason.c_str());
    return outcome ? 0 : 1;
}
