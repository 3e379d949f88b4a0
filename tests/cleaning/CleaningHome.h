#pragma once

#include "cleaning/RemovalSandbox.h"
#include "models/clean/BackgroundCleaner.h"
#include "platform/FolderAccess.h"
#include "support/EventLoop.h"
#include "support/FakeAdministrator.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace tavrel::testing {

/// A home with a Trash, and the cleaner that works in it on a thread of its own.
class CleaningHome {
  public:
    explicit CleaningHome(std::unique_ptr<Trash> own = nullptr)
        : trash(own ? std::shared_ptr<Trash>(std::move(own))
                    : makeTrash(Layout::freedesktop, systemFolderAccess(), stage.home())),
          cleaner(std::make_unique<BackgroundCleaner>(
              Cleaner::Tools{.access = systemFolderAccess(),
                             .trash = *trash,
                             .administrator = administrator,
                             .systemRoots = {stage.sandbox.path("system")},
                             .history = stage.sandbox.path("support/history.json"),
                             .now = [] { return now(); }},
              trash)) {}

    /// A file below the home that goes to the Trash when it is removed.
    [[nodiscard]] CleanItem item(const std::string& name) const {
        return {
            .url = stage.sandbox.file("home/" + name, 10), .size = 10, .category = CleanCategory::installers};
    }
    [[nodiscard]] CleanJob job(
        std::vector<CleanItem> items, std::function<void(double)> progress = [](double) {}) const {
        return {.items = std::move(items),
                .action = "installers",
                .guard = stage.guard(),
                .options = {},
                .progress = std::move(progress)};
    }

    /// A whole clean; nullptr when it does not end.
    [[nodiscard]] CleanRunner::Report clean(std::vector<CleanItem> items) const {
        auto report = std::make_shared<CleanRunner::Report>();
        cleaner->clean(job(std::move(items)),
                       [report](CleanRunner::Report told) { *report = std::move(told); });
        return waitUntil([&] { return *report != nullptr; }) ? *report : nullptr;
    }

    RemovalSandbox stage;
    std::shared_ptr<Trash> trash;
    FakeAdministrator administrator;
    std::unique_ptr<BackgroundCleaner> cleaner;
};

}  // namespace tavrel::testing
