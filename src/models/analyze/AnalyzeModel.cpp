#include "models/analyze/AnalyzeModel.h"

#include "cleaning/CleanTexts.h"
#include "core/ByteCount.h"
#include "core/Text.h"
#include "disk/FileCount.h"
#include "models/analyze/AnalyzeTexts.h"
#include "models/support/PathUrl.h"
#include "models/support/Strings.h"

#include <QPointer>
#include <algorithm>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tavrel {

namespace {

using Entries = AnalyzeModel::Entries;

using Items = std::vector<CleanItem>;

CleanItem itemOf(const AnalyzeEntry& entry) {
    return {.url = entry.url, .size = entry.size.value_or(0), .risk = Risk::review, .isNoLink = true};
}

/// Without what lies in another of them: that goes with it, and its size is part of the other's.
Items outermost(Items items) {
    std::unordered_set<std::string_view> chosen;
    for (const CleanItem& item : items) chosen.insert(item.id());
    std::unordered_map<std::string_view, bool> isCovered;  // folders: whether one is chosen, or one above it
    const auto covered = [&](std::string_view folder) {
        const auto [known, isNew] = isCovered.try_emplace(folder, false);
        for (; isNew && folder.size() > 1 && !known->second; folder = SizeKey::of(folder).folder)
            known->second = chosen.contains(folder);
        return known->second;
    };
    std::vector<bool> goesAlong;
    for (const CleanItem& item : items) goesAlong.push_back(covered(SizeKey::of(item.id()).folder));
    Items kept;
    for (std::size_t at = 0; at < items.size(); ++at) {
        if (!goesAlong[at]) kept.push_back(std::move(items[at]));
    }
    return kept;
}

/// The path of the entry that a focus is on.
struct EntryOfFocus {
    std::string operator()(const AnalyzeFocuses::Entry& entry) const { return entry.path; }
    std::string operator()(const AnalyzeFocuses::Slice& focus) const {
        return std::string(SizeKey::of(focus.slice.url.native()).folder);
    }
    std::string operator()(const AnalyzeFocuses::Other& /*other*/) const { return {}; }
};

}  // namespace

