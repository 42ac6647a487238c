#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that includes follow the layers of the project.

check_layers.py [ROOT]      lists every include that points up or sideways; exit code 1 when there is one
check_layers.py --self-test checks the checker
"""
import re
import sys
import tempfile
from pathlib import Path

# Folders of sources, and where includes are written from: those of the program name its folder ("app/…").
SOURCES = ("modules", "components", "platform", "app")
ROOTS = ("modules", "components", "platform")

# What each layer may use beside itself. A layer is the longest of these folders that a file lies below.
CORE = "platform/core"
TNCOMMON = "platform/tncommon"
SVG = "platform/svg"
DBINTERFACES = "platform/dbinterfaces"
PROJECTBASE = "platform/projectbase"
WXCURL = "platform/wxcurl"
CHARTDIR = "platform/chartdir"
REPORT = "components/report"
WXCHARTDIR = "components/wxchartdir"
GUI = "modules/gui_base/"
PRINTOUT = GUI + "report"
# Tables of what the panels of a water show: no windows, so that reports print the same rows.
WATER_ROWS = GUI + "water/rows"
# What errors say to the user: no windows, so that the command line says the same.
MESSAGES = GUI + "messages"
# The languages of the program, which it also speaks without a window.
LANGUAGE = "app/language"

MODEL = {CORE, TNCOMMON, SVG, DBINTERFACES, PROJECTBASE}
LAYERS = {
    CORE: set(),
    TNCOMMON: {CORE},
    SVG: {CORE, TNCOMMON},
    DBINTERFACES: {CORE, TNCOMMON},
    PROJECTBASE: {CORE, TNCOMMON, SVG, DBINTERFACES},
    WXCURL: {CORE},
    CHARTDIR: {CORE, TNCOMMON},
    REPORT: set(),
    WXCHARTDIR: {CORE, CHARTDIR},
    PRINTOUT: MODEL | {REPORT, CHARTDIR, WATER_ROWS},
    MESSAGES: MODEL,
    LANGUAGE: {TNCOMMON},
    WATER_ROWS: {CORE, PROJECTBASE},
}


def stack(*names, below, also=()):
    """Layers of which each may use those before it, and all of them `below` and `also`."""
    used = set(below) | set(also)
    for name in names:
        LAYERS[GUI + name] = set(used)
        used.add(GUI + name)
    return used


INPUT = stack("support", "input", "input/validation", "input/binding", "input/controls", "input/combinations",
              "input/panel", "input/form", "dialogs", below=MODEL, also={REPORT, PRINTOUT, WATER_ROWS, MESSAGES})
BESIDE = {GUI + "whatif", GUI + "graphics", GUI + "network"}
stack("whatif", below=INPUT)
stack("graphics", below=INPUT, also={WXCHARTDIR, CHARTDIR})
stack("network", below=INPUT, also={WXCURL})
EVERYTHING = stack("water/library", "water/tools", "water/analysis", "water/feedwater", "water/results", "ionexchange", below=INPUT | BESIDE, also={WXCHARTDIR})
LAYERS["app"] = EVERYTHING | {CHARTDIR, WXCURL, LANGUAGE, "app/command_line"}
# What a module is, without the windows of its pages.
LAYERS["app/modules/base"] = MODEL | {PRINTOUT}
LAYERS["app"] |= {"app/modules/base"}
# What runs without a display.
LAYERS["app/command_line"] = MODEL | {REPORT, CHARTDIR, PRINTOUT, MESSAGES, LANGUAGE, "app/modules/base"}

# System headers that a layer must not use.
FORBIDDEN_SYSTEM = {CORE: r"wx/", SVG: r"wx/(?!string|log|mstream|xml/xml)", DBINTERFACES: r"wx/", CHARTDIR: r"wx/", REPORT: r"wx/",
                    PRINTOUT: r"wx/(?!string|translation|datetime)",
                    MESSAGES: r"wx/(?!string|translation)"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]')
GENERATED = re.compile(r"^\w+/\w+_export\.h$")


def layer_of(path):
    found = [layer for layer in LAYERS if path.startswith(layer + "/")]
    return max(found, key=len, default=None)


def target_of(root, include):
    for folder in (".",) if include.startswith("app/") else ROOTS:
        if (root / folder / include).is_file():
            return (Path(folder) / include).as_posix()
    return None


def check_include(root, layer, kind, include):
    """What is wrong with the include, or None."""
    if kind == "<":
        pattern = FORBIDDEN_SYSTEM.get(layer)
        return f"{layer} must not use <{include}>" if pattern and re.match(pattern, include) else None
    if GENERATED.match(include):
        return None
    target = target_of(root, include)
    if target is None:
        return f'"{include}" is not written from one of {", ".join(ROOTS)}'
    used = layer_of(target)
    if used == layer or used in LAYERS[layer]:
        return None
    return f'{layer} must not use {used or "a file without a layer"} ("{include}")'


def check_file(root, path):
    name = path.relative_to(root).as_posix()
    layer = layer_of(name)
    if layer is None:
        return [f"{name}: belongs to no layer"]
    problems = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        match = INCLUDE.match(line)
        problem = match and check_include(root, layer, *match.groups())
        if problem:
            problems.append(f"{name}:{number}: {problem}")
    return problems


def check_tree(root):
    problems = []
    for folder in SOURCES:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                problems += check_file(root, path)
    return problems


def self_test():
    sources = {
        "platform/core/ions.h": "",
        "modules/gui_base/input/events.h": "",
        "modules/gui_base/input/validation/v.h": '#include "gui_base/input/events.h"\n#include <wx/validate.h>',
        "modules/gui_base/input/binding/b.h": '#include "gui_base/input/validation/v.h"',
        "modules/gui_base/network/n.h": '#include "wxcurl/http.h"\n#include "gui_base/gui_base_export.h"',
        "modules/gui_base/water/tools/w.cpp": '#include "gui_base/network/n.h"\n#include "projectbase/p.h"',
        "platform/svg/graphic.h": '#include "tncommon/data_dir.h"\n#include <wx/xml/xml.h>',
        "platform/projectbase/p.h": '#include "core/ions.h"\n#include "svg/graphic.h"\n#include <wx/string.h>',
        "platform/wxcurl/http.h": "",
        "platform/chartdir/chart.h": '#include "tncommon/data_dir.h"',
        "components/wxchartdir/viewer.h": '#include "chartdir/chart.h"\n#include <wx/control.h>',
        "modules/gui_base/graphics/chart/panel.h": '#include "wxchartdir/viewer.h"',
        "modules/gui_base/report/chart.h": '#include "chartdir/chart.h"',
        "app/command_line/calc.cpp": '#include "projectbase/p.h"',
        "app/frame/frame.cpp": '#include "gui_base/input/binding/b.h"\n#include "app/command_line/calc.h"',
        "app/command_line/calc.h": "",
        "app/language/language.h": '#include "tncommon/data_dir.h"',
        "app/command_line/report.cpp": '#include "gui_base/report/r.h"\n#include "app/language/language.h"',
        "modules/gui_base/report/r.h": '#include "gui_base/water/rows/ion_rows.h"',
        "modules/gui_base/water/rows/ion_rows.h": "",
        "platform/tncommon/data_dir.h": "",
    }
    bad = {
        "platform/core/up.h": '#include "projectbase/p.h"',
        "platform/core/window.h": "#include <wx/window.h>",
        "modules/gui_base/input/validation/up.h": '  #  include "gui_base/input/binding/b.h"',
        "modules/gui_base/graphics/side.h": '#include "gui_base/network/n.h"',
        "modules/gui_base/water/tools/curl.h": '#include "wxcurl/http.h"',
        "modules/gui_base/elsewhere.h": "",
        "platform/projectbase/window.h": '#include "gui_base/water/tools/w.cpp"',
        "platform/projectbase/relative.h": '#include "p.h"',
        "app/command_line/window.cpp": '#include "gui_base/input/events.h"',
        "modules/gui_base/report/window.h": '#include "gui_base/water/tools/w.cpp"',
        "modules/gui_base/report/toolkit.h": "#include <wx/dialog.h>",
        "platform/chartdir/toolkit.h": "#include <wx/string.h>",
        "platform/chartdir/model.h": '#include "projectbase/p.h"',
        "components/wxchartdir/model.h": '#include "projectbase/p.h"',
        "modules/gui_base/report/viewer.h": '#include "wxchartdir/viewer.h"',
        "platform/svg/up.h": '#include "projectbase/p.h"',
        "platform/svg/window.h": "#include <wx/bitmap.h>",
        "app/language/language.cpp": '#include "app/frame/frame.cpp"',
    }
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name, text in {**sources, **bad}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        reported = {problem.split(":")[0] for problem in check_tree(root)}
    if reported != set(bad):
        print("not reported:", sorted(set(bad) - reported), "reported in error:", sorted(reported - set(bad)))
        return 1
    return 0


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    problems = check_tree(root)
    print("\n".join(problems) or "all includes follow the layers")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
