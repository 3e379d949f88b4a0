#include "core/PropertyList.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavrel::PropertyList {
namespace {

constexpr std::size_t maximumBytes = std::size_t{16} << 20;
constexpr std::size_t maximumXmlContainers = 10'000;  // bounds the depth too
constexpr std::size_t maximumBinaryDepth = 200;

constexpr std::string_view binaryMagic = "bplist";

std::size_t occurrences(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

/// The containers of a binary property list, seen without building them. The format: objects, each behind a
/// marker byte; a table of their offsets; a trailer of 32 bytes that tells where the table lies and how
/// wide offsets and references to objects are. All numbers are big-endian.
class BinaryShape {
  public:
    explicit BinaryShape(std::string_view bytes) : bytes_(bytes) {}

    /// Whether the containers form a tree of bounded depth, none reached twice.
    [[nodiscard]] bool isBoundedTree() {
        if (!readTrailer()) return false;
        std::vector<bool> seen(objects_);
        std::vector<Container> pending;
        if (!enter(top_, 0, seen, pending)) return false;
        while (!pending.empty()) {
            const Container container = pending.back();
            pending.pop_back();
            for (std::size_t index = 0; index < container.references; ++index) {
                const auto child = number(container.start + index * referenceSize_, referenceSize_);
                if (!child || !enter(*child, container.depth + 1, seen, pending)) return false;
            }
        }
        return true;
    }

  private:
    struct Container {
        std::size_t start = 0;  // of its references
        std::size_t references = 0;
        std::size_t depth = 0;
    };

    [[nodiscard]] std::optional<std::uint64_t> number(std::size_t at, std::size_t size) const {
        if (size == 0 || size > 8 || at > bytes_.size() || bytes_.size() - at < size) return std::nullopt;
        std::uint64_t value = 0;
        for (const char byte : bytes_.substr(at, size)) value = value << 8 | static_cast<unsigned char>(byte);
        return value;
    }

    bool readTrailer() {
        constexpr std::size_t trailerSize = 32;
        if (bytes_.size() < trailerSize) return false;
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = static_cast<unsigned char>(bytes_[trailer + 6]);
        referenceSize_ = static_cast<unsigned char>(bytes_[trailer + 7]);
        objects_ = *number(trailer + 8, 8);
        top_ = *number(trailer + 16, 8);
        table_ = *number(trailer + 24, 8);
        return objects_ <= bytes_.size() && table_ <= bytes_.size();
    }

    /// Notes `object` for a visit if it is a container; false when that breaks the bounds.
    bool enter(std::uint64_t object, std::size_t depth, std::vector<bool>& seen,
               std::vector<Container>& pending) const {
        if (object >= objects_) return false;
        const auto offset = number(table_ + object * offsetSize_, offsetSize_);
        if (!offset || *offset >= bytes_.size()) return false;
        const std::size_t kind = static_cast<unsigned char>(bytes_[*offset]) >> 4;
        constexpr std::size_t array = 0xA;
        constexpr std::size_t set = 0xC;
        constexpr std::size_t dictionary = 0xD;
        if (kind != array && kind != set && kind != dictionary) return true;

        if (seen[object] || depth > maximumBinaryDepth) return false;
        seen[object] = true;
        auto container = containerAt(*offset);
        if (!container) return false;
        container->depth = depth;
        if (kind == dictionary) container->references *= 2;  // keys, then values
        pending.push_back(*container);
        return true;
    }

    /// The count stands in the marker, or as an integer object behind it where it is 15 or more.
    [[nodiscard]] std::optional<Container> containerAt(std::size_t offset) const {
        const std::size_t count = static_cast<unsigned char>(bytes_[offset]) & 0xF;
        if (count != 0xF) return Container{offset + 1, count};
        const auto marker = number(offset + 1, 1);
        if (!marker || *marker >> 4 != 1 || (*marker & 0xF) > 3) return std::nullopt;
        const std::size_t width = std::size_t{1} << (*marker & 0xF);
        const auto large = number(offset + 2, width);
        if (!large || *large > bytes_.size()) return std::nullopt;
        return Container{offset + 2 + width, *large};
    }

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t objects_ = 0;
    std::uint64_t top_ = 0;
    std::uint64_t table_ = 0;
};

bool isBounded(std::string_view bytes) {
    if (bytes.size() > maximumBytes) return false;
    if (bytes.starts_with(binaryMagic)) return BinaryShape(bytes).isBoundedTree();
    return occurrences(bytes, "<dict") + occurrences(bytes, "<array") <= maximumXmlContainers;
}

}  // namespace

Tree parseDictionary(std::string_view bytes) {
    if (!isBounded(bytes)) return nullptr;
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    Tree tree(root);
    return tree && plist_get_node_type(root) == PLIST_DICT ? std::move(tree) : nullptr;
}

std::string xml(const Tree& tree) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(tree.get(), &text, &length);
    const std::unique_ptr<char, decltype(&plist_to_xml_free)> owned(text, &plist_to_xml_free);
    return {text, length};
}

std::optional<std::string> text(plist_t node) {
    if (node == nullptr || plist_get_node_type(node) != PLIST_STRING) return std::nullopt;
    std::uint64_t length = 0;
    const char* start = plist_get_string_ptr(node, &length);
    return std::string(start, length);
}

}  // namespace tavrel::PropertyList
