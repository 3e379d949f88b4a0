#include "roothelper/Service.h"

#include "platform/root/RootProtocol.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <string_view>
#include <sys/time.h>
#include <unistd.h>

namespace tavrel {

namespace {

using Clock = std::chrono::steady_clock;

/// Ends the process when this still exists after `limit`.
class StepLimit {
  public:
    explicit StepLimit(std::chrono::milliseconds limit) { set(limit); }
    ~StepLimit() { set(std::chrono::milliseconds(0)); }
    StepLimit(const StepLimit&) = delete;
    StepLimit& operator=(const StepLimit&) = delete;

  private:
    static void set(std::chrono::milliseconds limit) {
        const auto whole = std::chrono::duration_cast<std::chrono::seconds>(limit);
        const std::chrono::microseconds rest = limit - whole;
        const itimerval timer{.it_interval = {}, .it_value = {whole.count(), rest.count()}};
        ::setitimer(ITIMER_REAL, &timer, nullptr);
    }
};

bool write(int output, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(output, bytes.data(), bytes.size());
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) return false;
    }
    return true;
}

bool hasInput(int input, std::chrono::milliseconds limit) {
    pollfd stream{input, POLLIN, 0};
    const int ready = ::poll(&stream, 1, static_cast<int>(std::max<std::int64_t>(limit.count(), 0)));
    return ready > 0 || (ready < 0 && errno == EINTR);
}

}  // namespace

std::string Service::answer(const LineReader::Line& line) {
    const auto refused = [](RootRefusal why) { return RootProtocol::line(StepResult::refused(why)); };
    if (++steps_ > rules_.mostSteps) return refused(RootRefusal::tooMany);
    if (line.tooLong) return refused(RootRefusal::tooLong);
    const auto step = RootProtocol::step(line.text, rules_.work.tools);
    return step ? RootProtocol::line(work_.perform(*step)) : refused(step.error());
}

Service::Ending Service::serve(int input, int output) {
    constexpr std::size_t chunk = 65536;
    const auto end = Clock::now() + rules_.whole;
    LineReader lines(RootProtocol::longestLine);
    std::array<char, chunk> buffer{};
    bool heard = write(output, std::string(RootProtocol::ready) + "\n");
    for (std::size_t taken = 0; heard && taken <= rules_.mostBytes;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (!hasInput(input, std::min(rules_.idle, left))) return Ending::limitReached;
        const ssize_t count = ::read(input, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return Ending::inputEnded;
        taken += static_cast<std::size_t>(count);
        lines.take({buffer.data(), static_cast<std::size_t>(count)}, [&](const LineReader::Line& line) {
            const StepLimit limit(rules_.step);
            heard = heard && Clock::now() < end && write(output, answer(line) + "\n");
        });
    }
    return heard ? Ending::limitReached : Ending::inputEnded;
}

}  // namespace tavrel
