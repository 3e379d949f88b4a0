#pragma once

#include "cli/GlobalOptions.h"
#include "cli/Json.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrel::cli {

/// The two streams that the program speaks on: results on standard output, everything else on standard error.
/// Text for a person must be escaped for a terminal by the caller (`Text::escapedForDisplay`).
class Console {
  public:
    enum class Style { strong, dim, mark, caution, danger, privileged };

    explicit Console(const GlobalOptions& options);
    ~Console() { endProgress(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Whether results are wanted as a JSON document.
    [[nodiscard]] bool json() const { return json_; }
    [[nodiscard]] bool quiet() const { return quiet_; }
    /// Whether a person can be asked: standard input is a terminal.
    [[nodiscard]] static bool canAsk();

    /// Whether the terminal named by TERM supports the control codes used here.
    [[nodiscard]] static bool understandsCodes();

    /// Columns to lay results out for: those that the terminal has now, or 100.
    [[nodiscard]] std::size_t width() const;
    /// Lines that the terminal has now.
    [[nodiscard]] static std::size_t height();
    /// `text` cut to `columns` on a terminal; unchanged for a file or a pipe.
    [[nodiscard]] std::string fitted(std::string_view text, std::size_t columns) const;
    /// `text` in that style where colours are wanted; each piece ends its own style.
    [[nodiscard]] std::string styled(Style style, std::string_view text) const;

    void line(std::string_view text);
    void document(const Json::Value& value);

    /// One line about something that went wrong.
    void warn(std::string_view text);
    /// Warns; in JSON the document is then an object with the one key "error". Gives the exit status for it.
    int fail(std::string_view text);
    /// Warns that the command line makes no sense. Gives the exit status for it.
    int misuse(std::string_view text);

    /// Replaces the progress line. Does nothing unless the output is a terminal.
    void progress(std::string_view text);
    void endProgress();

    /// Asks on the terminal; anything but a clear yes is a no.
    [[nodiscard]] bool confirm(std::string_view question);

    /// Flushes standard output. Returns `status`; `undone` in place of `done` if anything could not be
    /// written.
    [[nodiscard]] int finish(int status);

  private:
    void write(std::string_view text);

    bool json_;
    bool quiet_;
    bool terminal_;
    bool coloured_;
    bool showsProgress_;
    bool progressStands_ = false;
};

}  // namespace tavrel::cli
