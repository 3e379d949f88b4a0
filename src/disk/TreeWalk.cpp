#include "disk/TreeWalk.h"

#include "disk/FolderHandles.h"

#include <algorithm>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>

namespace tavrel {
namespace {

constexpr unsigned entriesPerStopCheck = 4096;
constexpr unsigned maxThreads = 8;  // beyond that the file system's own locks are what is waited for
constexpr std::size_t foldersPerHelper = 32;  // waiting folders that are worth another thread

using Handle = FolderHandles::Shared;

struct SubFolder {
    std::string name;
    std::uint64_t ordinal = 0;
};

/// A folder that was read, with those of its sub-folders that nobody has taken yet.
struct Branch {
    std::shared_ptr<WalkFolder> folder;
    std::vector<SubFolder> left;
};

struct Task {
    std::shared_ptr<WalkFolder> parent;
    SubFolder self;
    Handle above;  // the parent's; empty when it has to be opened again
};

/// What came of a task; no folder when there was nothing to open.
struct Reading {
    std::shared_ptr<WalkFolder> folder;
    Handle handle;
    FolderTotals totals;
    std::vector<SubFolder> subFolders;
    bool stopped = false;
};

Handle openFolder(int above, const char* name) {
    FileHandle handle(::openat(above, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return handle ? std::make_shared<const FileHandle>(std::move(handle)) : nullptr;
}

/// Fills in what only the open handle tells for certain.
bool identify(const Handle& handle, WalkFolder& folder) {
    struct stat status {};
    if (::fstat(handle->get(), &status) != 0) return false;
    folder.device = status.st_dev;
    folder.inode = status.st_ino;
    folder.allocated = status.st_blocks * blockSize;
    return true;
}

bool isStill(const Handle& handle, const WalkFolder& folder) {
    WalkFolder found;
    return identify(handle, found) && found.inode == folder.inode && found.device == folder.device;
}

/// Notices a stop, looking for it now and then only, and shows that the walk goes on.
class StopWatch {
  public:
    explicit StopWatch(const WalkOptions& options) : options_(options) {}
    void countProgress() const {
        if (options_.progress != nullptr) options_.progress->fetch_add(1, std::memory_order_relaxed);
    }
    bool stopsAtNextEntry() {
        if (++entries_ % entriesPerStopCheck != 0) return false;
        countProgress();
        return options_.stop.stop_requested();
    }

  private:
    const WalkOptions& options_;
    unsigned entries_ = 0;
};

/// The threads of one walk and the stack of folders that they share. A folder is read without the lock;
/// taking one and handing in what was read costs one locked step.
class Team {
  public:
    Team(TreeVisitor& visitor, const WalkOptions& options);
    void walk(const std::filesystem::path& root);

  private:
    void work(StopWatch watch);
    std::optional<Task> next(std::unique_lock<std::mutex>& lock);
    void handIn(const std::shared_ptr<WalkFolder>& parent, Reading reading);
    void callHelpers();

    Reading read(Task& task, StopWatch& watch);
    void readEntries(Reading& reading, StopWatch& watch) const;
    Handle reopen(const std::shared_ptr<WalkFolder>& folder);

    TreeVisitor& visitor_;
    const WalkOptions& options_;
    std::shared_ptr<WalkFolder> root_;
    Handle rootHandle_;

    std::mutex mutex_;  // guards what follows, and the visitor's collecting half
    std::condition_variable changed_;
    std::vector<Branch> stack_;
    FolderHandles handles_;
    std::size_t waiting_ = 0;  // sub-folders on the stack
    std::size_t busy_ = 0;     // threads that read one
    bool stopped_ = false;
    unsigned mostHelpers_;
    std::vector<std::jthread> helpers_;
};

unsigned teamSize(unsigned asked) {
    return asked != 0 ? asked : std::clamp(std::thread::hardware_concurrency(), 1U, maxThreads);
}

Team::Team(TreeVisitor& visitor, const WalkOptions& options)
    : visitor_(visitor), options_(options), mostHelpers_(teamSize(options.threads) - 1) {}

void Team::walk(const std::filesystem::path& root) {
    root_ = std::make_shared<WalkFolder>();
    root_->name = root.native();
    rootHandle_ = openFolder(AT_FDCWD, root.c_str());
    if (!rootHandle_ || !identify(rootHandle_, *root_)) return;

    StopWatch watch(options_);
    Reading reading{.folder = root_, .handle = rootHandle_};
    readEntries(reading, watch);
    {
        const std::scoped_lock lock(mutex_);
        ++busy_;
        handIn(nullptr, std::move(reading));
    }
    work(watch);
    helpers_.clear();
}

void Team::work(StopWatch watch) {
    std::unique_lock lock(mutex_);
    while (std::optional<Task> task = next(lock)) {
        lock.unlock();
        Reading reading = read(*task, watch);
        watch.countProgress();
        lock.lock();
        handIn(task->parent, std::move(reading));
    }
}

std::optional<Task> Team::next(std::unique_lock<std::mutex>& lock) {
    changed_.wait(lock, [this] { return stopped_ || waiting_ > 0 || busy_ == 0; });
    if (stopped_ || waiting_ == 0) return std::nullopt;
    ++busy_;
    --waiting_;
    Branch& top = stack_.back();
    Task task{.parent = top.folder, .self = std::move(top.left.back()), .above = handles_.find(*top.folder)};
    top.left.pop_back();
    if (top.left.empty()) {
        handles_.drop(*top.folder);
        stack_.pop_back();
    }
    return task;
}

void Team::handIn(const std::shared_ptr<WalkFolder>& parent, Reading reading) {
    --busy_;
    stopped_ = stopped_ || reading.stopped;
    if (reading.folder) {
        const std::size_t pendingChildren = reading.subFolders.size() + (reading.stopped ? 1 : 0);
        visitor_.addFolder(reading.folder, std::move(reading.totals), pendingChildren);
    } else {
        visitor_.folderSkipped(*parent);
    }
    if (!reading.subFolders.empty()) {
        waiting_ += reading.subFolders.size();
        handles_.keep(reading.folder, std::move(reading.handle));
        stack_.push_back({std::move(reading.folder), std::move(reading.subFolders)});
        callHelpers();
    }
    if (stopped_ || waiting_ > 0 || busy_ == 0) changed_.notify_all();
}

void Team::callHelpers() {
    while (!stopped_ && helpers_.size() < mostHelpers_ &&
           waiting_ >= foldersPerHelper * (helpers_.size() + 1)) {
        try {
            helpers_.emplace_back([this] { work(StopWatch(options_)); });
        } catch (const std::system_error&) {
            mostHelpers_ = static_cast<unsigned>(helpers_.size());  // the machine grants no more
        }
    }
}

Reading Team::read(Task& task, StopWatch& watch) {
    const Handle above = task.above ? std::move(task.above) : reopen(task.parent);
    Handle handle = above ? openFolder(above->get(), task.self.name.c_str()) : nullptr;
    if (!handle) return {};

    auto folder = std::make_shared<WalkFolder>();
    folder->parent = task.parent;
    folder->name = std::move(task.self.name);
    folder->ordinal = task.self.ordinal;
    folder->level = task.parent->level + 1;
    if (!identify(handle, *folder) || folder->isCycle()) return {};

    Reading reading{.folder = std::move(folder), .handle = std::move(handle)};
    if (reading.folder->device == root_->device) readEntries(reading, watch);
    if (reading.subFolders.empty()) reading.handle.reset();
    return reading;
}

void Team::readEntries(Reading& reading, StopWatch& watch) const {
    std::uint64_t ordinal = 0;
    systemFolderReader().read(reading.handle->get(), [&](const FolderEntry& entry) {
        if (entry.kind == FolderEntry::Kind::folder) {
            if (visitor_.enters(entry.name)) reading.subFolders.push_back({std::string(entry.name), ordinal});
        } else if (entry.measured) {
            visitor_.take(entry, ordinal, reading.totals);
        }
        ++ordinal;
        reading.stopped = watch.stopsAtNextEntry();
        return !reading.stopped;
    });
}

/// Opens a folder whose handle gave way again, one name at a time from the nearest ancestor that has one. The
/// handles on the way are kept: the walk comes back through those very folders.
Handle Team::reopen(const std::shared_ptr<WalkFolder>& folder) {
    std::vector<std::shared_ptr<WalkFolder>> way;
    Handle handle;
    {
        const std::scoped_lock lock(mutex_);
        std::shared_ptr<WalkFolder> at = folder;
        while (!(handle = at == root_ ? rootHandle_ : handles_.find(*at))) {
            way.push_back(at);
            at = at->parent;
        }
    }
    for (; !way.empty(); way.pop_back()) {
        handle = openFolder(handle->get(), way.back()->name.c_str());
        if (!handle || !isStill(handle, *way.back())) return nullptr;
        const std::scoped_lock lock(mutex_);
        handles_.keep(way.back(), handle);
    }
    return handle;
}

}  // namespace

bool TreeVisitor::enters(std::string_view /*name*/) const {
    return true;
}

void TreeVisitor::folderSkipped(const WalkFolder& /*parent*/) {}

void walkTree(const std::filesystem::path& root, TreeVisitor& visitor, const WalkOptions& options) {
    Team(visitor, options).walk(root);
}

}  // namespace tavrel
