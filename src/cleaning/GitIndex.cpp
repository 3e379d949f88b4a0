#include "cleaning/GitIndex.h"

#include "core/Files.h"

#include <algorithm>
#include <cstdint>
#include <git2.h>
#include <optional>
#include <utility>

namespace tavrel {

namespace {

constexpr std::uintmax_t largest = 512U << 20U;  // bytes of an index

// The layout of an index in versions 2 and 3; numbers are big-endian.
constexpr std::size_t headerSize = 12;   // "DIRC", version, number of entries
constexpr std::size_t trailerSize = 20;  // a checksum that git itself does not look at when it reads
constexpr std::size_t flagsAt = 60;      // in an entry
constexpr std::size_t nameAt = 62;
constexpr std::size_t leastEntry = 64;
constexpr std::size_t entryUnit = 8;            // entries are filled up with zeros to a multiple of it
constexpr std::uint32_t extendedFlag = 0x4000;  // two more bytes of flags follow
constexpr std::uint32_t lengthMask = 0x0FFF;
constexpr std::size_t extensionHeader = 8;  // signature and length

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(at, count)) value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}

/// Whether only extensions follow that may be left unread. One whose signature begins with a small letter
/// changes what the entries mean: split and sparse indexes have it.
bool restIsOptional(std::string_view body, std::size_t at) {
    while (at < body.size()) {
        if (body.size() - at < extensionHeader || body[at] < 'A' || body[at] > 'Z') return false;
        const std::size_t length = number(body, at + 4, 4);
        at += extensionHeader;
        if (length > body.size() - at) return false;
        at += length;
    }
    return true;
}

/// The library is set up once, when it is first needed, and stays so.
bool libraryIsReady() {
    static const bool ready = ::git_libgit2_init() > 0;
    return ready;
}

}  // namespace

std::unique_ptr<const GitIndex> GitIndex::read(const Path& file) {
    // Looked at first, since opening a pipe would wait for its other end.
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file, failed)) return nullptr;
    if (const auto size = std::filesystem::file_size(file, failed); failed || size > largest) return nullptr;
    auto bytes = Files::read(file);
    if (!bytes) return nullptr;
    std::unique_ptr<GitIndex> index(new GitIndex(std::move(*bytes)));
    if (!index->readPlain() && !index->readByLibrary(file)) return nullptr;
    return index;
}

bool GitIndex::holds(std::string_view name) const {
    const auto begins = [&](const std::string& wanted) {
        const auto found = std::lower_bound(names_.begin(), names_.end(), wanted);
        return found != names_.end() && found->starts_with(wanted);
    };
    return std::binary_search(names_.begin(), names_.end(), name) || begins(std::string(name) + '/');
}

bool GitIndex::readPlain() {
    const std::string_view bytes = bytes_;
    if (bytes.size() < headerSize + trailerSize || !bytes.starts_with("DIRC")) return false;
    const std::uint32_t version = number(bytes, 4, 4);
    if (version != 2 && version != 3) return false;
    const std::string_view body = bytes.substr(0, bytes.size() - trailerSize);
    std::size_t at = headerSize;
    return readEntries(body, at) && restIsOptional(body, at);
}

bool GitIndex::readEntries(std::string_view body, std::size_t& at) {
    const std::size_t count = number(body, 8, 4);
    if (count > body.size() / leastEntry) return false;
    names_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (body.size() - at < leastEntry) return false;
        const std::uint32_t flags = number(body, at + flagsAt, 2);
        const std::size_t begin = at + nameAt + ((flags & extendedFlag) != 0 ? 2 : 0);
        const std::size_t end = body.find('\0', begin);
        if (end == std::string_view::npos) return false;
        const std::string_view name = body.substr(begin, end - begin);
        const bool isSorted = names_.empty() || names_.back() <= name;
        if (name.empty() || !isSorted ||
            std::min<std::size_t>(name.size(), lengthMask) != (flags & lengthMask))
            return false;
        names_.push_back(name);
        at += ((end - at) / entryUnit + 1) * entryUnit;
        if (at > body.size()) return false;
    }
    return true;
}

bool GitIndex::readByLibrary(const Path& file) {
    git_index* opened = nullptr;
    if (!libraryIsReady() || ::git_index_open(&opened, file.c_str()) != 0) return false;
    const std::unique_ptr<git_index, decltype(&::git_index_free)> index(opened, &::git_index_free);
    const std::size_t count = ::git_index_entrycount(opened);
    bytes_.clear();
    names_.clear();
    for (std::size_t i = 0; i < count; ++i) bytes_.append(::git_index_get_byindex(opened, i)->path) += '\0';
    names_.reserve(count);
    for (std::size_t at = 0; at < bytes_.size(); at += names_.back().size() + 1) {
        names_.emplace_back(bytes_.data() + at);
    }
    return std::is_sorted(names_.begin(), names_.end());
}

}  // namespace tavrel
