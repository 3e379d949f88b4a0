#include "core/Quoting.h"

namespace tavrel::Quoting {

std::string shell(std::string_view bytes) {
    std::string word = "'";
    for (const char byte : bytes) {
        if (byte == '\'') {
            word += R"('\'')";
        } else {
            word += byte;
        }
    }
    return word + "'";
}

std::string appleScript(std::string_view text) {
    std::string safe;
    for (const char byte : text) {
        if (byte == '\\' || byte == '"') safe += '\\';
        safe += byte;
    }
    return safe;
}

}  // namespace tavrel::Quoting
