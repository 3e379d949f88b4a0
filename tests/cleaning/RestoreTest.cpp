#include "cleaning/RemovalSandbox.h"
#include "cleaning/Restorer.h"
#include "support/Isolation.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Layout;
using testing::reason;
using testing::RemovalSandbox;

constexpr const char* gone = "It is not in the Trash any more";

/// A thing in a Trash, and its way back.
class Case {
  public:
    explicit Case(Layout layout, const FolderAccess& access = systemFolderAccess())
        : trash(makeTrash(layout, access, stage.home())), access_(access) {}

    Trash::Entry put(const fs::path& original) const {
        const auto trashed = trash->trash(stage.target(access_, original));
        EXPECT_TRUE(trashed) << reason(trashed);
        return {.place = trashed ? trashed->place : "", .original = original, .moved = {}};
    }
    [[nodiscard]] std::string back(const Trash::Entry& entry) const {
        return reason(trash->putBack(entry, Trash::Act::move));
    }
    /// Puts the thing back in vain: nothing changes anywhere.
    void expectRefused(const Trash::Entry& entry, const std::string& why) const {
        const auto before = testing::snapshot(stage.sandbox.root());
        EXPECT_EQ(reason(trash->putBack(entry, Trash::Act::look)), why);
        EXPECT_EQ(back(entry), why);
        EXPECT_EQ(testing::snapshot(stage.sandbox.root()), before);
    }
    [[nodiscard]] fs::path note() const { return trash->contents().parent_path() / "info/item.trashinfo"; }

    const RemovalSandbox stage;
    const std::unique_ptr<Trash> trash;

  private:
    const FolderAccess& access_;
};

TEST(RestoreTest, whatWasTrashedComesBackWithTheFoldersThatAreMissing) {
    for (const auto layout : {Layout::flat, Layout::freedesktop}) {
        const Case here(layout);
        const auto file = here.stage.sandbox.text("home/a b/\xff%41/report.txt", "one");
        const auto before = testing::snapshot(here.stage.home() / "a b");
        const auto first = here.put(file);
        here.stage.sandbox.text(file, "two");
        const auto second = here.put(file);
        fs::remove_all(here.stage.home() / "a b");
        EXPECT_EQ(reason(here.trash->putBack(first, Trash::Act::look)), "");
        EXPECT_FALSE(fs::exists(here.stage.home() / "a b")) << "a look makes nothing";
        EXPECT_EQ(here.back(first), "");
        EXPECT_EQ(testing::snapshot(here.stage.home() / "a b"), before);
        here.expectRefused(first, gone);
        here.expectRefused(second, "Something else stands in its place now");
        fs::remove(file);
        EXPECT_EQ(here.back(second), "");
        EXPECT_EQ(testing::contentOf(file), "two");
        for (const auto& left : fs::recursive_directory_iterator(here.trash->contents().parent_path())) {
            EXPECT_NE(left.path().extension(), ".trashinfo");
        }
    }
}

struct Change {
    const char* script;  // run in the sandbox; $H is the home, $T the Trash, $N the note
    const char* why;
};

void run(const Case& here, const char* script) {
    const auto text = "cd " + here.stage.sandbox.root().native() +
                      " && H=$PWD/home T=$H/.local/share/Trash N=$T/info/item.trashinfo && " + script;
    ASSERT_EQ(std::system(text.c_str()), 0) << text;  // NOLINT(cert-env33-c): words of our own
}

