#include "roothelper/LineReader.h"

#include <utility>

namespace tavrel {

void LineReader::keep(std::string_view bytes) {
    if (line_.text.size() + bytes.size() > longest_) line_.tooLong = true;
    if (line_.tooLong) {
        line_.text = {};
    } else {
        line_.text += bytes;
    }
}

LineReader::Line LineReader::finished() {
    return std::exchange(line_, {});
}

}  // namespace tavrel
