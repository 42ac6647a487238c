#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the user guide is the same book in every language and that all of its links lead somewhere.

check_guide.py [FOLDER]    FOLDER is resources/help; lists every fault, exit code 1 when there is one
check_guide.py --self-test checks the checker

Faults are: a page or an anchor that the book of one language has and another has not; contents or an index that leads
to other places than the English ones; a link, in a page, the contents, the index or the code, to a page or an anchor
that is not there, or to an anchor ahead of its heading, where the help window does not find it; a page that the
contents do not lead to; a command of a menu that the menus of that language do not have.
"""
import html
import re
import shutil
import sys
import tempfile
from pathlib import Path

from check_catalogues import MENU_TEXT, MENUS, ROOT, compiled, translations_of

HELP_PAGE = re.compile(r'(?:helpPage = |k\w*HelpPage = |DisplayHelpSection\()"([^"]+)"')
# "File &gt; Save as..." in bold or italics or alone in a cell, "Edit, Undo" in italics.
COMMAND = re.compile(r">([^\W\d][^<>&]*) &gt; ([^\W\d][^<>&]*)<")


def pages_of(folder):
    return {path.name: path.read_text(encoding="utf-8") for path in sorted(folder.glob("*.htm*"))}


def anchors_of(text):
    return set(re.findall(r'<a\s+name="([^"]*)"', text))


def places_of(folder, name):
    path = folder / name
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    return re.findall(r'name="Local" value="([^"]*)"', text)


def is_there(target, page, pages):
    name, _, anchor = target.partition("#")
    name = name or page
    return name in pages and (not anchor or anchor in anchors_of(pages[name]))


def faults_of_links(folder, where):
    pages = pages_of(folder)
    for page, text in pages.items():
        for anchor in re.findall(r'<a\s+name="([^"]*)"></a>\s*<h', text):
            yield f"{where}{page}#{anchor}: stands ahead of its heading"
        for target in re.findall(r'<a\s+href="([^"]*)"', text):
            if not is_there(target, page, pages):
                yield f"{where}{page}: no place {target}"
    for list_name in ("tarnvik.hhc", "tarnvik.hhk"):
        for target in places_of(folder, list_name):
            if not is_there(target, "", pages):
                yield f"{where}{list_name}: no place {target}"
    reached = {target.partition("#")[0] for target in places_of(folder, "tarnvik.hhc")}
    for page in sorted(set(pages) - reached):
        yield f"{where}{page}: the contents do not lead there"


def faults_of_language(english, folder):
    where = folder.name + "/"
    ours, theirs = pages_of(english), pages_of(folder)
    for page in sorted(set(ours) ^ set(theirs)):
        yield f"{where}{page}: only one of both languages has it"
    for page in sorted(set(ours) & set(theirs)):
        for anchor in sorted(anchors_of(ours[page]) ^ anchors_of(theirs[page])):
            yield f"{where}{page}#{anchor}: only one of both languages has it"
    for list_name in ("tarnvik.hhc", "tarnvik.hhk"):
        if sorted(places_of(english, list_name)) != sorted(places_of(folder, list_name)):
            yield f"{where}{list_name}: leads to other places than the English one"
    if not (folder / "tarnvik.hhp").exists():
        yield f"{where}tarnvik.hhp: is missing"


def plain(name):
    return re.sub(r"\s*\.\.\.$", "", name.replace("&", "")).strip()


def faults_of_commands(folder, where, menu_names):
    for page, text in pages_of(folder).items():
        for path in COMMAND.findall(re.sub(r"\s+", " ", text)):
            for name in path:
                if plain(html.unescape(name)) not in menu_names:
                    yield f"{where}{page}: the menus have no '{html.unescape(name)}'"


def check(english, menu_code, catalogues, code_links):
    """catalogues: translations of each language, by its code."""
    sources = MENU_TEXT.findall(menu_code)
    faults = list(faults_of_links(english, ""))
    faults += faults_of_commands(english, "", {plain(source) for source in sources})
    pages = pages_of(english)
    faults += [f"the code leads to {target}" for target in sorted(code_links) if not is_there(target, "", pages)]
    for language, texts in sorted(catalogues.items()):
        folder = english / language
        if not folder.is_dir():
            faults.append(f"{language}: no guide in this language")
            continue
        faults += faults_of_language(english, folder)
        faults += faults_of_links(folder, language + "/")
        faults += faults_of_commands(folder, language + "/", {plain(texts.get(source, source)) for source in sources})
    return faults


def links_of_code():
    links = set()
    for folder in ("app", "modules", "platform"):
        for path in sorted((ROOT / folder).rglob("*.cpp")) + sorted((ROOT / folder).rglob("*.h")):
            links.update(HELP_PAGE.findall(path.read_text(encoding="utf-8")))
    return links


CONTENTS = ('<object type="text/sitemap"><param name="Name" value="A"><param name="Local" value="a.html"></object>\n'
            '<object type="text/sitemap"><param name="Name" value="B"><param name="Local" value="b.html#x"></object>\n')


def write_book(folder, menu):
    folder.mkdir(parents=True)
    (folder / "a.html").write_text(f'<a href="b.html#x">x</a><b>{menu} &gt; {menu}...</b>')
    (folder / "b.html").write_text('<h2><a name="x"></a>X</h2><a href="#x">x</a>')
    for name in ("tarnvik.hhc", "tarnvik.hhk"):
        (folder / name).write_text(CONTENTS)
    (folder / "tarnvik.hhp").write_text("[OPTIONS]\n")


def self_test():
    def edit(name, old, new):
        def change(root):
            text = (root / name).read_text()
            assert old in text
            (root / name).write_text(text.replace(old, new))
        return change

    cases = [
        ("complete", lambda root: None, 0),
        ("a lost page", lambda root: (root / "xx/b.html").unlink(), 4),
        ("a lost anchor", edit("xx/b.html", 'name="x"', 'name="y"'), 6),
        ("a broken link", edit("xx/a.html", "b.html#x", "c.html"), 1),
        ("a broken link in English", edit("a.html", "b.html#x", "#y"), 1),
        ("an anchor ahead", edit("xx/b.html", '<h2><a name="x"></a>', '<a name="x"></a><h2>'), 1),
        ("other contents", edit("xx/tarnvik.hhc", "b.html#x", "b.html"), 1),
        ("an index to nowhere", edit("xx/tarnvik.hhk", "b.html#x", "b.html#z"), 2),
        ("an English command", edit("xx/a.html", "Datei &gt;", "File &gt;"), 1),
        ("a lost book", lambda root: shutil.rmtree(root / "xx"), 1),
        ("a page out of the contents", lambda root: [(root / folder / "n.html").write_text("n") for folder in (".", "xx")], 2),
    ]
    bad = []
    for name, change, expected in cases:
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder) / "help"
            write_book(root, "File")
            write_book(root / "xx", "Datei")
            change(root)
            faults = check(root, 'wxTRANSLATE("&File")', {"xx": {"&File": "&Datei"}}, {"b.html#x"})
            if len(faults) != expected:
                bad.append(f"{name}: {faults}")
            if len(check(root, 'wxTRANSLATE("&File")', {}, {"b.html#no"})) == len(
                    check(root, 'wxTRANSLATE("&File")', {}, set())):
                bad.append(f"{name}: a link of the code")
    print("\n".join(bad) or "the checker finds its faults")
    return 1 if bad else 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "resources/help")
    catalogues = {path.stem: translations_of(compiled(path)) for path in sorted((ROOT / "resources/i18n").glob("*.po"))}
    links = links_of_code()
    if len(links) < 10:
        sys.exit("check_guide.py: the links of the code are not found")
    faults = check(folder, MENUS.read_text(encoding="utf-8"), catalogues, links)
    print("\n".join(faults) or "the guide is whole in every language")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
