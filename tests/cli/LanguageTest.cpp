#include "cli/Program.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::int64_t big = 200000;  // above the least size of an item

/// The program in the words of a language, on a home that is empty at first.
class Language : public ::testing::Test {
  protected:
    Language() {
        box.folder("root");
        box.folder("home");
    }

    [[nodiscard]] Ended say(const char* language, const Program::Words& words) const {
        return Program(box, "linux", language)(words);
    }

    const Sandbox box;
};

TEST_F(Language, GermanIsSpokenWhereItIsAskedFor) {
    const Ended ended = say("de", {"scan"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(ended.out, "Zurzeit gibt es nichts zu entfernen\n");
}

TEST_F(Language, ALanguageWithoutACatalogueIsEnglish) {
    EXPECT_EQ(say("tlh", {"scan"}).out, "Nothing worth removing right now\n");
    EXPECT_EQ(say("", {"scan"}).out, "Nothing worth removing right now\n");
}

TEST_F(Language, TheFirstLanguageThatHasACatalogueIsTaken) {
    EXPECT_EQ(say("tlh:de_AT", {"scan"}).out, "Zurzeit gibt es nichts zu entfernen\n");
}

TEST_F(Language, ACountChoosesTheForm) {
    box.file("home/.npm/_cacache/blob", big);
    EXPECT_THAT(say("de", {"scan"}).out, AllOf(HasSubstr("Paketverwaltungen · 1 Objekt · "),
                                               HasSubstr(": 1 Objekt in 1 Kategorie · ")));
    box.file("home/.cache/pip/blob", big);
    box.file("home/.cache/bazel/blob", big);
    EXPECT_THAT(say("de", {"scan"}).out, AllOf(HasSubstr("Paketverwaltungen · 2 Objekte · "),
                                               HasSubstr(": 3 Objekte in 2 Kategorien · ")));
}

TEST_F(Language, RowsOfTablesAreTranslated) {
    box.file("home/.npm/_cacache/blob", big);
    box.file("home/.cache/bazel/blob", big);
    box.file("home/.config/Code/logs/blob", big);
    EXPECT_THAT(say("de", {"scan"}).out,
                AllOf(HasSubstr("Download-Cache von npm"), HasSubstr("[Prüfen] Build-Cache von Bazel"),
                      HasSubstr("Code · Protokolle"), HasSubstr("Caches von Entwicklerwerkzeugen")));
}

TEST_F(Language, HelpIsTranslatedAndCommandsKeepTheirNames) {
    const Ended ended = say("de", {"clean", "--help"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_THAT(ended.out, AllOf(HasSubstr("Aufruf: tavrelctl clean"), HasSubstr("\nOptionen:\n"),
                                 Not(HasSubstr("Options")), HasSubstr("--dry-run"),
                                 HasSubstr("nicht nachfragen"), Not(HasSubstr("do not ask"))));
}

TEST_F(Language, FiguresStandInTheirPlaces) {
    const Ended ended = say("de", {"settings", "staleProjectDays", "0"});
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.err, HasSubstr("staleProjectDays: der Wert muss eine ganze Zahl von 1 bis 365 sein"));
}

TEST_F(Language, AQuestionIsAnsweredInTheLanguageItIsAskedIn) {
    const fs::path blob = box.file("home/.npm/_cacache/blob", big);
    const Program german(box, "linux", "de");
    const Ended declined = german.answering("nein\n", {"clean"});
    EXPECT_EQ(declined.status, 1);
    EXPECT_THAT(declined.err, AllOf(HasSubstr("1 Objekt ("), HasSubstr(") entfernen? [j/N] ")));
    EXPECT_EQ(Program(box, "linux").answering("j\n", {"clean"}).status, 1);
    EXPECT_TRUE(fs::exists(blob));

    EXPECT_EQ(german.answering("Ja\n", {"clean"}).status, 0);
    EXPECT_FALSE(fs::exists(blob));
}

TEST_F(Language, SizesHaveADecimalComma) {
    box.file("home/.npm/_cacache/blob", 1'536'000);
    EXPECT_THAT(say("de", {"scan"}).out, HasSubstr("Paketverwaltungen · 1 Objekt · 1,5 MB\n"));
    EXPECT_THAT(say("", {"scan"}).out, HasSubstr("Package managers · 1 item · 1.5 MB\n"));
}

TEST_F(Language, WhatScriptsReadStaysAsItIs) {
    box.file("home/.npm/_cacache/blob", big);
    const auto german = say("de", {"scan", "--json"}).json();
    auto english = say("", {"scan", "--json"}).json();
    EXPECT_EQ(english["items"][0]["note"], "npm download cache");
    english["items"][0]["note"] = "Download-Cache von npm";  // alone of all of it a text for people
    EXPECT_EQ(german, english);
}

}  // namespace
}  // namespace tavrel::testing
