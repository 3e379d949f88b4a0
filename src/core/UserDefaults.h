#pragma once

#include "core/Instant.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <variant>
#include <vector>

namespace tavrel {

/// Named, typed values in one property list file (XML or binary when read, XML when written): the user's
/// settings as the system keeps them. Values of kinds that the program has no use for are kept untouched.
class UserDefaults {
  public:
    using Texts = std::vector<std::string>;
    using Value = std::variant<bool, std::int64_t, double, std::string, Texts, Instant>;

    enum class State { missing, sound, damaged };

    /// Reads the file once. What another program writes later is not picked up.
    explicit UserDefaults(std::filesystem::path file);
    ~UserDefaults();
    UserDefaults(UserDefaults&&) noexcept;
    UserDefaults& operator=(UserDefaults&&) noexcept;

    /// `damaged` where there is a file that cannot be read or is no property list: every key is then absent.
    [[nodiscard]] State state() const;
    [[nodiscard]] const std::filesystem::path& file() const;

    /// The value under `key`; nothing when it is absent or of a kind that `Value` does not have.
    [[nodiscard]] std::optional<Value> value(const std::string& key) const;
    /// Whether `key` has a value of any type.
    [[nodiscard]] bool holds(const std::string& key) const;

    /// Changes one key and writes the file. A damaged file is set aside first, never overwritten. On an error
    /// the file and the values stay as they were.
    [[nodiscard]] std::error_code set(const std::string& key, const Value& value);
    [[nodiscard]] std::error_code remove(const std::string& key);

  private:
    struct Content;
    std::unique_ptr<Content> content_;
};

}  // namespace tavrel
