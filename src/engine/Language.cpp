#include "engine/Language.h"

#include "core/Identity.h"

#include <clocale>
#include <filesystem>
#include <libintl.h>
#include <system_error>

namespace tavrel::Language {

void use() {
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure) return;
    const auto catalogues = program.parent_path().parent_path() / "share/locale";
    ::bindtextdomain(Identity::textDomain, catalogues.c_str());
    ::bind_textdomain_codeset(Identity::textDomain, "UTF-8");
}

}  // namespace tavrel::Language
