#include "profiles/linux/LinuxTables.h"

namespace tavrel {

/// A row is safe where the tool's own clean command would remove the same, and where nothing in the folder
/// can be the only copy of something: settings, chosen options, released builds, records of measurements.
/// Rows for one folder go from the certain to the general; the last one, by little more than the name, is for
/// review.
ProjectPurger::Tables Linux::projects() {
    using enum Risk;
    using ProjectPurger::Artifact;
    // clang-format off
    std::vector<Artifact> rows = {
        {"node_modules",  {"package.json"},                                        safe,   "npm install restores it"},
        {".next",         {"package.json"},                                        safe,   "Next.js build cache"},
        {".nuxt",         {"package.json"},                                        safe,   "Nuxt build cache"},
        {".svelte-kit",   {"package.json"},                                        safe,   "SvelteKit output"},
        {".turbo",        {"package.json", "turbo.json"},                          review, "Turborepo cache, with the link to a remote one", {"config.json"}},
        {".turbo",        {"package.json", "turbo.json"},                          safe,   "Turborepo cache"},
        {".parcel-cache", {"package.json"},                                        safe,   "Parcel cache"},
        {".angular",      {"angular.json"},                                        safe,   "Angular cache"},
        {"dist",          {"package.json"},                                        review, "Build output"},
        {"coverage",      {"package.json"},                                        safe,   "Test coverage report", {"lcov.info", "lcov-report", "coverage-final.json", "coverage-summary.json", "clover.xml"}},
        {".expo",         {"app.json", "app.config.js", "app.config.ts"},          safe,   "Expo cache"},
        {".cache",        {"gatsby-config.js", "gatsby-config.ts"},                safe,   "Gatsby cache"},
        {".output",       {"nuxt.config.ts", "nuxt.config.js", "app.config.ts"},   review, "Nuxt/Nitro build output"},
        {"target",        {"Cargo.toml"},                                          review, "Rust build output, with the history of benchmarks", {"criterion"}},
        {"target",        {"Cargo.toml"},                                          safe,   "Rust build output", {"CACHEDIR.TAG", ".rustc_info.json"}},
        {"target",        {"pom.xml"},                                             safe,   "Maven build output", {"maven-status", "maven-archiver", "classes"}},
        {"target",        {"Cargo.toml", "pom.xml"},                               review, "Rust/Maven build output"},
        {".build",        {"Package.swift"},                                       safe,   "SwiftPM build output"},
        {"Pods",          {"Podfile"},                                             review, "pod install restores it"}, // on a Mac
        {"DerivedData",   {},                                                      review, "Xcode build output inside the project"},
        {"build",         {"build.gradle", "build.gradle.kts", "pubspec.yaml"},    review, "Build output, perhaps with released packages", {"outputs", "libs", "distributions", "app"}},
        {"build",         {"build.gradle", "build.gradle.kts", "pubspec.yaml"},    safe,   "Gradle/Flutter build output", {"tmp", "classes", "intermediates", "kotlin", ".last_build_id"}},
        {"build",         {"build.gradle", "build.gradle.kts", "pubspec.yaml"},    review, "Gradle/Flutter build output"},
        {"build",         {"CMakeLists.txt"},                                      review, "CMake build output; holds the chosen options", {"CMakeCache.txt"}},
        {"build",         {"meson.build"},                                         review, "Meson build output; holds the chosen options", {"meson-private"}},
        {"builddir",      {"meson.build"},                                         review, "Meson build output; holds the chosen options", {"meson-private"}},
        // Programs that an IDE starts work in these, and leave their files here.
        {"cmake-build-debug",          {"CMakeLists.txt"},                         review, "CMake build output; holds the chosen options", {"CMakeCache.txt"}},
        {"cmake-build-release",        {"CMakeLists.txt"},                         review, "CMake build output; holds the chosen options", {"CMakeCache.txt"}},
        {".gradle",       {"build.gradle", "build.gradle.kts", "settings.gradle", "settings.gradle.kts"}, review, "Gradle's home for this project, with settings", {"gradle.properties", "init.d", "init.gradle", "init.gradle.kts"}},
        {".gradle",       {"build.gradle", "build.gradle.kts", "settings.gradle", "settings.gradle.kts"}, safe, "Per-project Gradle cache"},
        {".dart_tool",    {"pubspec.yaml"},                                        safe,   "Dart tool cache"},
        {".venv",         {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"venv",          {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"env",           {},                                                      review, "Virtualenv; recreate it to run the project", {"pyvenv.cfg"}},
        {"ENV",           {},                                                      review, "Virtualenv; recreate it to run the project", {"pyvenv.cfg"}},
        {"__pycache__",   {},                                                      safe,   "Python bytecode", {}, {".pyc", ".pyo", ".nbi", ".nbc"}}, // Numba's too
        {".pytest_cache", {},                                                      safe,   "pytest cache", {"CACHEDIR.TAG"}},
        {".pytest_cache", {},                                                      review, "pytest cache"},
        {".mypy_cache",   {},                                                      safe,   "mypy cache", {"CACHEDIR.TAG"}},
        {".mypy_cache",   {},                                                      review, "mypy cache"},
        {".ruff_cache",   {},                                                      safe,   "Ruff cache", {"CACHEDIR.TAG"}},
        {".ruff_cache",   {},                                                      review, "Ruff cache"},
        {".tox",          {"tox.ini"},                                             safe,   "tox environments"},
        {".nox",          {"noxfile.py"},                                          safe,   "nox environments"},
        // Without the lock other versions come back, and without the loader it is somebody's own folder.
        {"vendor",        {"composer.lock"},                                       safe,   "composer install restores it", {"autoload.php"}},
        {"vendor",        {"composer.json"},                                       review, "composer install restores it"},
        {"zig-out",       {"build.zig"},                                           review, "Zig build output"},
        {".zig-cache",    {"build.zig"},                                           safe,   "Zig cache"},
        {".terraform",    {"*.tf", "*.tf.json"},                                   review, "Terraform providers; may hold the only record of the backend"},
        {"obj",           {"*.csproj", "*.fsproj", "*.vbproj"},                    safe,   ".NET intermediate output", {"project.assets.json"}},
        {"bin",           {"*.csproj", "*.fsproj", "*.vbproj"},                    review, ".NET build output, perhaps with tools of your own"},
    };
    // clang-format on
    return {.artifacts = std::move(rows),
            .strays = {".DS_Store", "Thumbs.db"},
            .activity = ProjectPurger::Tables::Activity::sources,
            .notes = ProjectPurger::Tables::Notes::project};
}

}  // namespace tavrel
