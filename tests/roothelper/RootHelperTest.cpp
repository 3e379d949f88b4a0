#include "platform/posix/Conversation.h"
#include "platform/posix/NoCommands.h"
#include "platform/posix/PosixShell.h"
#include "platform/root/RootProtocol.h"
#include "roothelper/Service.h"
#include "support/Isolation.h"
#include "support/Sandbox.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;
using namespace std::chrono_literals;
using namespace std::string_literals;
using Clock = Conversation::Clock;

class RootHelperTest : public ::testing::Test {
  protected:
    RootHelperTest() {
        ::setenv("TEST_ROOT", sandbox.root().c_str(), 1);
        sandbox.text("outside/canary", "alive");
        sandbox.folder("log");
        sandbox.link("log/link", "../outside");
    }
    ~RootHelperTest() override { EXPECT_EQ(testing::contentOf(sandbox.path("outside/canary")), "alive"); }

    void tool(const std::string& name, const std::string& body) const {
        const auto path = sandbox.text("tools/" + name, "#!/bin/sh\n" + body + "\n");
        EXPECT_EQ(::chmod(path.c_str(), 0755), 0);
    }
    [[nodiscard]] std::string removal(const std::filesystem::path& path) const {
        const auto seen = systemFolderAccess().identify(AT_FDCWD, path);
        return RootProtocol::line(EntryRemoval{path, seen.value_or(FileIdentity{})});
    }
    [[nodiscard]] std::string inside(const std::string& path) const {
        return removal(sandbox.root().native() + "/" + path);
    }
    static std::unique_ptr<Conversation> helper(const char* program = TEST_HELPER) {
        auto started = Conversation::start(program, {}, ChildTerminal::none, Clock::now() + 60s);
        EXPECT_EQ((*started)->hear().value_or("nothing"), RootProtocol::ready);
        return std::move(*started);
    }
    static std::string flood(std::size_t bytes, char byte) {
        std::string text;
        text.resize(bytes, byte);
        return text;
    }
    static std::string answer(Conversation& helper, const std::string& line) {
        helper.say(line);
        return helper.hear().value_or("nothing");
    }

    const Sandbox sandbox;
};

TEST_F(RootHelperTest, HostileStepsAreRefusedOneByOne) {
    const HelperRules rules{
        .work = {.folders = {sandbox.path("log")}, .tools = RootTools::all(), .alsoTrusted = ::geteuid()}};
    NoCommands shell;
    const RootWork work(rules.work, systemFolderAccess(), shell);
    Service service(rules, work);

    sandbox.text("log/own", "x");
    sandbox.text("logs/near", "x");
    const auto identity = inside("log/own").substr(0, inside("log/own").rfind(' '));
    const std::string strange = "refused not-understood";
    const std::string outside = "refused outside";
    const std::string wrong = "refused bad-arguments";
    const std::pair<std::string, std::string> cases[] = {
        {"", strange},
        {"remove", strange},
        {"rm -rf /", strange},
        {"remove 1 2 3", strange},
        {"remove 1 2 x /etc/passwd", strange},
        {"remove -1 2 3 /etc/passwd", strange},
        {"remove 1 2 3 /etc/passwd /etc/shadow", strange},
        {identity + " /a\0b"s, strange},
        {identity + " ", strange},
        {"run", strange},
        {"run /bin/sh", strange},
        {"run ../vacuum-journal 1", strange},
        {"run vacuum-journal  1", strange},
        {"run vacuum-journal", wrong},
        {"run vacuum-journal 0", wrong},
        {"run vacuum-journal 1 --flush", wrong},
        {"run vacuum-journal 1\\x0A2", wrong},
        {"run clean-apt-cache -oDir::Cache=/", wrong},
        {"run remove-snap-revision --purge 1", wrong},
        {"run uninstall-runtime runtime/../../x", wrong},
        {removal("/"), outside},
        {removal("/etc/passwd"), outside},
        {removal("log/own"), outside},
        {removal(sandbox.path("log")), outside},
        {inside("log/"), outside},
        {inside("log/."), outside},
        {inside("log/../outside/canary"), outside},
        {inside("log//own"), outside},
        {inside("logs/near"), outside},
        {identity + " " + sandbox.path("log/own").native() + "\\x00", outside},
        {inside("log/link/canary"), "refused replaceable"},
        {inside("log/own/x"), "refused replaceable"},
        {identity + " " + sandbox.path("log/link").native(),
         RootProtocol::line(StepResult::failed("Changed since it was checked"))},
        {identity + " " + sandbox.path("log/gone").native(),
         RootProtocol::line(StepResult::failed("No such file or directory"))},
    };
    for (const auto& [line, answer] : cases) EXPECT_EQ(service.answer({false, line}), answer) << line;
    EXPECT_EQ(service.answer({true, ""}), "refused too-long");
    EXPECT_EQ(service.answer({false, inside("log/own")}), "done");
    EXPECT_EQ(service.answer({false, inside("log/link")}), "done") << "a link goes, never what it points to";
    EXPECT_TRUE(std::filesystem::is_empty(sandbox.path("log")));
}

