// What one look at the processes costs, in time of the processor: over 400 processes as plain files, and over
// those of this machine.
#include "platform/linux/processes/ProcProcesses.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>

namespace {

using namespace std::chrono_literals;
using tavrel::ProcProcesses;
namespace fs = std::filesystem;

constexpr int fixtureSize = 400;

/// A folder like /proc, gone at the end of the program.
class Fixture {
  public:
    Fixture() {
        std::string pattern = fs::temp_directory_path() / "tavrel-bench-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) std::abort();
        root_ = pattern;
        for (int pid = 1; pid <= fixtureSize; ++pid) {
            const std::string number = std::to_string(pid);
            fs::create_directory(root_ / number);
            std::ofstream(root_ / number / "stat")
                << number << " (a-process) S 1 1 1 0 -1 4194304 1234 0 56 0 " << pid * 10
                << " 20 0 0 20 0 4 0 " << 1000 + pid << " 123456789 " << pid * 100
                << " 18446744073709551615 1 1 0 0 0 0 0 4096 1260 0 0 0 17 1 0 0 0 0 0 0 0 0 0 0 0 0 0\n";
        }
    }
    ~Fixture() {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    [[nodiscard]] const fs::path& root() const { return root_; }

  private:
    fs::path root_;
};

std::ptrdiff_t processesIn(const fs::path& root) {
    return std::count_if(fs::directory_iterator(root), {}, [](const fs::directory_entry& entry) {
        return entry.path().filename().native().find_first_not_of("0123456789") == std::string::npos;
    });
}

/// Time passes by itself, so that every snapshot is one look, compared with the one before.
void look(benchmark::State& state, const fs::path& root) {
    std::chrono::nanoseconds time = 0s;
    ProcProcesses processes(root, {.now = [&time] { return time += 1s; }, .wait = [](auto) {}});
    benchmark::DoNotOptimize(processes.snapshot());
    for (auto _ : state) benchmark::DoNotOptimize(processes.snapshot());
    const auto count = static_cast<double>(processesIn(root));
    state.counters["processes"] = count;
    state.counters["each"] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void lookAt400Files(benchmark::State& state) {
    const Fixture fixture;
    look(state, fixture.root());
}
BENCHMARK(lookAt400Files)->Unit(benchmark::kMillisecond);

void lookAtThisMachine(benchmark::State& state) {
    look(state, "/proc");
}
BENCHMARK(lookAtThisMachine)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