TEST(RestoreTest, aNoteThatIsNotSoundOrNotItsOwnPutsNothingBack) {
    const char* const link = "The Trash cannot be used: Reached through a symbolic link";
    const Change changes[] = {
        {"sed -i s,^Path=.*,Path=/etc/item, $N", gone},
        {"sed -i s,^Path=.*,Path=$H/x/../docs/item, $N", gone},
        {"sed -i s,^Path=.*,Path=$H/docs/item%00, $N", gone},
        {"sed -i s,^Path=.*,Path=$H/docs/item%4, $N", gone},
        {"sed -i 1d $N", gone},
        {"truncate -s 1G $N", gone},
        {"rm $N && mkdir $N", gone},
        {"mv $N outside/note && ln -s $PWD/outside/note $N", gone},
        {"mv $T/info outside && ln -s $PWD/outside/info $T/info", link},
        {"mv $T/files outside && ln -s $PWD/outside/files $T/files", link},
    };
    for (const auto& [script, why] : changes) {
        SCOPED_TRACE(script);
        const Case here(Layout::freedesktop);
        const auto entry = here.put(here.stage.sandbox.text("home/docs/item", "mine"));
        run(here, script);
        EXPECT_EQ(reason(here.trash->putBack(entry, Trash::Act::look)), why);
        EXPECT_EQ(here.back(entry), why);
        EXPECT_FALSE(fs::exists(entry.original));
        EXPECT_EQ(testing::contentOf(entry.place), "mine");
    }
    const Case here(Layout::freedesktop);
    const auto entry = here.put(here.stage.sandbox.text("home/docs/item", "mine"));
    run(here, "rm $N && mkfifo $N");
    EXPECT_EQ(here.back(entry), gone) << "and nobody waits for the other end";
}

TEST(RestoreTest, nothingIsWrittenOverAnythingOrThroughALink) {
    const char* const stands = "Something else stands in its place now";
    const Change changes[] = {
        {"echo new > $H/docs/item", stands},
        {"ln -s /nowhere $H/docs/item", stands},
        {"mkdir $H/docs/item", stands},
        {"rm -r $H/docs && ln -s $PWD/outside $H/docs", "Reached through a symbolic link"},
        {"rm -r $H/docs && echo file > $H/docs", "A file stands where its folder was"},
    };
    for (const auto layout : {Layout::flat, Layout::freedesktop}) {
        for (const auto& [script, why] : changes) {
            SCOPED_TRACE(script);
            const Case here(layout);
            const auto entry =
                here.put(here.stage.sandbox.text("home/docs/item/inside", "mine").parent_path());
            run(here, script);
            here.expectRefused(entry, why);
        }
    }
}

TEST(RestoreTest, aRecordWrittenByHandLeadsNowhere) {
    const Case here(Layout::flat);
    const auto entry = here.put(here.stage.sandbox.text("home/item", "mine"));
    const auto& stage = here.stage;
    const auto own = std::to_string(::getuid());
    const auto planted = stage.sandbox.text("home/sub/.Trashes/" + own + "/item", "planted");
    const char* const outside = "It was outside your home folder";
    const std::tuple<fs::path, fs::path, const char*> rows[] = {
        {entry.place, "/etc/tavrel-item", outside},
        {entry.place, stage.outside() / "item", outside},
        {entry.place, stage.home(), outside},
        {entry.place, stage.home() / "../outside/item", outside},
        {entry.place, (stage.home() / "a").native() + std::string(1, '\0') + "b", outside},
        {entry.place, here.trash->contents() / "new", "It was in the Trash already"},
        {stage.outside() / "canary", stage.home() / "item", "It was put in no Trash of yours"},
        {entry.place / "../../sub", stage.home() / "item", "It was put in no Trash of yours"},
        {planted, stage.home() / "sub/x", "The Trash cannot be used: Operation not permitted"},
    };
    for (const auto& [place, original, why] : rows) {
        SCOPED_TRACE(place.native() + " " + original.native());
        here.expectRefused({.place = place, .original = original, .moved = {}}, why);
    }
}

TEST(RestoreTest, whatAppearsBetweenCheckAndActStaysAndSoDoesTheEntry) {
    testing::Interrupted late;
    const Case here(Layout::freedesktop, late);
    const auto item = here.stage.sandbox.text("home/item", "mine");
    const auto entry = here.put(item);
    late.beforeMoving = [&] { std::ofstream(item) << "new"; };
    EXPECT_EQ(here.back(entry), "Something else stands in its place now");
    EXPECT_EQ(testing::contentOf(item), "new");
    fs::remove(item);
    late.beforeMoving = testing::once(
        [&] { fs::remove(entry.place), fs::rename(here.stage.outside() / "canary", entry.place); });
    EXPECT_EQ(here.back(entry), "Changed since it was checked");
    EXPECT_EQ(testing::contentOf(entry.place), "alive") << "it is back under its own name";
    EXPECT_TRUE(fs::exists(here.note()));
    EXPECT_FALSE(fs::exists(item));
}

