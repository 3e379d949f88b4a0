#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanReport.h"
#include "cleaning/Restorer.h"
#include "core/UserDefaults.h"

#include <filesystem>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

/// The documents that scripts read. Keys stand in a fixed order; paths are written so that their bytes can be
/// had back; sizes are bytes.
namespace tavrel::cli::Json {

using Value = nlohmann::ordered_json;

[[nodiscard]] Value path(const std::filesystem::path& path);
[[nodiscard]] Value item(const CleanItem& item);
[[nodiscard]] Value items(const std::vector<CleanItem>& items);
[[nodiscard]] Value scan(std::string_view mode, const std::vector<CleanItem>& found);
[[nodiscard]] Value report(const CleanReport& report);
[[nodiscard]] Value runs(const Restorer::Runs& runs);
[[nodiscard]] Value restored(const RestoreReport& report);
[[nodiscard]] Value preference(const UserDefaults::Value& value);

}  // namespace tavrel::cli::Json
