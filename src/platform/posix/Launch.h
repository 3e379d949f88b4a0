#pragma once

#include "core/FileHandle.h"

#include <spawn.h>
#include <string>
#include <sys/types.h>
#include <system_error>
#include <vector>

namespace tavrel {

/// The terminal of a child process. `none`: a session of its own, with no terminal to stop at and one group
/// to signal. `shared`: it stays in the foreground of this program's terminal, where it can ask for a
/// password.
enum class ChildTerminal { none, shared };

struct Pipe {
    FileHandle reading;
    FileHandle writing;

    /// Neither end is one of the three standard handles, and no child inherits them.
    [[nodiscard]] std::error_code open();
};

/// What a child starts with: three streams, no other handle, and signals as a login would give them rather
/// than as this program set them.
class Launch {
  public:
    static constexpr int nothingToRead = -1;

    struct Streams {
        int input = nothingToRead;
        int output;
        int errors;
    };

    Launch(Streams streams, ChildTerminal terminal);
    ~Launch();
    Launch(const Launch&) = delete;
    Launch& operator=(const Launch&) = delete;

    /// 0 or the error as `errno` names it; EINVAL for a word with a NUL in it, where the system's call would
    /// end it.
    [[nodiscard]] int start(pid_t& child, const std::string& path,
                            const std::vector<std::string>& args) const;

  private:
    void note(int error);

    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
    int error_ = 0;
};

}  // namespace tavrel
