#include "cleaning/RealHome.h"

#include "cleaning/TrashNote.h"
#include "core/Quoting.h"

#include <cstdlib>
#include <stdexcept>

namespace tavrel::testing {

namespace fs = std::filesystem;

namespace {

constexpr double oldFolder = 300;

}

RealHome::RealHome(const std::vector<Promise>& promises) {
    disk.folder("home/ana");
    applications();
    profiles();
    for (const Promise& promise : promises) lay(promise);
    projects();
}

RealHome::Path RealHome::at(const std::string& path) const {
    const Path whole = home() / path;
    return whole.has_filename() ? whole : whole.parent_path();
}

void RealHome::write(const std::string& path, std::string_view content) const {
    Sandbox::date(disk.text("home/ana/" + path, content), daysAgo(oldFolder));
}

void RealHome::lay(const Promise& promise) const {
    const std::string path = promise.path;
    const Path file = path.ends_with('/') ? home() / path / "content" : home() / path;
    if (!fs::exists(file)) disk.file(file.lexically_relative(disk.root()), 70000);
    Sandbox::date(at(path), daysAgo(oldFolder));  // its content tells how old it is
    Sandbox::date(file, daysAgo(promise.age));
    if (path.starts_with(".local/share/Trash/files/"))
        write(".local/share/Trash/info/" + TrashNote::nameFor(file.filename()),
              "[Trash Info]\nPath=/x\nDeletionDate=" + noteDate(localTime(daysAgo(promise.age))) + "\n");
}

/// What the menu starts: programs of the system and an application in one file.
void RealHome::applications() const {
    const auto entry = [&](const std::string& name, const std::string& command) {
        disk.text("usr/share/applications/" + name + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + command + " %U\n");
    };
    entry("org.example.Spotify", "spotify");
    entry("firefox-esr", "/usr/lib/firefox-esr/firefox-esr");
    entry("editor", "\"" + (home() / "Downloads/Editor.AppImage").native() + "\"");
    const std::string image = std::string(
        "\x7f"
        "ELF\x02\x01\x01\0AI\x02",
        11);
    for (const char* name : {"Editor", "Other"})
        write(std::string("Downloads/") + name + ".AppImage", image + std::string(70000, 'x'));
}

/// Profiles as browsers and tools leave them, some with the lock of a program that runs.
void RealHome::profiles() const {
    write(".config/mozilla/firefox/profiles.ini", "[Profile0]\nName=default\nIsRelative=1\nPath=k3.locked\n");
    for (const char* name : {"k3.locked", "k4.idle"}) {
        write(std::string(".config/mozilla/firefox/") + name + "/cookies.sqlite", "c");
        write(std::string(".config/mozilla/firefox/") + name + "/.parentlock", "");
    }
    disk.link("home/ana/.config/mozilla/firefox/k3.locked/lock", "127.0.1.1:+1");
    disk.link("home/ana/.config/chromium/SingletonLock", "another-host-77");
    write(".config/chromium/Default/Cookies", "c");
    write(".ccache/ccache.conf", "max_size = 3G\n");
    write(".cache/tagged/CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc55\n");
    write("core", std::string("\x7f"
                              "ELF") +
                      std::string(70000, 'x'));
}

/// Projects that nobody has touched for long, in repositories that git made.
void RealHome::projects() const {
    const std::string script =
        "set -e; cd " + Quoting::shell((home() / "code").native()) +
        "; export HOME=$PWD GIT_CONFIG_NOSYSTEM=1; exec >/dev/null; "
        "for p in tracked plain; do (cd $p; echo {} >package.json; git init -q; [ $p = tracked ] || "
        "echo node_modules >.gitignore; git add -A; git -c user.name=a -c user.email=a@b commit -qm c); "
        "done; "
        "echo patch >>tracked/node_modules/content; (cd tool; touch Cargo.toml; mkdir -p src/deep; "
        "touch src/deep/new.rs target/CACHEDIR.TAG); "
        "find tracked plain -exec touch -hd '-200 days' {} +; find tool -path tool/src -prune -o -exec touch "
        "-hd '-200 days' {} +";
    if (std::system(("sh -c " + Quoting::shell(script)).c_str()) != 0)
        throw std::runtime_error("git cannot make repositories");
}

}  // namespace tavrel::testing
