#include "cleaning/CleanJob.h"

#include "core/Text.h"

#include <utility>

namespace tavrel {

tl::expected<CleanJob, CleanReport> CleanJob::make(std::vector<CleanItem> items, std::string action,
                                                   SafetyGuard guard, const PreferenceValues& preferences,
                                                   ProtectedPaths protectedPaths) {
    if (protectedPaths == ProtectedPaths::unknown && !preferences.dryRun) {
        CleanReport refusal;
        refusal.skipped.reserve(items.size());
        for (CleanItem& item : items) {
            refusal.skipped.push_back(
                {std::move(item), Text::localized("the protected folders cannot be read")});
        }
        return tl::unexpected(std::move(refusal));
    }
    return CleanJob{
        .items = std::move(items),
        .action = std::move(action),
        .guard = std::move(guard),
        .options = {.dryRun = preferences.dryRun, .alwaysTrash = preferences.alwaysTrash},
        .progress = {},
    };
}

CleanReport CleanJob::run(const Cleaner& cleaner) const {
    const auto none = [](double) {};
    return cleaner.clean(items, action, guard, options, progress ? progress : none);
}

}  // namespace tavrel
