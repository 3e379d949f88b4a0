#include "profiles/macos/MacTables.h"

namespace tavrel {

ProjectPurger::Tables Mac::projects() {
    using enum Risk;
    using ProjectPurger::Artifact;
    // clang-format off
    std::vector<Artifact> rows = {
        {"node_modules",  {"package.json"},                                        safe,   "npm install restores it"},
        {".next",         {"package.json"},                                        safe,   "Next.js build cache"},
        {".nuxt",         {"package.json"},                                        safe,   "Nuxt build cache"},
        {".svelte-kit",   {"package.json"},                                        safe,   "SvelteKit output"},
        {".turbo",        {"package.json", "turbo.json"},                          safe,   "Turborepo cache"},
        {".parcel-cache", {"package.json"},                                        safe,   "Parcel cache"},
        {".angular",      {"angular.json"},                                        safe,   "Angular cache"},
        {"dist",          {"package.json"},                                        review, "Build output"},
        {"target",        {"Cargo.toml", "pom.xml"},                               safe,   "Rust/Maven build output"},
        {".build",        {"Package.swift"},                                       safe,   "SwiftPM build output"},
        {"Pods",          {"Podfile"},                                             safe,   "pod install restores it"},
        {"build",         {"build.gradle", "build.gradle.kts", "pubspec.yaml"},    safe,   "Gradle/Flutter build output"},
        {".gradle",       {"build.gradle", "build.gradle.kts", "settings.gradle"}, safe,   "Per-project Gradle cache"},
        {".dart_tool",    {"pubspec.yaml"},                                        safe,   "Dart tool cache"},
        {".venv",         {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"venv",          {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"__pycache__",   {},                                                      safe,   "Python bytecode"},
        {".pytest_cache", {},                                                      safe,   "pytest cache"},
        {".mypy_cache",   {},                                                      safe,   "mypy cache"},
        {".ruff_cache",   {},                                                      safe,   "Ruff cache"},
        {"vendor",        {"composer.json"},                                       safe,   "composer install restores it"},
        {"zig-out",       {"build.zig"},                                           safe,   "Zig build output"},
        {".zig-cache",    {"build.zig"},                                           safe,   "Zig cache"},
        {".output",       {"nuxt.config.ts", "nuxt.config.js", "app.config.ts"},   safe,   "Nuxt/Nitro build output"},
        {".expo",         {"app.json", "app.config.js", "app.config.ts"},          safe,   "Expo cache"},
        {".cache",        {"gatsby-config.js", "gatsby-config.ts"},                safe,   "Gatsby cache"},
        {"coverage",      {"package.json"},                                        safe,   "Test coverage report"},
        {".tox",          {"tox.ini"},                                             safe,   "tox environments"},
        {".nox",          {"noxfile.py"},                                          safe,   "nox environments"},
        {"DerivedData",   {},                                                      safe,   "Xcode build output inside the project"},
    };
    // clang-format on
    return {.artifacts = std::move(rows)};
}

}  // namespace tavrel
