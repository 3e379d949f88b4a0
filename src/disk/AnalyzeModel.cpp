#include "disk/AnalyzeModel.h"

#include "cleaning/CleanRefusal.h"
#include "cleaning/CleanTexts.h"
#include "core/ByteCount.h"
#include "core/CheckedSum.h"
#include "core/PathUrl.h"
#include "core/Text.h"
#include "disk/AnalyzeTexts.h"

#include <QCoroFuture>
#include <QPointer>
#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tavrel {

namespace {

using Entries = AnalyzeModel::Entries;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

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
    for (const Path& each : path()) titles.append(text(AnalyzeTexts::folderTitle(each, path().front())));
    return titles;
}

QString AnalyzeModel::title() const {
    return text(AnalyzeTexts::folderTitle(currentFolder(), path().front()));
}

QString AnalyzeModel::folder() const {
    return text(Text::shown(currentFolder().native()));
}

// The load

void AnalyzeModel::load() {
    const std::uint64_t generation = ++generation_;
    loadStop_.request_stop();
    loadStop_ = {};
    pending_.clear();
    waits_.clear();
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
    learnSubSlices();
    selected_.assign(content_.idCount(), false);
    selectedCount_ = 0;
    selectedSize_ = 0;
    lastPublish_ = services_.clock.now();
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
        auto wait = services_.sizes.info(content_.entry(id).url.native(),
                                         [this, id](const DiskIndex::Info& info) { measured(id, info); });
        if (wait) waits_.emplace(id, std::move(wait));
    }
    asking_ = false;
}

void AnalyzeModel::measured(Id id, const DiskIndex::Info& info) {
    waits_.erase(id);
    content_.measured(id, info);
    publishSoon();
    measurePending();
}

void AnalyzeModel::publishSoon() {
    if (publishDue_) return;
    publishDue_ = true;
    const auto left = std::max<Clock::Duration>(lastPublish_ + publishPause - services_.clock.now(), {});
    services_.clock.after(left, [self = QPointer<AnalyzeModel>(this), generation = generation_] {
        if (self && self->generation_ == generation) self->publish();
    });
}

void AnalyzeModel::publish() {
    publishDue_ = false;
    lastPublish_ = services_.clock.now();
    content_.publish();
    learnSubSlices();
    Q_EMIT entriesChanged();
    if (selectedCount_ > 0) selectionWasChanged();
}

/// Only what has an arc of its own can show slices, which bounds their number.
void AnalyzeModel::learnSubSlices() {
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
    return text(byteCount(total()));
}

QString AnalyzeModel::countText() const {
    return text(AnalyzeTexts::items(entries().size()));
}

QString AnalyzeModel::filesText() const {
    return text(AnalyzeTexts::files(totalFiles()));
}

