#include "disk/Child.h"

#include "core/FileHandle.h"

#include <array>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel::testing {

std::string inChild(const std::function<std::string()>& body) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    const FileHandle reading(pipe[0]);
    FileHandle writing(pipe[1]);

    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no child");
    if (child == 0) {
        const std::string answer = body();
        const ssize_t written = ::write(writing.get(), answer.data(), answer.size());
        ::_exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
    }
    writing.close();

    std::string answer;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(reading.get(), buffer.data(), buffer.size())) > 0) {
        answer.append(buffer.data(), static_cast<std::size_t>(count));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? answer : "the child ended with status " + std::to_string(status);
}

}  // namespace tavrel::testing
