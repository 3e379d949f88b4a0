#include "cli/Json.h"

#include "cli/Selection.h"
#include "core/Text.h"

#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include <nlohmann/json.hpp>

namespace tavrel::cli::Json {

Value path(const std::filesystem::path& path) {
    return Text::encodePath(path.native());
}

Value item(const CleanItem& item) {
    return {
        {"path", path(item.url)},
        {"size", item.size},
        {"category", CleanCategories::rawValue(item.category)},
        {"risk", rawText(item.risk)},
        {"note", Text::replaceInvalidUtf8(item.note)},
        {"permanent", item.permanent},
        {"requiresAdmin", item.requiresAdmin},
        {"adminCommand", item.rootTool ? Value(item.adminCommand().value_or("")) : Value(nullptr)},
        {"selected", item.isPreselected()},
    };
}

Value items(const std::vector<CleanItem>& items) {
    Value list = Value::array();
    for (const CleanItem& each : items) list.push_back(item(each));
    return list;
}

Value scan(std::string_view mode, const std::vector<CleanItem>& found) {
    return {
        {"mode", mode},
        {"items", items(found)},
        {"total", sizeOf(found)},
        {"selected", sizeOf(Selection::preselected(found))},
    };
}

namespace {

Value refusal(const std::filesystem::path& of, const std::string& reason) {
    return {{"path", path(of)}, {"reason", Text::replaceInvalidUtf8(reason)}};
}

}  // namespace

Value report(const CleanReport& report) {
    Value skipped = Value::array();
    for (const auto& [item, reason] : report.skipped) skipped.push_back(refusal(item.url, reason));
    return {
        {"dryRun", report.dryRun},          {"freed", report.freed}, {"trashed", report.trashed},
        {"removed", items(report.removed)}, {"skipped", skipped},
    };
}

Value runs(const Restorer::Runs& runs) {
    Value list = Value::array();
    for (const Restorer::Run& run : runs) {
        Value items = Value::array();
        for (const Restorer::Item& item : run.items) {
            items.push_back({{"path", path(item.path)}, {"size", item.size}, {"present", item.present}});
        }
        list.push_back({{"id", run.entry.id},
                        {"date", History::dateText(run.entry.date)},
                        {"action", run.entry.action},
                        {"items", std::move(items)}});
    }
    return list;
}

Value restored(const RestoreReport& report) {
    Value back = Value::array();
    for (const auto& each : report.restored) back.push_back(path(each));
    Value skipped = Value::array();
    for (const auto& [of, reason] : report.skipped) skipped.push_back(refusal(of, reason));
    return {{"restored", std::move(back)}, {"skipped", std::move(skipped)}};
}

Value preference(const UserDefaults::Value& value) {
    return std::visit(
        [](const auto& stored) -> Value {
            if constexpr (std::is_same_v<std::decay_t<decltype(stored)>, Instant>) {
                return nullptr;  // no preference is a date
            } else {
                return stored;
            }
        },
        value);
}

}  // namespace tavrel::cli::Json
