#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the pictures of a tour are said to show what their names promise.

check_tour.py FOLDER LOOK   reads FOLDER/captions-LOOK.txt; exit code 1 when a page is missing, is not the one of its
                            name, or has another language, unit system or size
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LINE_OF_CAPTION = 24

# What a name ends with: language, unit system and size of the window.
LOOKS = {
    "": ("en", "iso", (1600, 1000)),
    "_narrow": ("en", "iso", (1024, 768)),
    "_wide": ("en", "iso", (2560, 1400)),
    "_us_units": ("en", "us", (1600, 1000)),
    "_german": ("de", "iso", (1600, 1000)),
    "_german_narrow": ("de", "iso", (1024, 768)),
    "_german_wide": ("de", "iso", (2560, 1400)),
    "_french": ("fr", "iso", (1600, 1000)),
    "_french_narrow": ("fr", "iso", (1024, 768)),
    "_french_wide": ("fr", "iso", (2560, 1400)),
}


def titles():
    """The title of each page by its name, as its module says."""
    found = {}
    for source in sorted((ROOT / "app/modules").glob("*_module.cpp")):
        text = source.read_text(encoding="utf-8")
        found.update(re.findall(r'\{\.id = "(\w+)",\s*\.title = wxTRANSLATE\("([^"]+)"\)', text))
    return found


def translations(language):
    if language == "en":
        return {}
    text = (ROOT / f"resources/i18n/{language}.po").read_text(encoding="utf-8")
    return dict(re.findall(r'^msgid "(.+)"\nmsgstr "(.+)"$', text, re.MULTILINE))


def size_of(picture):
    head = picture.read_bytes()[:24]
    return int.from_bytes(head[16:20], "big"), int.from_bytes(head[20:24], "big")


def check(folder, look):
    lines = (folder / f"captions-{look}.txt").read_text(encoding="utf-8").splitlines()
    captions = dict(line.split("\t") for line in lines)
    modules = titles()
    if len(modules) < 8:
        return ["the titles of the pages were not found"]
    problems = []
    # A display has room for all wide windows or for none.
    has_wide = any(name.endswith("_wide") for name in captions)
    for suffix, (language, units, (width, height)) in LOOKS.items():
        words = translations(language)
        for module, title in modules.items():
            name = f"module_{module}{suffix}"
            caption = captions.pop(name, None)
            if caption is None:
                if has_wide or not suffix.endswith("_wide"):
                    problems.append(f"{name}: no picture")
                continue
            wanted = f"{words.get(title, title)} | {language} | {units} | {width} x {height}"
            if caption != wanted:
                problems.append(f"{name}: is said to show \"{caption}\", not \"{wanted}\"")
            # The window has menus and bars beside what it was asked to have.
            real = size_of(folder / f"{name}-{look}.png")
            if real[0] != width or real[1] < height + LINE_OF_CAPTION:
                problems.append(f"{name}: {real[0]} x {real[1]} pixels")
    problems += [f"{name}: no known page or look" for name in captions if name.startswith("module_")]
    return problems


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    problems = check(Path(sys.argv[1]), sys.argv[2])
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
