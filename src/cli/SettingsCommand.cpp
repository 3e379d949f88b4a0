#include "cli/AddCommand.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "cli/PreferenceText.h"
#include "cli/Session.h"
#include "core/Files.h"
#include "core/Phrase.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;

bool isKnown(std::string_view key) {
    const auto keys = PreferenceValues::keys();
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

Json::Value effective(const Session& session, std::string_view key) {
    const auto value = session.preferences().value(key);
    return value ? Json::preference(*value) : Json::Value(nullptr);
}

/// A value for reading: each entry of a list on a line of its own.
std::vector<std::string> linesFor(const Json::Value& value) {
    if (!value.is_array()) return {Text::escapedForDisplay(value.dump())};
    if (value.empty()) return {localized("none")};
    std::vector<std::string> lines;
    lines.reserve(value.size());
    for (const Json::Value& entry : value) lines.push_back(Text::escapedForDisplay(entry.get<std::string>()));
    return lines;
}

void printAll(const Session& session, Console& console) {
    Json::Value all = Json::Value::object();
    std::size_t widest = 0;
    for (const std::string_view key : PreferenceValues::keys()) {
        all[std::string(key)] = effective(session, key);
        widest = std::max(widest, key.size());
    }
    if (console.json()) return console.document(all);
    for (const auto& [key, value] : all.items()) {
        const std::vector<std::string> lines = linesFor(value);
        console.line(fmt::format("{:<{}}  {}", key, widest, lines.front()));
        for (std::size_t i = 1; i < lines.size(); ++i) console.line(std::string(widest + 2, ' ') + lines[i]);
    }
}

void printOne(const Session& session, const std::string& key, Console& console) {
    const Json::Value value = effective(session, key);
    if (console.json()) return console.document(value);
    console.line(Text::escapedForDisplay(value.dump()));
}

/// Makes room for a file that can be written again, and tells where the old one went.
std::optional<std::string> setDamagedAside(Session& session, Console& console) {
    if (session.defaults().state() != UserDefaults::State::damaged) return std::nullopt;
    const auto file = session.defaults().file();
    const auto aside = Files::setAside(file);
    if (!aside)
        return phrase("the settings in {} can be neither read nor moved",
                      Text::escapedForDisplay(file.native()));
    console.warn(phrase("the settings could not be read; they were set aside as {}",
                        Text::escapedForDisplay(aside->native())));
    session.refresh();
    return std::nullopt;
}

int change(Session& session, const std::string& key, const std::string& text, Console& console) {
    const auto value = PreferenceText::parse(key, text);
    if (!value) return console.misuse(phrase("{}: {}", key, value.error()));
    if (const auto problem = setDamagedAside(session, console)) return console.fail(*problem);
    if (const auto error = session.defaults().set(key, *value)) {
        return console.fail(phrase("the settings in {} cannot be written: {}",
                                   Text::escapedForDisplay(session.defaults().file().native()),
                                   error.message()));
    }
    session.refresh();
    printOne(session, key, console);
    return ExitStatus::done;
}

struct SettingsCommand {
    std::string key;
    std::optional<std::string> value;

    void addTo(Syntax& syntax) {
        const auto name = syntax.value("KEY", "", &key, localized("the setting"));
        syntax.value("VALUE", "", &value, localized("its new value; lists as JSON")).needs(name);
    }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        if (!key.empty() && !isKnown(key))
            return console.misuse(phrase("\"{}\" is no setting", Text::escapedForDisplay(key)));
        auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        if (value) return change(*session, key, *value, console);
        session->warnOfSettings(console);
        if (key.empty()) {
            printAll(*session, console);
        } else {
            printOne(*session, key, console);
        }
        return ExitStatus::done;
    }
};

}  // namespace

void Commands::addSettings(CLI::App& app, Command& chosen) {
    addCommand<SettingsCommand>(app, chosen, "settings", "read and change what the user chose");
}

}  // namespace tavrel::cli
