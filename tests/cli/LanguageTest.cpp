#include "cli/Program.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr std::int64_t big = 1'536'000;  // above the least size of an item

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

TEST_F(Language, IsTheFirstThatIsAskedForAndHasACatalogue) {
    const struct {
        std::vector<const char*> files;  // that are there from now on
        const char* language;
        Program::Words words;
        std::vector<const char*> said;
    } rows[] = {
        {{}, "de", {"scan"}, {"Zurzeit gibt es nichts zu entfernen\n"}},
        {{}, "tlh:de_AT", {"scan"}, {"Zurzeit gibt es nichts zu entfernen\n"}},
        {{}, "tlh", {"scan"}, {"Nothing worth removing right now\n"}},
        {{}, "", {"scan"}, {"Nothing worth removing right now\n"}},
        {{},
         "de",
         {"clean", "--help"},
         {"Aufruf: tavrelctl clean", "\nOptionen:\n", "--dry-run", "nicht nachfragen"}},
        {{},
         "de",
         {"settings", "staleProjectDays", "0"},
         {"Days: der Wert muss eine ganze Zahl von 1 bis 365 sein"}},
        // A count chooses the form, a size has a decimal comma, rows of tables are translated.
        {{".npm/_cacache"}, "", {"scan"}, {"Package managers · 1 item · 1.5 MB\n"}},
        {{}, "de", {"scan"}, {"Paketverwaltungen · 1 Objekt · 1,5 MB\n", ": 1 Objekt in 1 Kategorie · "}},
        {{".cache/pip", ".cache/bazel", ".config/Code/logs"},
         "de",
         {"scan"},
         {"Paketverwaltungen · 2 Objekte · ", " Objekte in 3 Kategorien · ", "Download-Cache von npm",
          "[Prüfen] Caches und Bauergebnisse von Bazel", "Code · Protokolle",
          "Caches von Entwicklerwerkzeugen"}},
    };
    for (const auto& row : rows) {
        for (const char* folder : row.files) box.file(fs::path("home") / folder / "blob", big);
        const Ended ended = say(row.language, row.words);
        for (const char* part : row.said) EXPECT_THAT(ended.out + ended.err, HasSubstr(part));
    }
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
