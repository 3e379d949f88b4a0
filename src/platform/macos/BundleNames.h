#pragma once

#include "platform/RunningApplications.h"

#include <filesystem>
#include <map>
#include <mutex>

namespace tavrel {

/// Names of application bundles by the identifier in their "Contents/Info.plist": the bundle's file name
/// without
/// ".app". The folder is read when first asked for.
class BundleNames final : public ApplicationNames {
  public:
    explicit BundleNames(std::filesystem::path applicationsFolder) : folder_(std::move(applicationsFolder)) {}

    [[nodiscard]] std::optional<std::string> displayName(const std::string& bundleID) const override;

  private:
    std::filesystem::path folder_;
    mutable std::once_flag read_;
    mutable std::map<std::string, std::string> names_;
};

}  // namespace tavrel
