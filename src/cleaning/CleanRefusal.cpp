#include "cleaning/CleanRefusal.h"

#include "core/Text.h"

namespace tavrel {

CleanReport refusalWithoutProtectedPaths(const std::vector<CleanItem>& items) {
    CleanReport report;
    report.skipped.reserve(items.size());
    for (const CleanItem& item : items) {
        report.skipped.push_back({item, Text::localized("the protected folders cannot be read")});
    }
    return report;
}

}  // namespace tavrel
