#include "platform/root/RootProtocol.h"
#include "platform/root/RootTools.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using RootTools::Argument;

TEST(RootTools, ArgumentsAreOnePlainWordOfTheirKind) {
    struct Case {
        Argument kind;
        std::vector<std::string> good;
        std::vector<std::string> bad;
    };
    using namespace std::string_literals;
    const Case cases[] = {
        {Argument::number,
         {"1", "14", "99999"},
         {"", "0", "014", "-1", "+1", "1 ", "1d", "100000", "1\n", "\xD9\xA1"}},
        {Argument::date,
         {"2026-01-02-030405"},
         {"2026-01-02-03040", "2026-01-02-0304056", "2026-01-02-03040;"}},
        {Argument::package,
         {"core20", "libstdc++6", "a.b-c_d"},
         {"", "-y", ".x", "/x", "a/b", "a b", "a;b", "$(a)", "a\0b"s, "a=b", std::string(300, 'a')}},
        {Argument::revision, {"1974", "x1"}, {"", "x", "-1", "x-1", "xx1", "1 2"}},
        {Argument::runtime,
         {"runtime/org.a.Platform/x86_64/23.08"},
         {"runtime/a/b", "runtime/a/b/c/d", "app/a/b/c", "runtime/../b/c", "runtime//b/c", "runtime/a/b/",
          "runtime/-a/b/c", "--all"}},
        {Argument::unit,
         {"cron.service", "a-b@c.timer", "dev-disk\\x2d1.mount"},
         {"cron", ".service", "-H.service", "a b.service", "a/b.service", "cron.service\n", "x.target"}},
    };
    for (const Case& row : cases) {
        for (const auto& text : row.good) EXPECT_TRUE(RootTools::fits(row.kind, text)) << text;
        for (const auto& text : row.bad) EXPECT_FALSE(RootTools::fits(row.kind, text)) << text;
    }
}

TEST(RootTools, CommandLinesHoldTheirArgumentsOrAreNone) {
    const std::pair<ToolRun, std::string> cases[] = {
        {{RootTool::vacuumJournal, {"14"}}, "/usr/bin/journalctl --quiet --vacuum-time=14d"},
        {{RootTool::removeSnapRevision, {"core", "x3"}}, "/usr/bin/snap remove core --revision=x3"},
        {{RootTool::cleanAptCache}, "/usr/bin/apt-get clean"},
        {{RootTool::cleanAptCache, {"--option"}}, ""},
        {{RootTool::removeSnapRevision, {"core"}}, ""},
        {{RootTool::removeSnapRevision, {"--purge", "3"}}, ""},
    };
    for (const auto& [run, line] : cases) EXPECT_EQ(RootTools::commandLine(run).value_or(""), line);
}

TEST(RootProtocol, StepsAndAnswersComeBackAsTheyWere) {
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    for (const std::string& path : {everyByte, std::string("/a\\x41\\\\b \n")}) {
        const std::string line =
            RootProtocol::line(EntryRemoval{path, {.device = 2049, .inode = ~0UL, .type = S_IFREG}});
        EXPECT_EQ(line.find('\n'), std::string::npos);
        const auto back = RootProtocol::step(line, {});
        ASSERT_TRUE(back.has_value()) << line;
        const auto& entry = std::get<EntryRemoval>(*back);
        EXPECT_EQ(entry.path.native(), path);
        EXPECT_TRUE(entry.seen.sameThing({.device = 2049, .inode = ~0UL, .type = S_IFREG}));
    }
    const ToolRun run{RootTool::removeSnapRevision, {"core", "3 4"}};
    EXPECT_EQ(std::get<ToolRun>(RootProtocol::step(RootProtocol::line(run), RootTools::all()).value()), run);

    const StepResult answers[] = {StepResult::done(), StepResult::refused(RootRefusal::tooMany),
                                  StepResult::failed("it's\nbusy: \xE2\x80\x9C"), StepResult::failed("")};
    for (const StepResult& answer : answers)
        EXPECT_EQ(RootProtocol::result(RootProtocol::line(answer)), answer);
    for (const char* nonsense : {"", "done now", "refused", "refused gladly", "failed a b"})
        EXPECT_EQ(RootProtocol::result(nonsense), StepResult::failed({})) << nonsense;
}

}  // namespace
}  // namespace tavrel
