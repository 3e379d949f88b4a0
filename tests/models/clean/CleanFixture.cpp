#include "models/clean/CleanFixture.h"

namespace tavrel::testing {

CleanFixture::CleanFixture(const std::string& action, const std::optional<std::string>& settings)
    : defaults(settings ? sandbox.text("settings.plist", *settings) : sandbox.path("settings.plist")),
      preferences(defaults, sandbox.path("home")) {
    const CleanServices services = {
        .clock = clock,
        .preferences = preferences,
        .icons = icons,
        .sounds = sounds,
        .runner = runner,
        .safetyGuard =
            [this](std::vector<std::filesystem::path> extraRoots) {
                return SafetyGuard{
                    sandbox.path("home"), preferences.values().protectedPaths, std::move(extraRoots), {}};
            },
    };
    list = std::make_unique<CleanListModel>(
        action, [this](auto done) { search.begin(std::move(done)); }, services);
}

CleanFixture::~CleanFixture() {
    list.reset();
    if (search.isRunning()) endScan({});
    if (runner.cleaning.isRunning()) runner.report({});
    if (runner.emptying.isRunning()) runner.emptying.end(0);
    clock.drain();
}

void CleanFixture::find(const Items& items) {
    list->scan();
    endScan(items);
}

void CleanFixture::clean(const CleanReport& report) {
    list->clean();
    runner.report(report);
    clock.drain();
}

void CleanFixture::reach(Stage stage) {
    const Items items = {safeItem("/a/selected"), reviewItem("/a/other")};
    if (stage == Stage::Idle) return;
    list->scan();
    if (stage == Stage::Scanning) return;
    endScan(items);
    if (stage == Stage::Ready) return;
    list->clean();
    if (stage == Stage::Cleaning) return;
    runner.report({.skipped = {{items[0], "in use"}}});
    clock.drain();
}

std::vector<std::string> CleanFixture::names(const Items& items) {
    std::vector<std::string> names;
    names.reserve(items.size());
    for (const CleanItem& item : items) names.push_back(item.url.filename().native());
    return names;
}

}  // namespace tavrel::testing