TEST_F(RootHelperTest, FoldersThatOthersCanReplaceAreNotEntered) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root to make another's folder";
    const auto own = sandbox.text("log/theirs/inner/file", "x");
    ASSERT_EQ(::chown(sandbox.path("log/theirs").c_str(), 1000, 1000), 0);
    const auto process = helper();
    EXPECT_EQ(answer(*process, removal(own)), "refused replaceable");
    EXPECT_EQ(answer(*process, inside("log/theirs")), "done")
        << "what lies in an admitted folder goes as a whole";
}

TEST_F(RootHelperTest, MountsAreNotCrossed) {
    const auto ran = testing::withPrivateMounts([this] {
        sandbox.folder("log/holder/mounted");
        testing::mountMemory(sandbox.path("log/holder/mounted"));
        const auto file = sandbox.text("log/holder/mounted/file", "x");
        const auto process = helper();
        for (const std::string& path : {"log/holder/mounted/file"s, "log/holder/mounted"s, "log/holder"s})
            EXPECT_TRUE(answer(*process, inside(path)).starts_with("failed ")) << path;
        EXPECT_TRUE(std::filesystem::exists(file));
    });
    if (ran == testing::Ran::forbidden) GTEST_SKIP() << "mounts are forbidden here";
}

TEST_F(RootHelperTest, FloodsAreAnsweredAndEnd) {
    const auto garbage = helper();
    EXPECT_EQ(answer(*garbage, flood(10'000'000, '\xFF')), "refused too-long");
    EXPECT_EQ(answer(*garbage, std::string(1000, '\0')), "refused not-understood");
    EXPECT_EQ(answer(*garbage, inside("log/link")), "done") << "after all that it still works";
    EXPECT_EQ(garbage->end(), 0);

    const auto many = helper();
    for (int i = 0; i < 100'000; ++i) many->say("remove 1 1 1 /etc/passwd");
    std::map<std::string, int> answers;
    for (int i = 0; i < 100'000; ++i) ++answers[many->hear().value_or("nothing")];
    EXPECT_EQ(answers, (std::map<std::string, int>{{"refused outside", 1000}, {"refused too-many", 99'000}}));

    const auto endless = helper();
    endless->say(flood(20'000'000, 'x'));
    EXPECT_EQ(endless->hear(), std::nullopt);
    EXPECT_EQ(endless->end(), 1);
}

TEST_F(RootHelperTest, ToolsRunBareAndWithinTheirTime) {
    tool("good",
         "[ \"$*\" = 14 ] && [ \"$(pwd) $HOME\" = '/ /root' ] && [ -z \"$TEST_ROOT\" ] && ! read line");
    tool("failing", "echo 'E: it is busy'; exit 100");
    tool("slow", "echo waits; exec sleep 60");
    tool("stubborn", "trap '' TERM; sleep 5");
    const auto process = helper();
    const std::pair<std::string, std::string> cases[] = {
        {"run vacuum-journal 14", "done"},
        {"run clean-apt-cache", RootProtocol::line(StepResult::failed("E: it is busy"))},
        {"run thin-pacman-cache 2", "refused bad-arguments"},
        {"run thin-pacman-cache", RootProtocol::line(StepResult::failed("waits"))},
        {"run uninstall-runtime", "refused tool-missing"},
        {"run clean-dnf-cache", "nothing"},
    };
    for (const auto& [line, expected] : cases) EXPECT_EQ(answer(*process, line), expected) << line;
    EXPECT_EQ(process->end(), SIGALRM);
}

TEST_F(RootHelperTest, ItEndsWithItsInputOrWithoutAny) {
    const auto own = sandbox.text("log/own", "x");
    const auto unfinished =
        PosixShell().run("/bin/sh", {"-c", "printf %s \"$1\" | " TEST_HELPER, "", removal(own)}, 20s);
    EXPECT_EQ(unfinished.output, std::string(RootProtocol::ready) + "\n") << "half a line is no step";
    EXPECT_TRUE(std::filesystem::exists(own));

    const auto idle = helper();
    EXPECT_EQ(idle->hear(), std::nullopt) << "nobody says anything";
    EXPECT_EQ(idle->end(), 1);
    EXPECT_EQ(PosixShell().run(TEST_HELPER, {"/etc"}, 20s).status, 2);
}

TEST_F(RootHelperTest, TheProgramsOwnHelperKnowsNoOtherFolders) {
    const auto own = sandbox.text("log/own", "x");
    if (::geteuid() != 0) {
        EXPECT_EQ(PosixShell().run(SYSTEM_HELPER, {}, 20s).status, 2)
            << "it is of no use to others than root";
        return;
    }
    EXPECT_EQ(answer(*helper(SYSTEM_HELPER), removal(own)), "refused outside");
}

}  // namespace
}  // namespace tavrel
