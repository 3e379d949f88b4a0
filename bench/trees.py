"""The trees that are measured. All are the same on every machine: names, shapes and sizes come from a fixed seed."""

import os
import random
from pathlib import Path

CONTENT = b"x" * 20_000
TOP_FOLDERS = 20
SIZES = (0, 10, 1000, 5000)


def fill(folder, files, sizes):
    """Writes `files` files into a folder; the sizes take turns."""
    handle = os.open(folder, os.O_RDONLY)
    for at in range(files):
        file = os.open(f"file-{at:04}.dat", os.O_CREAT | os.O_WRONLY, dir_fd=handle)
        os.write(file, CONTENT[: sizes[at % len(sizes)]])
        os.close(file)
    os.close(handle)


def broad(root, folders, files):
    """Folders spread over the levels 1 to 6, most at 3 to 6, each with `files` files."""
    choose = random.Random(1)
    levels = [[root]] + [[] for _ in range(6)]
    for at in range(folders):
        if at < TOP_FOLDERS:
            level = 1
        elif at < 20 * TOP_FOLDERS:
            level = 2
        else:
            level = choose.choice([depth for depth in (3, 4, 5, 6) if levels[depth - 1]])
        folder = choose.choice(levels[level - 1]) / f"folder-{at}"
        folder.mkdir(parents=True)
        levels[level].append(folder)
        fill(folder, files, SIZES)


def vast(root, files):
    """A hundred folders with `files` files on four levels, forty in each of the folders below; many are empty."""
    root.mkdir()
    levels = [[f"top-{at:03}" for at in range(100)]]
    for folders in (1000, 10_000, files // 40 - 11_100):
        above = levels[-1]
        levels.append([f"{above[at % len(above)]}/folder-{at:05}" for at in range(folders)])
    for folder in (folder for level in levels for folder in level):
        os.mkdir(root / folder)
        fill(root / folder, 40, (0, 0, 0, 100))


def wide(root, things):
    """One folder of things, files and folders by turns of two; each folder holds another one."""
    root.mkdir()
    for at in range(things):
        path = root / f"{'folder' if at % 4 < 2 else 'file'}-{at:06}"
        if at % 4 < 2:
            (path / "inner").mkdir(parents=True)
        else:
            path.touch()


def chain(root, depth):
    """One folder in the other, far past what a path can name, with a file in each."""
    root.mkdir()
    at = os.open(root, os.O_RDONLY)
    for level in range(depth):
        name = f"level-{level}"
        os.mkdir(name, dir_fd=at)
        inner = os.open(name, os.O_RDONLY, dir_fd=at)
        os.close(os.open("file", os.O_CREAT | os.O_WRONLY, dir_fd=inner))
        os.close(at)
        at = inner
    os.close(at)


def cache_home(home, files):
    """A home whose caches hold `files` files in folders of a hundred. Gives the files' allocated bytes."""
    programs = ("gstreamer-1.0", "thumbnails", "fontconfig", "mesa_shader_cache", "pip", "yarn", "gnome-software", "babl")
    folders = files // 100
    for at in range(folders):
        folder = home / ".cache" / programs[at % len(programs)] / f"{at % 64:02x}" / f"part-{at}"
        folder.mkdir(parents=True)
        fill(folder, 100, SIZES)
    return allocated(home / ".cache")


def projects(root, count, files):
    """Projects with what a package manager put beside them: `files` files each in packages of fifteen."""
    for at in range(count):
        project = root / f"group-{at % 10}" / f"project-{at}"
        (project / "src").mkdir(parents=True)
        (project / "package.json").write_text("{}\n")
        fill(project / "src", 5, SIZES)
        for package in range(files // 15):
            folder = project / "node_modules" / f"package-{package}" / "lib"
            folder.mkdir(parents=True)
            fill(folder, 15, SIZES)


def allocated(root: Path):
    """What the files below `root` occupy."""
    return sum(
        os.lstat(os.path.join(folder, name)).st_blocks * 512
        for folder, _, names in os.walk(root)
        for name in names
    )
