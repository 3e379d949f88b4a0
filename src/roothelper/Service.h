#pragma once

#include "roothelper/HelperRules.h"
#include "roothelper/LineReader.h"

#include <cstddef>
#include <string>

namespace tavrel {

/// Answers each line of its input with one line of output, as `RootProtocol` has them, until the input ends
/// or the rules end it.
class Service {
  public:
    /// How it came to an end.
    enum class Ending { inputEnded, limitReached };

    /// `work` is borrowed.
    Service(const HelperRules& rules, const RootWork& work) : rules_(rules), work_(work) {}

    /// Both are descriptors. A step that takes longer than the rules allow ends the process by SIGALRM.
    [[nodiscard]] Ending serve(int input, int output);

    [[nodiscard]] std::string answer(const LineReader::Line& line);

  private:
    const HelperRules& rules_;
    const RootWork& work_;
    std::size_t steps_ = 0;
};

}  // namespace tavrel
