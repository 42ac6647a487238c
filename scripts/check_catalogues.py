#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the message catalogues are complete and fit the sources.

check_catalogues.py [FOLDER]   FOLDER is resources/i18n; lists every fault, exit code 1 when there is one
check_catalogues.py --self-test checks the checker

Faults are: a template that lacks texts of the sources or has texts that went away (update_catalogues.sh mends that);
a text without a translation, or with a fuzzy one; a translation whose placeholders, final blanks or accelerator
differ from the source's; two entries of one menu with the same accelerator; a catalogue whose head states no decimal
sign, which the reports in its language have; a table of menus in which no menu is found.
"""
import gettext
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MENUS = ROOT / "app/frame/menu_rows.cpp"

PLACEHOLDER = re.compile(r"%(?:\d+\$)?[-+ #0]*\d*(?:\.\d+)?(?:l|ll|z)?[a-zA-Z%]|\{\w*\}")
ACCELERATOR = re.compile(r"&(\w)")
# The rows of each menu, and the titles of the menu bar.
MENU_ROWS = re.compile(r"^constexpr std::array (k\w+Menu)\{(.*?)^\};|^\s*static const std::array (menus)\{(.*?)^\s*\};",
                       re.MULTILINE | re.DOTALL)
MENU_TEXT = re.compile(r'wxTRANSLATE\("([^"]*&[^"]*)"\)')
MENU_KEY = re.compile(r'"((?:Ctrl\+|Alt\+|Shift\+)+[^"]+|F\d+)"')


def compiled(catalogue):
    """A .po file as the program reads it."""
    with tempfile.TemporaryDirectory() as folder:
        mo = Path(folder) / "texts.mo"
        subprocess.run(["msgfmt", "--check-domain", "-o", str(mo), str(catalogue)], check=True)
        with open(mo, "rb") as file:
            return gettext.GNUTranslations(file)


def translations_of(compiled_catalogue):
    """The translations by source text; untranslated and fuzzy ones are not among them."""
    return {source: text for source, text in compiled_catalogue._catalog.items() if source}


def template_texts(template):
    """The source texts of a template."""
    with tempfile.TemporaryDirectory() as folder:
        filled = Path(folder) / "texts.po"
        subprocess.run(["msgen", "-o", str(filled), str(template)], check=True)
        return set(translations_of(compiled(filled)))


def current_texts():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([str(ROOT / "scripts/update_catalogues.sh"), folder], check=True)
        return template_texts(Path(folder) / "tarnvik.pot")


def placeholders(text):
    found = PLACEHOLDER.findall(text)
    # Printf's take their arguments in order unless they are numbered; named ones may stand anywhere.
    printf = [p for p in found if p.startswith("%") and p != "%%"]
    if any("$" in p for p in printf):
        numbered = sorted((int(p[1:p.index("$")]), p[p.index("$") + 1:]) for p in printf)
        printf = ["%" + rest for _, rest in numbered]
    return printf, sorted(p for p in found if p.startswith("{"))


def ending(text):
    return text[len(text.rstrip()):]


def faults_of_entry(source, text):
    if placeholders(source) != placeholders(text):
        yield "other placeholders than the source text"
    if ending(source) != ending(text):
        yield "other blanks at the end than the source text"
    if len(ACCELERATOR.findall(source)) != len(ACCELERATOR.findall(text)):
        yield "an accelerator too many or too few"
    if source.rstrip().endswith(":") != text.rstrip().endswith(":"):
        yield "a colon too many or too few"


def menu_clashes(code, translations):
    """Accelerators that two entries of the same menu share, and keys that two entries of any menu share."""
    if not MENU_ROWS.search(code):
        yield "no menu is found in the table of menus"
    keys = MENU_KEY.findall(code)
    for key in sorted({key for key in keys if keys.count(key) > 1}):
        yield f"the key {key} stands for {keys.count(key)} entries"
    for rows, body, bar, titles in MENU_ROWS.findall(code):
        builder, body = rows or bar, body or titles
        taken = {}
        for source in MENU_TEXT.findall(body):
            text = translations.get(source, source)
            letter = ACCELERATOR.search(text)
            if letter and taken.setdefault(letter.group(1).lower(), source) != source:
                other = taken[letter.group(1).lower()]
                yield f"{builder}: '{text}' has the accelerator of '{translations.get(other, other)}'"


def compound_faults(folder, head):
    """Languages in which the supplied compounds have no names; `head` is that of their table."""
    columns = head.strip().split(",")
    return [f"compounds.csv: no column name_{path.stem}" for path in sorted(folder.glob("*.po"))
            if f"name_{path.stem}" not in columns]


def check(folder, sources, menu_code):
    faults = []
    template = template_texts(folder / "tarnvik.pot")
    faults += [f"tarnvik.pot: lacks '{text}'" for text in sorted(sources - template)]
    faults += [f"tarnvik.pot: '{text}' is in no source any more" for text in sorted(template - sources)]
    faults += [f"English: {clash}" for clash in menu_clashes(menu_code, {})]
    catalogues = sorted(folder.glob("*.po"))
    if not catalogues:
        faults.append(f"{folder}: no catalogue")
    for path in catalogues:
        catalogue = compiled(path)
        if catalogue.info().get("x-decimal-sign", "") not in (".", ","):
            faults.append(f"{path.name}: the head states no X-Decimal-Sign")
        translations = translations_of(catalogue)
        faults += [f"{path.name}: no translation of '{text}'" for text in sorted(sources - set(translations))]
        for source, text in sorted(translations.items()):
            faults += [f"{path.name}: '{source}' has {fault}" for fault in faults_of_entry(source, text)]
        faults += [f"{path.name}: {clash}" for clash in menu_clashes(menu_code, translations)]
    return faults


def po_entry(source, text, fuzzy=False):
    return ("#, fuzzy\n" if fuzzy else "") + f'msgid "{source}"\nmsgstr "{text}"\n\n'


SELF_TEST_HEADER = 'msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8\\nX-Decimal-Sign: ,\\n"\n\n'


def self_test():
    menu = 'constexpr std::array kXMenu{\n    Row(wxTRANSLATE("&Open"), "Ctrl+O"), Row(wxTRANSLATE("&Save"), "Ctrl+S"),\n};\n'
    good = {"&Open": "Ö&ffnen", "&Save": "&Speichern", "%s of {path}": "{path} von %s", "Max: ": "Max.: ", "Na:": "Na:"}
    cases = [
        ("complete", good, {}, 0),
        ("untranslated", good, {"Na:": ""}, 1),
        ("lost placeholder", good, {"%s of {path}": "von %s"}, 1),
        ("lost blank", good, {"Max: ": "Max.:"}, 1),
        ("lost accelerator", good, {"&Open": "Öffnen"}, 1),
        ("lost colon", good, {"Na:": "Natrium"}, 1),
        ("same accelerator", good, {"&Open": "Öffne&s"}, 1),
    ]
    bad = []
    for name, entries, changes, expected in cases:
        with tempfile.TemporaryDirectory() as folder:
            folder = Path(folder)
            (folder / "tarnvik.pot").write_text(SELF_TEST_HEADER + "".join(po_entry(s, "") for s in entries))
            (folder / "xx.po").write_text(SELF_TEST_HEADER + "".join(
                po_entry(s, t) for s, t in {**entries, **changes}.items()))
            if len(check(folder, set(entries), menu)) != expected:
                bad.append(name)
            (folder / "xx.po").write_text(SELF_TEST_HEADER + "".join(
                po_entry(s, t, fuzzy=s == "Na:") for s, t in entries.items()))
            if len(check(folder, set(entries) | {"new"}, menu)) != 3:
                bad.append(name + " with a fuzzy and a new text")
            (folder / "xx.po").write_text(SELF_TEST_HEADER.replace("X-Decimal-Sign: ,\\n", "") + "".join(
                po_entry(s, t) for s, t in entries.items()))
            if len(check(folder, set(entries), menu)) != 1:
                bad.append(name + " without a decimal sign")
    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / "xx.po").touch()
        if compound_faults(Path(folder), "name,name_xx\n") or not compound_faults(Path(folder), "name,name_x\n"):
            bad.append("names of compounds")
    if not list(menu_clashes("no table", {})):
        bad.append("a table without menus")
    print("\n".join(bad) or "the checker finds its faults")
    return 1 if bad else 0


def main():
    if not shutil.which("msgfmt"):
        sys.exit("check_catalogues.py: gettext is not installed")
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "resources/i18n")
    faults = check(folder, current_texts(), MENUS.read_text(encoding="utf-8"))
    with open(ROOT / "resources/master/compounds.csv", encoding="utf-8") as file:
        faults += compound_faults(folder, file.readline())
    print("\n".join(faults) or "the catalogues are complete")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
