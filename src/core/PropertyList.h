#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <plist/plist.h>

/// Property lists through libplist, made safe for files that anybody may have written: a small file can nest
/// deeper than the stack of the library's recursion, or share its parts so that they unfold without end.
namespace tavrel::PropertyList {

struct Free {
    void operator()(void* node) const { plist_free(node); }
};
/// A tree that is owned. Its inner nodes are plain `plist_t` and live as long as it does.
using Tree = std::unique_ptr<void, Free>;

/// The dictionary that an XML or binary property list holds; null for anything else, whatever the bytes.
[[nodiscard]] Tree parseDictionary(std::string_view bytes);

[[nodiscard]] std::string xml(const Tree& tree);

/// A text node's content; nothing for a node of another kind and for null.
[[nodiscard]] std::optional<std::string> text(plist_t node);

}  // namespace tavrel::PropertyList
