#include "core/UserDefaults.h"

#include "core/Files.h"
#include "core/PropertyList.h"
#include "core/Text.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tavrel {
namespace {

using namespace std::chrono;
using PropertyList::Tree;

/// Property lists count dates in seconds from the start of 2001.
constexpr sys_seconds dateOrigin = sys_days(2001y / January / 1);

struct Loaded {
    UserDefaults::State state = UserDefaults::State::missing;
    Tree root;  // always a dictionary
};

Loaded load(const std::filesystem::path& file) {
    const auto bytes = Files::read(file);
    if (bytes) {
        if (Tree root = PropertyList::parseDictionary(*bytes)) {
            return {UserDefaults::State::sound, std::move(root)};
        }
    }
    const bool missing = !bytes && bytes.error() == std::errc::no_such_file_or_directory;
    return {missing ? UserDefaults::State::missing : UserDefaults::State::damaged, Tree(plist_new_dict())};
}

std::optional<UserDefaults::Texts> texts(plist_t array) {
    UserDefaults::Texts found;
    const std::uint32_t size = plist_array_get_size(array);
    for (std::uint32_t index = 0; index < size; ++index) {
        auto text = PropertyList::text(plist_array_get_item(array, index));
        if (!text) return std::nullopt;
        found.push_back(*std::move(text));
    }
    return found;
}

std::optional<UserDefaults::Value> decoded(plist_t node) {
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t value = 0;
            plist_get_bool_val(node, &value);
            return value != 0;
        }
        case PLIST_UINT: {
            std::uint64_t value = 0;
            plist_get_uint_val(node, &value);
            return static_cast<std::int64_t>(value);  // the library keeps negative numbers so
        }
        case PLIST_REAL: {
            double value = 0;
            plist_get_real_val(node, &value);
            return value;
        }
        case PLIST_DATE: {
            std::int32_t whole = 0;
            std::int32_t fraction = 0;
            plist_get_date_val(node, &whole, &fraction);
            return dateOrigin + seconds(whole) + microseconds(fraction);
        }
        case PLIST_STRING:
            return PropertyList::text(node);
        case PLIST_ARRAY:
            return texts(node);
        default:
            return std::nullopt;
    }
}

/// A text as the library can take it: XML holds UTF-8 only, and the library ends a text at a NUL.
bool isStorable(const std::string& text) {
    return Text::isUtf8(text) && text.find('\0') == std::string::npos;
}

/// Builds the node for a value; null for a value that no property list can hold.
struct Encode {
    Tree operator()(bool value) const { return Tree(plist_new_bool(value ? 1 : 0)); }
    Tree operator()(std::int64_t value) const {
        return Tree(plist_new_uint(static_cast<std::uint64_t>(value)));
    }
    Tree operator()(double value) const { return Tree(plist_new_real(value)); }
    Tree operator()(const std::string& text) const {
        return isStorable(text) ? Tree(plist_new_string(text.c_str())) : nullptr;
    }
    Tree operator()(const UserDefaults::Texts& texts) const {
        if (!std::all_of(texts.begin(), texts.end(), isStorable)) return nullptr;
        Tree array(plist_new_array());
        for (const std::string& text : texts) {
            plist_array_append_item(array.get(), plist_new_string(text.c_str()));
        }
        return array;
    }
    Tree operator()(Instant date) const {
        const auto since = floor<seconds>(date) - dateOrigin;
        if (!std::in_range<std::int32_t>(since.count())) return nullptr;
        return Tree(plist_new_date(static_cast<std::int32_t>(since.count()), 0));  // XML has whole seconds
    }
};

/// Puts a copy of `node` under `key`; null takes the key away.
void put(const Tree& root, const std::string& key, const Tree& node) {
    if (node) {
        plist_dict_set_item(root.get(), key.c_str(), plist_copy(node.get()));
    } else {
        plist_dict_remove_item(root.get(), key.c_str());
    }
}

std::error_code writeSound(const std::filesystem::path& file, const Tree& root) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    return error ? error : Files::writeAtomically(file, PropertyList::xml(root));
}

/// Replaces a damaged file, which stays under another name; under its own where the writing failed.
std::error_code writeOverDamaged(const std::filesystem::path& file, const Tree& root) {
    const auto aside = Files::setAside(file);
    if (!aside) return std::make_error_code(std::errc::io_error);
    const std::error_code error = writeSound(file, root);
    std::error_code ignored;
    if (error) std::filesystem::rename(*aside, file, ignored);
    return error;
}

}  // namespace

struct UserDefaults::Content {
    std::filesystem::path file;
    Loaded loaded;

    std::error_code change(const std::string& key, const Tree& node);
};

/// Another program may have written other keys since they were read: the change goes on top of those.
std::error_code UserDefaults::Content::change(const std::string& key, const Tree& node) {
    Loaded current = load(file);
    if (current.state != State::sound) current.root.reset(plist_copy(loaded.root.get()));
    put(current.root, key, node);
    const std::error_code error = current.state == State::damaged ? writeOverDamaged(file, current.root)
                                                                  : writeSound(file, current.root);
    if (error) return error;
    put(loaded.root, key, node);
    loaded.state = State::sound;
    return {};
}

UserDefaults::UserDefaults(std::filesystem::path file) : content_(std::make_unique<Content>()) {
    content_->loaded = load(file);
    content_->file = std::move(file);
}
UserDefaults::~UserDefaults() = default;
UserDefaults::UserDefaults(UserDefaults&&) noexcept = default;
UserDefaults& UserDefaults::operator=(UserDefaults&&) noexcept = default;

UserDefaults::State UserDefaults::state() const {
    return content_->loaded.state;
}
const std::filesystem::path& UserDefaults::file() const {
    return content_->file;
}

std::optional<UserDefaults::Value> UserDefaults::value(const std::string& key) const {
    plist_t node = plist_dict_get_item(content_->loaded.root.get(), key.c_str());
    return node == nullptr ? std::nullopt : decoded(node);
}

bool UserDefaults::holds(const std::string& key) const {
    return plist_dict_get_item(content_->loaded.root.get(), key.c_str()) != nullptr;
}

std::error_code UserDefaults::set(const std::string& key, const Value& value) {
    const Tree node = std::visit(Encode{}, value);
    if (!node) return std::make_error_code(std::errc::invalid_argument);
    return content_->change(key, node);
}

std::error_code UserDefaults::remove(const std::string& key) {
    return holds(key) ? content_->change(key, nullptr) : std::error_code();
}

}  // namespace tavrel
