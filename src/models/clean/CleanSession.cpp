#include "models/clean/CleanSession.h"

#include "models/program/Preferences.h"

#include <utility>

namespace tavrel {

std::optional<CleanReport> CleanSession::begin(std::vector<CleanItem> items, std::string action,
                                               SafetyGuard guard, std::function<void(double)> progress,
                                               CleanRunner::Done<CleanRunner::Report> done) {
    using ProtectedPaths = CleanJob::ProtectedPaths;
    auto job =
        CleanJob::make(std::move(items), std::move(action), std::move(guard), preferences_.values(),
                       preferences_.knowsProtectedPaths() ? ProtectedPaths::known : ProtectedPaths::unknown);
    if (!job) return std::move(job.error());
    job->progress = std::move(progress);
    runner_.clean(std::move(*job), std::move(done));
    return std::nullopt;
}

}  // namespace tavrel