AnalyzeModel::AnalyzeModel(AnalyzeServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      session_(services_.runner, services_.preferences),
      path_(services_.places.root(), services_.places.home()) {
    connect(&services_.preferences, &Preferences::protectedPathsChanged, this, &AnalyzeModel::vet);
}

AnalyzeModel::~AnalyzeModel() {
    loadStop_.request_stop();
    vetStop_.request_stop();
}

// The way

void AnalyzeModel::goBack() {
    move(path_.goBack());
}

void AnalyzeModel::goForward() {
    move(path_.goForward());
}

void AnalyzeModel::goTo(int index) {
    move(index >= 0 && path_.cutTo(static_cast<std::size_t>(index)));
}

void AnalyzeModel::navigateTo(const QUrl& folder) {
    const Path to = PathUrl::pathOf(folder);
    if (!to.empty()) navigate(to);
}

void AnalyzeModel::navigate(const Path& to) {
    move(path_.navigate(to));
}

void AnalyzeModel::open(const AnalyzeEntry& entry) {
    if (!entry.isFolder || mode_ != Mode::Folders) return;
    path_.enter(entry.url);
    move(true);
}

void AnalyzeModel::open(const SubSlice& slice) {
    if (mode_ != Mode::Folders) return;
    path_.enter(slice.url.parent_path());
    path_.enter(slice.url);
    move(true);
}

void AnalyzeModel::move(bool moved) {
    if (!moved) return;
    Q_EMIT pathChanged();
    load();
}

void AnalyzeModel::setMode(Mode mode) {
    if (std::exchange(mode_, mode) == mode) return;
    Q_EMIT modeChanged();
    load();
}

QStringList AnalyzeModel::crumbs() const {
    QStringList titles;
    for (const Path& each : path()) titles.append(toQString(AnalyzeTexts::folderTitle(each, path().front())));
    return titles;
}

QString AnalyzeModel::title() const {
    return toQString(AnalyzeTexts::folderTitle(currentFolder(), path().front()));
}

QString AnalyzeModel::folder() const {
    return toQString(Text::escapedForDisplay(currentFolder().native()));
}

// The load

void AnalyzeModel::load() {
    const std::uint64_t generation = ++generation_;
    loadStop_.request_stop();
    loadStop_ = {};
    pending_.clear();
    waits_.clear();
    stalledWaits_.clear();
    publishDue_ = false;
    setFocus(std::nullopt);
    clearSelection();
    setListing(true);

    const QPointer<AnalyzeModel> self = this;
    const auto isStale = [self, generation] { return !self || self->generation_ != generation; };
    if (mode_ == Mode::LargeFiles) {
        show({});
        services_.work.findLargeFiles(currentFolder(), loadStop_.get_token(),
                                      [self, isStale](const DiskWork::LargeFiles& files) {
                                          if (isStale()) return;
                                          self->show(AnalyzeContent(files));
                                          self->setListing(false);
                                      });
        return;
    }
    const std::string folder = currentFolder().native();
    services_.work.list(currentFolder(), loadStop_.get_token(), [self, isStale, folder](FolderListing found) {
        if (isStale()) return;
        self->show({std::move(found), self->services_.sizes.cache().in(folder)});
        self->setListing(false);
        self->pending_ = self->content_.pending();
        std::reverse(self->pending_.begin(), self->pending_.end());
        self->measurePending();
    });
}

void AnalyzeModel::rescan() {
    services_.work.discard(std::make_shared<SizeCache>(services_.sizes.forgetAll()));
    load();
}

void AnalyzeModel::show(AnalyzeContent content) {
    setFocus(std::nullopt);
    services_.work.discard(std::make_shared<AnalyzeContent>(std::exchange(content_, std::move(content))));
    ++contentNumber_;
    subSlices_.clear();
    updateSubSlices();
    selection_.reset(content_.idCount());
    nextPublish_ = distantPast;
    vet();
    Q_EMIT entriesChanged();
    Q_EMIT selectionChanged();
}

/// Asks for enough sizes at a time to keep every walk busy: what was never asked for need not be given up.
void AnalyzeModel::measurePending() {
    if (std::exchange(asking_, true)) return;  // an answer from the cache comes before the call returns
    const std::size_t most = 2 * services_.sizes.maxParallel();
    while (!pending_.empty() && waits_.size() < most) {
        const Id id = pending_.back();
        pending_.pop_back();
        if (!content_.holds(id)) continue;
        auto wait = services_.sizes.info(
            content_.entry(id).url.native(), [this, id](const DiskIndex::Info& info) { measured(id, info); },
            [this, id] { stalled(id); });
        if (wait) waits_.emplace(id, std::move(wait));
    }
    asking_ = false;
    if (waits_.empty() && content_.pendingCount() > 0) publish();  // nothing else is to come
}

void AnalyzeModel::measured(Id id, const DiskIndex::Info& info) {
    waits_.erase(id);
    stalledWaits_.erase(id);
    content_.measured(id, info);
    measurePending();
    if (content_.pendingCount() > 0) publishSoon();
}

void AnalyzeModel::stalled(Id id) {
    stalledWaits_.insert(waits_.extract(id));
    measurePending();
}

void AnalyzeModel::publishSoon() {
    if (std::exchange(publishDue_, true)) return;
    const Instant now = services_.clock.now();
    const Clock::Duration left = nextPublish_ > now ? nextPublish_ - now : Clock::Duration::zero();
    services_.clock.after(left, [self = QPointer<AnalyzeModel>(this), generation = generation_] {
        if (self && self->generation_ == generation && self->publishDue_) self->publish();
    });
}

void AnalyzeModel::publish() {
    publishDue_ = false;
    nextPublish_ = services_.clock.now() + publishPause;
    content_.publish();
    updateSubSlices();
    Q_EMIT entriesChanged();
    if (selection_.sumUp(content_)) Q_EMIT selectionChanged();
}

/// Only what has an arc of its own can show slices, which bounds their number.
void AnalyzeModel::updateSubSlices() {
    for (const std::size_t position : content_.colored()) {
        const AnalyzeEntry& entry = entries()[position];
        const std::string& path = entry.url.native();
        if (!entry.isFolder || subSlices_.contains(path)) continue;
        std::vector<SubSlice> slices;
        for (const auto& child : services_.sizes.cache().children(path, mostSubSlices))
            slices.push_back({.url = child.path, .size = child.info.size, .files = child.info.files});
        if (!slices.empty()) subSlices_.emplace(path, std::move(slices));
    }
}

void AnalyzeModel::setListing(bool on) {
    if (std::exchange(listing_, on) != on) Q_EMIT listingChanged();
}

QString AnalyzeModel::totalText() const {
    return toQString(byteCount(total()));
}

QString AnalyzeModel::countText() const {
    return toQString(AnalyzeTexts::items(entries().size()));
}

QString AnalyzeModel::filesText() const {
    return toQString(FileCount::text(totalFiles()));
}

QString AnalyzeModel::measuringText() const {
    return pendingCount() == 0 ? QString() : toQString(AnalyzeTexts::measuring(content_.pendingCount()));
}

// The focus

void AnalyzeModel::setFocus(std::optional<AnalyzeFocus> focus) {
    if (focus_ == focus) return;
    focus_ = std::move(focus);
    lit_ = focus_ ? content_.find(std::visit(EntryOfFocus(), *focus_)) : std::nullopt;
    Q_EMIT focusChanged();
}

void AnalyzeModel::clearFocus(const AnalyzeFocus& focus) {
    if (focus_ == focus) setFocus(std::nullopt);
}

// What may go

std::string AnalyzeModel::refusal(const AnalyzeEntry& entry) const {
    const auto id = content_.find(entry.url.native());
    return id ? refusal(*id) : services_.safetyGuard().check(entry.url).reason();
}

/// What a person acts on before all is vetted is vetted here.
const std::string& AnalyzeModel::refusal(Id id) const {
    if (selection_.refusal(id) == nullptr)
        selection_.learn(id, services_.safetyGuard().check((*content_.paths())[id]).reason());
    return *selection_.refusal(id);
}

/// The guard looks at links, so a long list is put to it elsewhere.
void AnalyzeModel::vet() {
    vetStop_.request_stop();
    vetStop_ = {};
    selection_.forgetRefusals();
    if (entries().empty()) return;
    const QPointer<AnalyzeModel> self = this;
    const std::stop_token stop = vetStop_.get_token();
    services_.work.vet(services_.safetyGuard(), content_.paths(), stop,
                       [self, stop](const DiskWork::Reasons& reasons) {
                           if (self && !stop.stop_requested()) self->vetted(reasons);
                       });
}

void AnalyzeModel::vetted(const DiskWork::Reasons& reasons) {
    selection_.learnAll(reasons, content_);
    selectionWasChanged();
    Q_EMIT refusalsChanged();
}

// The selection

std::set<std::string> AnalyzeModel::selection() const {
    std::set<std::string> paths;
    for (Id id = 0; id < content_.idCount(); ++id) {
        if (selection_.holds(id)) paths.insert((*content_.paths())[id]);
    }
    return paths;
}

bool AnalyzeModel::allSelected() const {
    return selection_.isAll(content_);
}

void AnalyzeModel::toggleSelection(const AnalyzeEntry& entry) {
    const auto id = content_.find(entry.url.native());
    if (!id || !refusal(*id).empty()) return;
    selection_.select(*id, !selection_.holds(*id));
    selectionWasChanged();
}

void AnalyzeModel::toggleAll() {
    if (allSelected()) return clearSelection();
    selection_.selectAll(content_);
    selectionWasChanged();
}

void AnalyzeModel::clearSelection() {
    if (selection_.clear()) selectionWasChanged();
}

void AnalyzeModel::selectionWasChanged() {
    selection_.sumUp(content_);
    Q_EMIT selectionChanged();
}

QString AnalyzeModel::selectionText() const {
    return toQString(AnalyzeTexts::selection(selection_.count(), selection_.size()));
}

QString AnalyzeModel::questionText() const {
    return toQString(AnalyzeTexts::question(selection_.count(), selection_.size()));
}

// The removal

/// What is shown of one folder cannot lie in each other, nor can large files; what is named here may.
void AnalyzeModel::trash(const Entries& entries) {
    Items items;
    items.reserve(entries.size());
    for (const AnalyzeEntry& entry : entries) items.push_back(itemOf(entry));
    begin(outermost(std::move(items)));
}

/// In the order of the names, so that what went is found again in one pass.
void AnalyzeModel::trashSelected() {
    Items items;
    items.reserve(selection_.count());
    for (Id id = 0; id < content_.idCount(); ++id) {
        if (selection_.holds(id)) items.push_back(itemOf(content_.entry(id)));
    }
    begin(std::move(items));
}

void AnalyzeModel::begin(Items items) {
    if (items.empty() || removing_) return;
    const std::size_t asked = items.size();
    removing_ = true;
    Q_EMIT removalChanged();
    auto refusal = session_.begin(std::move(items), "analyze", services_.safetyGuard(), {},
                                  [self = QPointer(this), asked](const CleanRunner::Report& report) {
                                      if (self) self->finishRemoval(report, asked);
                                  });
    if (refusal) finishRemoval(std::make_shared<const CleanReport>(std::move(*refusal)), asked);
}

void AnalyzeModel::finishRemoval(const CleanRunner::Report& report, std::size_t asked) {
    lastRemoval_ = report;
    if (report->dryRun || report->skipped.size() >= asked) return endRemoval();
    if (report->trashed > 0) forget({services_.places.trash().native()});
    // What was gone before is in neither list.
    const bool isComplete = report->removed.size() + report->skipped.size() >= asked;
    forgetAll({.isComplete = isComplete, .contentNumber = contentNumber_, .ids = {}});
}

void AnalyzeModel::endRemoval() {
    removing_ = false;
    Q_EMIT removalChanged();
}

/// The figures of what went are forgotten by and by, and the rows go after that: no event is a long one.
void AnalyzeModel::forgetAll(Leaving leaving) {
    const std::span all(lastRemoval_->removed);
    const auto some =
        all.subspan(leaving.forgotten, std::min(forgottenAtOnce, all.size() - leaving.forgotten));
    std::vector<std::string_view> paths;
    paths.reserve(some.size());
    for (const CleanItem& item : some) {
        paths.push_back(item.id());
        if (const auto id = content_.find(item.id())) leaving.ids.push_back(*id);
    }
    forget(paths);
    leaving.forgotten += some.size();
    const bool isAll = leaving.forgotten == all.size();
    auto next = [this, isAll, leaving = std::move(leaving)]() mutable {
        isAll ? leave(leaving) : forgetAll(std::move(leaving));
    };
    QMetaObject::invokeMethod(this, std::move(next), Qt::QueuedConnection);
}

void AnalyzeModel::forget(const std::vector<std::string_view>& paths) {
    services_.work.discard(std::make_shared<SizeCache::Evicted>(services_.sizes.invalidate(paths)));
}

void AnalyzeModel::leave(const Leaving& leaving) {
    if (!leaveRemoved(*lastRemoval_)) {
        // A list on its way may still hold what went.
        const bool isSame = leaving.contentNumber == contentNumber_ && !listing_;
        if (isSame && leaving.isComplete) {
            takeOut(leaving.ids);
        } else {
            load();
        }
    }
    endRemoval();
}

/// Whether the folder that is shown went with something: then the one that held that is shown.
bool AnalyzeModel::leaveRemoved(const CleanReport& report) {
    const auto& stack = path_.stack();
    const auto went = std::find_if(stack.begin(), stack.end(), [&](const Path& folder) {
        return std::any_of(report.removed.begin(), report.removed.end(),
                           [&](const CleanItem& item) { return item.id() == folder.native(); });
    });
    if (went == stack.begin() || went == stack.end()) return false;
    move(path_.cutTo(static_cast<std::size_t>(went - stack.begin()) - 1));
    return true;
}

void AnalyzeModel::takeOut(const std::vector<Id>& ids) {
    for (const Id id : ids) {
        const std::string& path = (*content_.paths())[id];
        if (!subSlices_.empty()) subSlices_.erase(path);
        waits_.erase(id);
        stalledWaits_.erase(id);
        selection_.select(id, false);
        if (lit_ == id) setFocus(std::nullopt);
    }
    content_.remove(ids);
    measurePending();
    Q_EMIT entriesChanged();
    selectionWasChanged();
}

QString AnalyzeModel::lastRemovalText() const {
    return lastRemoval_ ? toQString(AnalyzeTexts::removal(*lastRemoval_)) : QString();
}

QString AnalyzeModel::lastRemovalReasons() const {
    return lastRemoval_ ? toQString(CleanTexts::reasons(*lastRemoval_)) : QString();
}

}  // namespace tavrel
