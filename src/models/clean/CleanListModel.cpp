#include "models/clean/CleanListModel.h"

#include "core/ByteCount.h"
#include "core/CheckedSum.h"
#include "core/Text.h"
#include "presentation/WhoompStrength.h"

#include <QPointer>
#include <algorithm>
#include <array>
#include <utility>

namespace tavrel {

namespace {

using namespace CleanPhases;
using Items = CleanListModel::Items;
using Group = CleanListModel::Group;

std::vector<Group> groupsOf(const Items& items) {
    std::array<std::vector<std::size_t>, CleanCategories::allCases.size()> positions;
    for (std::size_t i = 0; i < items.size(); ++i) {
        positions.at(static_cast<std::size_t>(items[i].category)).push_back(i);
    }
    std::vector<Group> groups;
    groups.reserve(positions.size());
    for (const CleanCategory category : CleanCategories::allCases) {
        auto& ofCategory = positions.at(static_cast<std::size_t>(category));
        if (!ofCategory.empty()) groups.push_back({category, std::move(ofCategory)});
    }
    return groups;
}

/// What root removes goes last, so it falls last, too.
Items inOrderOfFalling(Items chosen) {
    std::stable_partition(chosen.begin(), chosen.end(),
                          [](const CleanItem& item) { return !item.requiresAdmin; });
    return chosen;
}

}  // namespace

CleanListModel::CleanListModel(std::string action, Finder finder, CleanServices services, QObject* parent)
    : QObject(parent),
      action_(std::move(action)),
      finder_(std::move(finder)),
      services_(std::move(services)),
      session_(services_.runner, services_.preferences) {}

CleanListModel::~CleanListModel() = default;

Items CleanListModel::selectedItems() const {
    Items chosen;
    chosen.reserve(selection_.size());
    for (const CleanItem& item : items_) {
        if (isSelected(item)) chosen.push_back(item);
    }
    return chosen;
}

CleanTexts::Figures CleanListModel::figures() const {
    CleanTexts::Figures figures = {
        .items = items_.size(),
        .categories = groups_.size(),
        .total = totalSize_,
        .selected = selectedSize_,
        .remaining = std::nullopt,
    };
    if (feed_) figures.remaining = feed_->remaining();
    return figures;
}

const CleanReport* CleanListModel::report() const {
    const auto* done = std::get_if<Done>(&phase_);
    return done == nullptr ? nullptr : &done->report;
}

QString CleanListModel::reportText() const {
    return report() == nullptr ? QString() : QString::fromStdString(CleanTexts::banner(*report()));
}

QString CleanListModel::skippedReasons() const {
    return report() == nullptr ? QString() : QString::fromStdString(CleanTexts::reasons(*report()));
}

QString CleanListModel::selectedSizeText() const {
    return QString::fromStdString(byteCount(selectedSize_));
}

void CleanListModel::scan() {
    if (isWorking()) return;
    setFeed(nullptr);
    setPhase(Scanning{Text::localized("Scanning…")});
    finder_([self = QPointer(this)](const Found& found) {
        if (!self) return;
        self->setItems(*found);
        self->setPhase(Ready{});
        self->setReviewing(false);
    });
}

void CleanListModel::clean() {
    Items chosen = selectedItems();
    if (chosen.empty() || isWorking()) return;
    if (const auto refusal = begin(chosen)) return finish(*refusal);
    setReviewing(false);
    startFeed(inOrderOfFalling(std::move(chosen)));
    setPhase(Cleaning{});
    show_ = feed_->run(shortestShow);
}

/// The guard and the settings are those of this moment.
std::optional<CleanReport> CleanListModel::begin(const Items& chosen) {
    const QPointer<CleanListModel> self = this;
    const auto progress = [self](double fraction) {
        if (self) self->advance(fraction);
    };
    const auto done = [self](const CleanRunner::Report& report) {
        if (self) QCoro::connect(self->endShow(report), self.data(), [] {});
    };
    return session_.begin(chosen, action_, services_.safetyGuard(extraRoots_), progress, done);
}

void CleanListModel::advance(double fraction) {
    if (!feed_) return;
    feed_->reached(fraction);
    setPhase(Cleaning{fraction});
}

QCoro::Task<> CleanListModel::endShow(CleanRunner::Report report) {
    const QPointer<CleanListModel> self = this;
    feed_->reached(1);
    feed_->finish();
    QCoro::Task<> show = std::move(show_);
    co_await show;
    if (self) finish(*report);
}

void CleanListModel::startFeed(const Items& chosen) {
    const auto icons = action_ == "uninstall" ? OwnIcons::yes : OwnIcons::no;
    setFeed(std::make_unique<SwallowFeed>(chosen, icons, services_.icons, services_.clock));
}

void CleanListModel::finish(const CleanReport& report) {
    if (!report.dryRun) drop(report.removed);
    setPhase(Done{report});
    setReviewing(false);
    if (!report.removed.empty()) services_.sounds.whoomp(whoompStrength(report.freed));
}

/// What was skipped stays in the list, and stays selected.
void CleanListModel::drop(const Items& removed) {
    if (removed.empty()) return;
    Selection gone;
    gone.reserve(removed.size());
    for (const CleanItem& item : removed) gone.insert(item.id());
    Items left;
    left.reserve(items_.size());
    for (CleanItem& item : items_) {
        if (!gone.contains(item.id())) left.push_back(std::move(item));
    }
    for (const std::string& id : gone) selection_.erase(id);
    items_ = std::move(left);
    groups_ = groupsOf(items_);
    totalSize_ = sizeOf(items_);
    Q_EMIT itemsChanged();
    selectionWasChanged();
}

void CleanListModel::toggle(const std::vector<std::string>& paths) {
    const bool all = std::all_of(paths.begin(), paths.end(),
                                 [this](const std::string& path) { return selection_.contains(path); });
    for (const std::string& path : paths) {
        if (all) {
            selection_.erase(path);
        } else {
            selection_.insert(path);
        }
    }
    selectionWasChanged();
}

void CleanListModel::setReviewing(bool on) {
    if (reviewing_ == on) return;
    reviewing_ = on;
    Q_EMIT reviewingChanged();
}

void CleanListModel::setItems(Items items) {
    items_ = std::move(items);
    groups_ = groupsOf(items_);
    totalSize_ = sizeOf(items_);
    selection_.clear();
    for (const CleanItem& item : items_) {
        if (item.isPreselected()) selection_.insert(item.id());
    }
    Q_EMIT itemsChanged();
    selectionWasChanged();
}

void CleanListModel::setPhase(Phase phase) {
    phase_ = std::move(phase);
    Q_EMIT phaseChanged();
}

void CleanListModel::setFeed(std::unique_ptr<SwallowFeed> feed) {
    if (feed == nullptr && feed_ == nullptr) return;
    std::swap(feed_, feed);
    Q_EMIT feedChanged();  // while the old one still stands: a screen may be reading it
}

void CleanListModel::selectionWasChanged() {
    selectedCount_ = 0;
    selectedSize_ = 0;
    for (const CleanItem& item : items_) {
        if (!isSelected(item)) continue;
        ++selectedCount_;
        selectedSize_ = addBytes(selectedSize_, item.size);
    }
    Q_EMIT selectionChanged();
}

}  // namespace tavrel
