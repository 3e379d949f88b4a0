#include "platform/linux/figures/NetworkFigures.h"

#include "platform/linux/kernel/KernelText.h"

#include <cstdint>
#include <linux/route.h>

namespace tavrel::NetworkFigures {

namespace {

using KernelText::number;
using KernelText::skipWords;
using KernelText::takeLine;
using KernelText::takeWord;

/// The best of the routes offered; the first of equals.
class Best {
  public:
    void offer(std::string_view interface, std::uint32_t flags, std::uint32_t metric) {
        if ((flags & RTF_UP) == 0 || (flags & RTF_REJECT) != 0 || interface.empty()) return;
        if (interface_ && metric >= metric_) return;
        interface_ = interface;
        metric_ = metric;
    }
    [[nodiscard]] const std::optional<std::string>& interface() const { return interface_; }

  private:
    std::optional<std::string> interface_;
    std::uint32_t metric_ = 0;
};

constexpr int hexadecimal = 16;

bool isZero(std::string_view digits) {
    return !digits.empty() && digits.find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

void parse(std::string_view dev, std::vector<Row>& rows) {
    rows.clear();
    while (!dev.empty()) {
        std::string_view line = takeLine(dev);
        const std::size_t colon = line.rfind(':');  // numbers follow at once where they are long
        if (colon == std::string_view::npos) continue;
        std::string_view numbers = line.substr(colon + 1);
        const auto received = number<std::uint64_t>(takeWord(numbers));
        skipWords(numbers, 7);  // packets and their faults
        const auto sent = number<std::uint64_t>(takeWord(numbers));
        std::string_view name = line.substr(0, colon);
        name = takeWord(name);
        if (received && sent && !name.empty()) rows.push_back({name, {.received = *received, .sent = *sent}});
    }
}

std::optional<std::string> defaultInterface(std::string_view route) {
    Best best;
    while (!route.empty()) {
        std::string_view line = takeLine(route);
        const std::string_view interface = takeWord(line);
        const std::string_view destination = takeWord(line);
        skipWords(line, 1);  // gateway
        const auto flags = number<std::uint32_t>(takeWord(line), hexadecimal);
        skipWords(line, 2);  // references, uses
        const auto metric = number<std::uint32_t>(takeWord(line));
        const std::string_view mask = takeWord(line);
        if (flags && metric && isZero(destination) && isZero(mask)) best.offer(interface, *flags, *metric);
    }
    return best.interface();
}

std::optional<std::string> defaultInterface6(std::string_view route) {
    Best best;
    while (!route.empty()) {
        std::string_view line = takeLine(route);
        const std::string_view destination = takeWord(line);
        const std::string_view length = takeWord(line);
        skipWords(line, 3);  // source, its length, next hop
        const auto metric = number<std::uint32_t>(takeWord(line), hexadecimal);
        skipWords(line, 2);  // references, uses
        const auto flags = number<std::uint32_t>(takeWord(line), hexadecimal);
        const std::string_view interface = takeWord(line);
        if (flags && metric && isZero(destination) && isZero(length)) {
            best.offer(interface, *flags, *metric);
        }
    }
    return best.interface();
}

}  // namespace tavrel::NetworkFigures
