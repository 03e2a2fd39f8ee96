"""What the checks share: the sources of the project and the libraries that they belong to."""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Each library with those that it may use itself; what these use it may use too.
LIBRARIES = {
    "vlb": [],
    "vlb/parse": ["vlb"],
    "store": ["vlb"],
    "app/options": ["store"],
    "ana/anadat": ["app/options", "ana/decl"],
    "ana/cmdpar": ["ana/anadat", "vlb/parse"],
    "ana/parser": ["ana/cmdpar"],
    "ana/parser/script": ["ana/parser"],
    "ana/parser/doc": ["ana/parser"],
    "ana/parser/pre": ["ana/parser"],
    "ana/parser/cpp": ["ana/parser/pre"],
    "ana/parser/pascal": ["ana/parser/pre"],
    "ana/decl": ["vlb"],
    "ana/comments": ["vlb"],
    "ana/read": ["ana/parser/doc", "ana/parser/cpp", "ana/parser/pascal", "ana/comments",
                 "ana/decl"],
    "ana": ["ana/parser/script", "ana/read"],
    "conv/atc": ["vlb"],
    "conv/vlt": ["conv/atc", "app/options"],
    "conv": ["conv/vlt"],
    "conv/set": ["conv", "ana/comments"],
    "conv/htm": ["conv/set"],
    "conv/rtf": ["conv/set"],
    "app/shell": ["ana", "conv/htm", "conv/rtf"],
    "app/shell/dialogs": ["app/shell"],
    "app/shell/window": ["app/shell"],
    "app/cli": ["app/shell"],
    "app/qt": ["app/shell/dialogs", "app/shell/window"],
}

# Folders beside the libraries, which may use all of them.
FREE = ["tests", "bench", "fuzz"]


def sources(folders, suffixes):
    """All files with one of the suffixes below the folders, as paths relative to the root."""
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in suffixes and path.is_file():
                yield path.relative_to(ROOT)


def top_folders():
    return sorted({name.split("/")[0] for name in LIBRARIES})


def library_of(path):
    """The library that a path belongs to by its folder, or None."""
    for folder in [str(parent) for parent in pathlib.PurePosixPath(path).parents]:
        if folder in LIBRARIES:
            return folder
    return None


def usable(library):
    """The library and all that it may use, directly or not."""
    found = {library}
    for used in LIBRARIES[library]:
        found |= usable(used)
    return found
