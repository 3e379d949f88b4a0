#pragma once

/// What the program ends with, as scripts test it.
namespace tavrel::cli::ExitStatus {

inline constexpr int done = 0;
inline constexpr int undone = 1;  // something asked for could not be done
inline constexpr int usage = 2;   // the command line makes no sense; nothing was begun

}  // namespace tavrel::cli::ExitStatus
