#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// The "[Desktop Entry]" group of a file in the format of the freedesktop.org Desktop Entry Specification.
class DesktopEntry {
  public:
    /// Takes any bytes; what is no line of the format is passed over.
    [[nodiscard]] static DesktopEntry parse(std::string_view text);
    /// Nothing for what is no regular file, or larger than any entry is.
    [[nodiscard]] static std::optional<DesktopEntry> read(const std::filesystem::path& file);

    /// The value of a key with its escapes undone; nothing when the key is absent.
    [[nodiscard]] std::optional<std::string> value(const std::string& key) const;
    [[nodiscard]] bool isTrue(const std::string& key) const { return value(key) == "true"; }

    /// The words of the command under "Exec", quotes undone. Field codes such as "%U" stand as they are.
    [[nodiscard]] std::vector<std::string> command() const;

    /// `argument` as one word of a command, ready to stand behind "Exec=".
    [[nodiscard]] static std::string commandWord(std::string_view argument);

  private:
    std::map<std::string, std::string, std::less<>> values_;
};

}  // namespace tavrel
