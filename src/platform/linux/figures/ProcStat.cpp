#include "platform/linux/figures/ProcStat.h"

#include <charconv>

namespace tavrel {
namespace {

// Fields as proc(5) numbers them; the first one behind the name is 3.
constexpr int firstField = 3;
constexpr int userTime = 14;
constexpr int systemTime = 15;
constexpr int startTime = 22;
constexpr int residentPages = 24;

/// Takes one field off the front, with the blank before it.
std::string_view nextField(std::string_view& text) {
    if (text.starts_with(' ')) text.remove_prefix(1);
    const std::string_view field = text.substr(0, text.find_first_of(" \n"));
    text.remove_prefix(field.size());
    return field;
}

template <typename Number>
bool read(std::string_view field, Number& number) {
    const char* const end = field.data() + field.size();
    const auto [rest, error] = std::from_chars(field.data(), end, number);
    return error == std::errc() && rest == end;
}

}  // namespace

std::optional<ProcStat> procStat(std::string_view text) {
    const std::size_t opening = text.find('(');
    const std::size_t closing = text.rfind(')');
    if (closing == std::string_view::npos || opening >= closing) return std::nullopt;
    ProcStat stat{.name = text.substr(opening + 1, closing - opening - 1)};
    text.remove_prefix(closing + 1);
    std::uint64_t user = 0;
    std::uint64_t system = 0;
    bool whole = true;
    for (int at = firstField; at <= residentPages; ++at) {
        const std::string_view field = nextField(text);
        if (at == userTime) whole = whole && read(field, user);
        if (at == systemTime) whole = whole && read(field, system);
        if (at == startTime) whole = whole && read(field, stat.start);
        if (at == residentPages) whole = whole && read(field, stat.pages);
    }
    // A line that ends within its last field would tell too few pages.
    if (!whole || text.empty()) return std::nullopt;
    stat.used = user + system;
    return stat;
}

}  // namespace tavrel
