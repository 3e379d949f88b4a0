#pragma once

#include "cleaning/History.h"
#include "cleaning/Restorer.h"
#include "cli/Session.h"
#include "engine/SystemTools.h"

#include <string>
#include <vector>

/// The runs of the history as a person reads and names them.
namespace tavrel::cli::RunList {

/// One line: when, what, how many, how much.
[[nodiscard]] std::string row(const History::Entry& entry);

/// The beginning of the run's id by which no other of `entries` is meant.
[[nodiscard]] std::string shortId(const History::Entry& entry, const std::vector<History::Entry>& entries);

/// For the Trashes of the session; `tools` must outlive it.
[[nodiscard]] Restorer restorer(const Session& session, SystemTools& tools);

}  // namespace tavrel::cli::RunList
