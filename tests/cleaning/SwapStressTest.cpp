#include "cleaning/Removal.h"
#include "cleaning/RemovalSandbox.h"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <signal.h>
#include <stdio.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Layout;
using testing::RemovalSandbox;

/// How the removals under attack ended, and when there were enough of them: after two seconds, if by then
/// some succeeded and some were refused; a busy machine is given longer.
struct Tally {
    int removed = 0;
    int refused = 0;

    void count(const Removal::Outcome& outcome) { ++(outcome ? removed : refused); }
    [[nodiscard]] bool isEnough() const {
        const auto elapsed = std::chrono::steady_clock::now() - began;
        const bool telling = removed > 0 && refused > 0;
        return elapsed > std::chrono::seconds(telling ? 2 : 60);
    }

  private:
    std::chrono::steady_clock::time_point began = std::chrono::steady_clock::now();
};

/// Another program that does one thing over and over until this object goes.
class Adversary {
  public:
    explicit Adversary(const std::function<void()>& act) : process_(::fork()) {
        if (process_ != 0) return;
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        while (true) act();
    }
    ~Adversary() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    Adversary(const Adversary&) = delete;
    Adversary& operator=(const Adversary&) = delete;

  private:
    pid_t process_;
};

void exchange(const fs::path& a, const fs::path& b) {
    ::renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE);
}

/// A folder with work for a walk, moved to `item` in one step. Whether it got there.
bool putItem(const RemovalSandbox& stage, const fs::path& item, int round) {
    const fs::path fresh = "fresh" + std::to_string(round);
    for (int i = 0; i < 20; ++i) stage.sandbox.text(fresh / "sub/many" / std::to_string(i), "junk");
    ::unlink(item.c_str());  // a link that the adversary left
    return ::rename(stage.sandbox.path(fresh).c_str(), item.c_str()) == 0;
}

/// Puts a link to the outside in the place of `folder`, or the folder back.
void flip(const RemovalSandbox& stage, const fs::path& folder, const fs::path& decoy) {
    static int away = 0;
    if (!fs::is_symlink(decoy) && !fs::is_symlink(folder)) {
        ::rename(decoy.c_str(), stage.sandbox.path("away" + std::to_string(++away)).c_str());
        static_cast<void>(::symlink(stage.outside().c_str(), decoy.c_str()));
    }
    exchange(folder, decoy);
}

TEST(SwapStressTest, foldersSwappedForLinksDuringRemovalsNeverLeadOutside) {
    const RemovalSandbox stage;
    for (int i = 0; i < 200; ++i) stage.sandbox.text("outside/lots/" + std::to_string(i), "alive");
    const auto outside = testing::snapshot(stage.outside());
    const auto& access = systemFolderAccess();
    const auto item = stage.home() / "item";
    auto flat = makeTrash(Layout::flat, access, stage.home());

    Tally tally;
    {
        const Adversary adversary([&] {
            flip(stage, item / "sub/many", stage.sandbox.path("decoy-many"));
            flip(stage, item / "sub", stage.sandbox.path("decoy-sub"));
            flip(stage, item, stage.sandbox.path("decoy-item"));
        });
        for (int round = 0; !tally.isEnough(); ++round) {
            if (!putItem(stage, item, round)) continue;
            const auto seen = Removal::identify(access, item);
            const auto verdict = stage.guard().check(item);
            if (!seen || !verdict.isAllowed()) continue;
            const auto target = Removal::target(item, verdict, *seen);
            const auto trash = [&] { return flat->trash(target).map([](const auto& /*trashed*/) {}); };
            tally.count(round % 2 == 0 ? Removal::erase(access, target) : trash());
        }
    }
    EXPECT_GT(tally.removed, 0);
    EXPECT_GT(tally.refused, 0) << "no swap hit a removal, so nothing was tried";
    EXPECT_EQ(testing::snapshot(stage.outside()), outside);
}

TEST(SwapStressTest, aFileSwappedInIsNeverLost) {
    for (const auto& [name, access, numbersMounts] : testing::accesses()) {
        SCOPED_TRACE(name);
        const RemovalSandbox stage;
        const auto item = stage.home() / "item";
        const auto precious = stage.sandbox.text("home/precious", "precious");
        const auto identity = *Removal::identify(access, precious);
        const auto isPrecious = [&identity, &access = access](const fs::path& path) {
            const auto found = Removal::identify(access, path);
            return found && found->sameThing(identity);
        };

        Tally tally;
        {
            const Adversary adversary([&] { exchange(item, precious); });
            while (!tally.isEnough()) {
                const auto junk = stage.sandbox.text("junk", "junk");
                ::renameat2(AT_FDCWD, junk.c_str(), AT_FDCWD, item.c_str(), RENAME_NOREPLACE);
                const auto seen = Removal::identify(access, item);
                if (!seen || seen->sameThing(identity)) continue;
                const auto verdict = SafetyGuard::Verdict::allowed(stage.home());
                tally.count(Removal::erase(access, Removal::target(item, verdict, *seen)));
            }
        }
        EXPECT_GT(tally.removed, 0);
        EXPECT_GT(tally.refused, 0) << "no swap hit a removal, so nothing was tried";
        EXPECT_TRUE(isPrecious(precious) || isPrecious(item));
    }
}

}  // namespace
}  // namespace tavrel