TEST(RestoreTest, fromAnotherVolumeThingsGoBackOnThatVolumeOnly) {
    for (const bool shared : {false, true}) {
        const Case here(Layout::freedesktop);
        const auto ran = testing::withPrivateMounts([&] {
            const auto top = here.stage.sandbox.folder("disk");
            testing::mountMemory(top);
            if (shared)
                fs::create_directory(top / ".Trash"), fs::permissions(top / ".Trash", fs::perms(01777));
            const auto item = here.stage.sandbox.text(top / "a b/item", "mine");
            const auto seen = Removal::identify(systemFolderAccess(), item);
            const auto trashed =
                here.trash->trash(Removal::target(item, SafetyGuard::Verdict::allowed(top), *seen));
            ASSERT_TRUE(trashed);
            const auto noted = here.trash->noted(trashed->place.parent_path());
            ASSERT_TRUE(noted && noted->size() == 1);
            EXPECT_EQ(noted->front().original, item);
            const auto note = trashed->place.parent_path().parent_path() / "info/item.trashinfo";
            const auto sound = testing::contentOf(note);
            std::ofstream(note) << "[Trash Info]\nPath=" << here.stage.home().native() << "/item\n";
            here.expectRefused({trashed->place, here.stage.home() / "item", {}},
                               "It was on another disk than this Trash");
            std::ofstream(note) << sound;
            EXPECT_EQ(here.back({trashed->place, item, {}}), "");
            EXPECT_EQ(testing::contentOf(item), "mine");
        });
        if (ran == testing::Ran::forbidden) GTEST_SKIP() << "mounting is forbidden here";
    }
}

TEST(RestorerTest, eachEntryIsOfOneRunAndOldRunsAreToldByTheirDates) {
    const Case here(Layout::freedesktop);
    const auto& box = here.stage.sandbox;
    const auto path = here.stage.home() / "item";
    const auto run = [&](std::chrono::minutes ago, std::vector<TrashedItem> trashed) {
        return History::Entry{.id = "",
                              .date = testing::now() - ago,
                              .action = "clean",
                              .count = 2,
                              .bytes = 5,
                              .paths = {path.native(), "/gone"},
                              .trashed = std::move(trashed)};
    };
    const auto noted = [&](const std::string& name, std::chrono::minutes ago) {
        const auto at = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now() - ago);
        char date[20];
        std::strftime(date, sizeof date, "%FT%T", std::localtime(&at));
        box.text(here.trash->contents() / name, name);
        box.text(here.note().parent_path() / (name + ".trashinfo"),
                 "[Trash Info]\nPath=" + path.native() + "\nDeletionDate=" + date + "\n");
        return TrashedItem{path.native(), (here.trash->contents() / name).native(), 5};
    };
    using namespace std::chrono_literals;
    const auto recorded = noted("recorded", 5min);
    static_cast<void>(noted("old", 300min));
    static_cast<void>(noted("byHand", 400min));
    const auto later = noted("later", 0min);
    const Restorer restorer(*here.trash, {});
    const auto runs = restorer.runs(
        {run(0min, {}), run(4min, {recorded}), run(5min, {recorded}), run(299min, {}), run(50h, {later})});
    const std::vector<std::pair<std::string, std::size_t>> expected = {
        {"later", 1}, {"recorded", 1}, {"", 1}, {"old", 1}, {"", 1}};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        SCOPED_TRACE(i);
        const bool present = runs[i].present() > 0;
        EXPECT_EQ(present ? runs[i].items.front().place.filename() : "", expected[i].first);
        EXPECT_EQ(runs[i].erased, expected[i].second);
    }

    auto items = runs[1].items;
    items.insert(items.end(), runs[2].items.begin(), runs[2].items.end());
    const auto report = restorer.restore(items, Trash::Act::move);
    EXPECT_EQ(report.restored, std::vector{path});
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_EQ(report.skipped.front().reason, gone);
    EXPECT_EQ(testing::contentOf(path), "recorded");
}

}  // namespace
}  // namespace tavrel
