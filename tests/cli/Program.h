#pragma once

#include "support/Sandbox.h"

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::testing {

/// How a run of the program ended.
struct Ended {
    int status = -1;
    std::string out;
    std::string err;

    /// Standard output as one document; a discarded value when it is none.
    [[nodiscard]] nlohmann::ordered_json json() const {
        return nlohmann::ordered_json::parse(out, nullptr, false);
    }
};

/// What a run writes to; without a kind its terminal understands no codes.
struct Screen {
    unsigned short columns = 80;
    unsigned short rows = 24;
    std::string kind;
};

/// Runs the real program in a sandbox: a home, a root without a system in it, and an environment that would
/// show if anything but the options were heeded.
class Program {
  public:
    using Words = std::vector<std::string>;

    Program(const Sandbox& box, std::string profile, std::string language = {})
        : box_(box), profile_(std::move(profile)), language_(std::move(language)) {}

    /// With the options that keep the run in the sandbox before `words`.
    [[nodiscard]] Ended operator()(const Words& words) const;
    /// With these words alone.
    [[nodiscard]] Ended bare(const Words& words) const;
    /// With standard input on a terminal on which `answer` has been typed.
    [[nodiscard]] Ended answering(const std::string& answer, const Words& words) const;

    /// With standard output on a terminal; its lines end with "\r\n".
    [[nodiscard]] Ended onScreen(const Screen& screen, const Words& words) const;

    [[nodiscard]] Words kept(const Words& words) const;

  private:
    [[nodiscard]] Ended run(const Words& words, int input) const;
    [[nodiscard]] int start(const Words& words, int input, int output, const std::string& terminal) const;

    const Sandbox& box_;
    std::string profile_;
    std::string language_;  // that the environment asks for; none: English
};

}  // namespace tavrel::testing
