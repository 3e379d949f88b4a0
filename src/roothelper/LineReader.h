#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// Cuts a stream of bytes into lines and keeps no more of it than one line may be long. Bytes without a
/// newline behind them are no line.
class LineReader {
  public:
    struct Line {
        bool tooLong = false;
        std::string text;  // without the newline; empty when the line was too long
    };

    explicit LineReader(std::size_t longest) : longest_(longest) {}

    /// `visit` is called with each line that the bytes complete.
    template <typename Visit>
    void take(std::string_view bytes, const Visit& visit) {
        for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
            keep(bytes.substr(0, end));
            visit(finished());
            bytes.remove_prefix(end + 1);
        }
        keep(bytes);
    }

  private:
    void keep(std::string_view bytes);
    Line finished();

    std::size_t longest_;
    Line line_;
};

}  // namespace tavrel
