#include "core/Quoting.h"
#include "platform/posix/PosixShell.h"

#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;

TEST(Quoting, ShellSeesEveryWordAsItIs) {
    const std::string words[] = {
        "",     "plain", "two words", "it's",   "''", "\"$HOME\" `id` $(id)", "back\\slash\\",
        "a\nb", "-n",    "*?[",       "!;&|#~",
    };
    PosixShell shell;
    for (const std::string& word : words) {
        const auto result = shell.run("/bin/sh", {"-c", "printf %s " + Quoting::shell(word)}, 10s);
        EXPECT_EQ(result.output, word);
    }
}

TEST(Quoting, AppleScriptLiteralKeepsItsQuotesInside) {
    EXPECT_EQ(Quoting::appleScript(R"(say "hi" \ 'x')"), R"(say \"hi\" \\ 'x')");
    EXPECT_EQ(Quoting::appleScript(R"(\")"), R"(\\\")");
}

}  // namespace
}  // namespace tavrel
