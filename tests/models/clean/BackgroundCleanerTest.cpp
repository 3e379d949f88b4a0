#include "cleaning/CleaningHome.h"
#include "support/EventLoop.h"

#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <atomic>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::CleaningHome;
using testing::settle;
using testing::waitUntil;
using Report = CleanRunner::Report;

/// Takes its time for each thing and notes how many were on their way at once.
class SlowTrash final : public Trash {
  public:
    explicit SlowTrash(std::atomic<int>& done, std::atomic<int>& mostAtOnce)
        : done_(done), mostAtOnce_(mostAtOnce) {}

    [[nodiscard]] Expected<Trashed> trash(const Removal::Target& /*target*/) override {
        const int here = ++inside_;
        if (here > mostAtOnce_) mostAtOnce_ = here;
        QThread::msleep(20);
        --inside_;
        ++done_;
        return Trashed{};
    }
    [[nodiscard]] Expected<Entry> entry(const fs::path& /*place*/) const override { return Entry{}; }
    [[nodiscard]] std::optional<std::vector<Entry>> noted(const fs::path& /*contents*/) const override {
        return {};
    }
    [[nodiscard]] Removal::Outcome putBack(const Entry& /*entry*/, Act /*act*/) const override { return {}; }
    void erased(const fs::path& /*path*/) override {}
    [[nodiscard]] fs::path contents() const override { return {}; }
    [[nodiscard]] fs::path home() const override { return {}; }

  private:
    std::atomic<int>& done_;
    std::atomic<int>& mostAtOnce_;
    std::atomic<int> inside_ = 0;
};

TEST(BackgroundCleaner, ProgressArrivesOnTheMainThreadInOrderAndBeforeTheReport) {
    CleaningHome home;
    std::vector<double> told;
    Report report;
    const auto note = [&](double value) {
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
        told.push_back(value);
    };
    constexpr double reported = -1;
    const std::vector<CleanItem> items = {home.item("a"), home.item("b"), home.item("c"), home.item("d")};
    QElapsedTimer timer;
    timer.start();
    home.cleaner->clean(home.job(items, note), [&](Report done) {
        report = std::move(done);
        note(reported);
    });
    ASSERT_TRUE(waitUntil([&] { return !told.empty() && told.back() == reported; }));
    told.pop_back();
    EXPECT_LE(told.size(),
              2U + static_cast<std::size_t>(timer.elapsed()) / 100);  // not all are worth an event
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1.0);

    EXPECT_EQ(report->removed, items);
    EXPECT_EQ(report->trashed, 40);
    for (const char* name : {"a", "b", "c", "d"}) EXPECT_TRUE(fs::exists(home.trash->contents() / name));
}

TEST(BackgroundCleaner, ItsEndWaitsForTheRunsThatItTookOnAndThoseComeOneByOne) {
    std::atomic<int> done = 0;
    std::atomic<int> mostAtOnce = 0;
    CleaningHome home(std::make_unique<SlowTrash>(done, mostAtOnce));
    int told = 0;
    const auto count = [&](double) { ++told; };
    const auto report = [&](const Report&) { ++told; };
    home.cleaner->clean(home.job({home.item("a"), home.item("b")}, count), report);
    home.cleaner->clean(home.job({home.item("c"), home.item("d")}, count), report);
    home.cleaner.reset();
    EXPECT_EQ(done, 4);
    EXPECT_EQ(mostAtOnce, 1);
    settle();
    EXPECT_EQ(told, 0);  // nobody is left who could be told
}

}  // namespace
}  // namespace tavrel