QString AnalyzeModel::measuringText() const {
    return pendingCount() == 0 ? QString() : text(AnalyzeTexts::measuring(content_.pendingCount()));
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

/// What is asked for before all is vetted, a few rows in sight, is vetted here.
const std::string& AnalyzeModel::refusal(Id id) const {
    std::optional<std::string>& known = refusals_[id];
    if (!known) known = services_.safetyGuard().check((*content_.paths())[id]).reason();
    return *known;
}

/// The guard looks at links, so a long list is put to it elsewhere.
void AnalyzeModel::vet() {
    vetStop_.request_stop();
    vetStop_ = {};
    knowsRefusals_ = false;
    refusals_.assign(content_.idCount(), std::nullopt);
    if (entries().empty()) return;
    const QPointer<AnalyzeModel> self = this;
    const std::stop_token stop = vetStop_.get_token();
    services_.work.vet(services_.safetyGuard(), content_.paths(), stop,
                       [self, stop](const DiskWork::Reasons& reasons) {
                           if (self && !stop.stop_requested()) self->vetted(reasons);
                       });
}

void AnalyzeModel::vetted(const DiskWork::Reasons& reasons) {
    std::transform(reasons.begin(), reasons.end(), refusals_.begin(),
                   [](const std::string& reason) { return std::optional(reason); });
    knowsRefusals_ = true;
    for (Id id = 0; id < selected_.size(); ++id) {
        if (selected_[id] && !refusals_[id]->empty()) setSelected(id, false);
    }
    if (selectsAllOnceVetted_) selectAll();
    selectionWasChanged();
    Q_EMIT refusalsChanged();
}

// The selection

std::set<std::string> AnalyzeModel::selection() const {
    std::set<std::string> paths;
    for (const AnalyzeEntry& entry : selectedEntries()) paths.insert(entry.url.native());
    return paths;
}

Entries AnalyzeModel::selectedEntries() const {
    Entries chosen;
    chosen.reserve(selectedCount_);
    for (std::size_t at = 0; at < entries().size(); ++at) {
        if (selected_[content_.id(at)]) chosen.push_back(entries()[at]);
    }
    return chosen;
}

bool AnalyzeModel::allSelected() const {
    if (!knowsRefusals_ || selectedCount_ == 0) return false;
    for (std::size_t at = 0; at < entries().size(); ++at) {
        const Id id = content_.id(at);
        if (!selected_[id] && refusals_[id]->empty()) return false;
    }
    return true;
}

void AnalyzeModel::toggleSelection(const AnalyzeEntry& entry) {
    const auto id = content_.find(entry.url.native());
    if (!id || !refusal(*id).empty()) return;
    selectsAllOnceVetted_ = false;
    setSelected(*id, !selected_[*id]);
    selectionWasChanged();
}

void AnalyzeModel::toggleAll() {
    if (allSelected()) return clearSelection();
    selectsAllOnceVetted_ = !knowsRefusals_;
    if (selectsAllOnceVetted_) return;
    selectAll();
    selectionWasChanged();
}

void AnalyzeModel::clearSelection() {
    selectsAllOnceVetted_ = false;
    if (selectedCount_ == 0) return;
    selected_.assign(content_.idCount(), false);
    selectedCount_ = 0;
    selectionWasChanged();
}

void AnalyzeModel::selectAll() {
    selectsAllOnceVetted_ = false;
    for (std::size_t at = 0; at < entries().size(); ++at) {
        const Id id = content_.id(at);
        if (refusals_[id]->empty()) setSelected(id, true);
    }
}

void AnalyzeModel::setSelected(Id id, bool on) {
    if (selected_[id] == on) return;
    selected_[id] = on;
    on ? ++selectedCount_ : --selectedCount_;
}

void AnalyzeModel::selectionWasChanged() {
    selectedSize_ = 0;
    for (std::size_t at = 0; selectedCount_ > 0 && at < entries().size(); ++at) {
        if (selected_[content_.id(at)])
            selectedSize_ = addBytes(selectedSize_, entries()[at].size.value_or(0));
    }
    Q_EMIT selectionChanged();
}

QString AnalyzeModel::selectionText() const {
    return text(AnalyzeTexts::selection(selectedCount_, selectedSize_));
}

QString AnalyzeModel::questionText() const {
    return text(AnalyzeTexts::question(selectedCount_, selectedSize_));
}

// The removal

void AnalyzeModel::trash(const Entries& entries) {
    Items items;
    items.reserve(entries.size());
    for (const AnalyzeEntry& entry : entries) items.push_back(itemOf(entry));
    begin(std::move(items));
}

void AnalyzeModel::trashSelected() {
    Items items;
    items.reserve(selectedCount_);
    for (std::size_t at = 0; at < entries().size(); ++at) {
        if (selected_[content_.id(at)]) items.push_back(itemOf(entries()[at]));
    }
    begin(std::move(items));
}

void AnalyzeModel::begin(Items items) {
    if (items.empty() || removing_) return;
    QCoro::connect(remove(outermost(std::move(items))), this, [] {});
}

QCoro::Task<> AnalyzeModel::remove(Items items) {
    const QPointer<AnalyzeModel> self = this;
    removing_ = true;
    Q_EMIT removalChanged();
    if (!services_.preferences.knowsProtectedPaths() && !services_.preferences.dryRun()) {
        finishRemoval(std::make_shared<const CleanReport>(refusalWithoutProtectedPaths(items)));
        co_return;
    }
    CleanJob work = job(std::move(items));
    QFuture<CleanRunner::Report> removal = services_.runner.clean(std::move(work));
    const CleanRunner::Report report = co_await removal;
    if (!self) co_return;
    finishRemoval(report);
}

CleanJob AnalyzeModel::job(Items items) const {
    const Preferences& preferences = services_.preferences;
    return {
        .items = std::move(items),
        .action = "analyze",
        .guard = services_.safetyGuard(),
        .options = {.dryRun = preferences.dryRun(), .alwaysTrash = preferences.alwaysTrash()},
        .progress = [](double) {},
    };
}

void AnalyzeModel::finishRemoval(const CleanRunner::Report& report) {
    removing_ = false;
    lastRemoval_ = report;
    if (!report->dryRun) takeOut(*report);
    Q_EMIT removalChanged();
}

void AnalyzeModel::takeOut(const CleanReport& report) {
    std::vector<Id> ids;
    for (const CleanItem& item : report.removed) {
        services_.sizes.invalidate(item.id());
        subSlices_.erase(item.id());
        if (const auto id = content_.find(item.id())) ids.push_back(*id);
    }
    if (listing_) return load();  // the list on its way may still hold what went
    for (const Id id : ids) {
        waits_.erase(id);
        setSelected(id, false);
        if (lit_ == id) setFocus(std::nullopt);
    }
    content_.remove(ids);
    measurePending();
    Q_EMIT entriesChanged();
    selectionWasChanged();
}

int AnalyzeModel::lastRemovalCount() const {
    return lastRemoval_ ? static_cast<int>(lastRemoval_->removed.size()) : 0;
}

int AnalyzeModel::lastRemovalSkipped() const {
    return lastRemoval_ ? static_cast<int>(lastRemoval_->skipped.size()) : 0;
}

QString AnalyzeModel::lastRemovalText() const {
    return lastRemoval_ ? text(AnalyzeTexts::removal(*lastRemoval_)) : QString();
}

QString AnalyzeModel::lastRemovalReasons() const {
    return lastRemoval_ ? text(CleanTexts::reasons(*lastRemoval_)) : QString();
}

}  // namespace tavrel
