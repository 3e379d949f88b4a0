#include "platform/macos/BundleNames.h"

#include "core/Files.h"
#include "core/PropertyList.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t maximumBytes = 4 << 20;

std::optional<std::string> identifier(const fs::path& bundle) {
    const fs::path file = bundle / "Contents/Info.plist";
    std::error_code error;
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > maximumBytes) return std::nullopt;
    const auto bytes = Files::read(file);
    if (!bytes) return std::nullopt;
    const PropertyList::Tree information = PropertyList::parseDictionary(*bytes);
    if (!information) return std::nullopt;
    return PropertyList::text(plist_dict_get_item(information.get(), "CFBundleIdentifier"));
}

}  // namespace

std::optional<std::string> BundleNames::displayName(const std::string& bundleID) const {
    std::call_once(read_, [this] {
        for (const std::string& name : Files::names(folder_, Files::Hidden::skip)) {
            const fs::path bundle = folder_ / name;
            if (bundle.extension() != ".app") continue;
            if (const auto known = identifier(bundle)) names_.emplace(*known, bundle.stem());
        }
    });
    const auto found = names_.find(bundleID);
    return found == names_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tavrel
