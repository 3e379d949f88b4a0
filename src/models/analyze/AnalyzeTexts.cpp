#include "models/analyze/AnalyzeTexts.h"

#include "core/ByteCount.h"
#include "core/Paths.h"
#include "core/Phrase.h"

namespace tavrel::AnalyzeTexts {

std::string folderTitle(const std::filesystem::path& folder, const std::filesystem::path& root) {
    return folder == root ? Text::localized("Whole disk") : Text::escapedForDisplay(Paths::name(folder));
}

std::string items(std::size_t count) {
    return counted("{} item", "{} items", count);
}

std::string measuring(std::size_t pending) {
    return counted("Measuring {} item…", "Measuring {} items…", pending);
}

std::string selection(std::size_t count, std::int64_t bytes) {
    return phrase("{} selected · {}", count, byteCount(bytes));
}

std::string question(std::size_t count, std::int64_t bytes) {
    return counted("Move {} item ({}) to the Trash?", "Move {} items ({}) to the Trash?", count,
                   byteCount(bytes));
}

std::string removal(const CleanReport& report) {
    const std::size_t count = report.removed.size();
    std::string text = report.dryRun
                           ? counted("Preview: {} item, {} would be freed",
                                     "Preview: {} items, {} would be freed", count, byteCount(report.freed))
                           : phrase("{} moved to the Trash", count);
    if (!report.skipped.empty()) text += phrase(" · {} skipped", report.skipped.size());
    return text;
}

}  // namespace tavrel::AnalyzeTexts
