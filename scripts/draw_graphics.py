#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the graphics of the plants, one for every arrangement of exchangers that a type of plant can have.

draw_graphics.py          writes resources/graphics/*.svg, resources/master/graphics.csv and placeholders.csv
draw_graphics.py --check  tells what is not as it would be written; exit code 1 when there is something

The manner is that of process flow diagrams (ISO 10628): vessels with their beds, tanks, pumps, valves, lines with arrows.
Each symbol is one function. Texts obey what the program reads: classes of one style sheet, "#rrggbb", the top of a text
at its y, no alignment. A text with an id is the place of a value; every other one is a caption and is translated.
"""
import argparse
import csv
import io
import itertools
import sys
from pathlib import Path
from xml.sax.saxutils import escape

ROOT = Path(__file__).resolve().parent.parent
MASTER = ROOT / "resources/master"
GRAPHICS = ROOT / "resources/graphics"

INK, WATER, CHEMICAL, WASTE, AIR = "#37474f", "#1565c0", "#c2570c", "#6d5b4b", "#607d8b"
BEDS = {"cation": "#f3cf94", "anion": "#b9d3ee", "packing": "#dfe5e8"}
STYLES = {
    "title": "font-family:sans-serif;font-size:18px;font-weight:bold;fill:#263238;",
    "name": "font-family:sans-serif;font-size:12px;font-weight:bold;fill:#263238;",
    "caption": "font-family:sans-serif;font-size:11px;fill:#546e7a;",
    "value": "font-family:sans-serif;font-size:13px;font-weight:bold;fill:#0d47a1;",
}

LEFT, RIGHT, HEIGHT = 206, 190, 630  # the room of feed and product, and the height of a drawing
COLUMN = 300                         # of an exchanger
MAIN, TOP, BOTTOM = 118, 150, 374    # y of the line between exchangers, and of the vessels
DRAIN = 396                          # y of the line out of a vessel
NAMES = {"SAC_NA": "Softener", "SAC_H": "Strong-acid cation exchanger", "WAC_H": "Weak-acid cation exchanger",
         "WBA": "Weak-base anion exchanger", "SBA": "Strong-base anion exchanger", "MB": "Mixed bed",
         "DEGAS": "Degasser"}
FEEDS = {"CP": "Condensate", "FOODC": "Food liquid"}
BED_OF = {"SAC_NA": "cation", "SAC_H": "cation", "WAC_H": "cation", "WBA": "anion", "SBA": "anion"}


class Drawing:
    """Shapes, texts, and the places of values with where these live."""

    def __init__(self, width):
        self.width = width
        self.shapes = []
        self.fittings = []  # what sits on lines
        self.texts = []
        self.values = []

    def add(self, shape):
        self.shapes.append(shape)

    def fit(self, shape):
        self.fittings.append(shape)

    def caption(self, x, y, text, style="caption"):
        self.texts.append(f'<text class="{style}" x="{x}" y="{y}">{escape(text)}</text>')

    def value(self, x, y, identifier, address, unit=True, digits=3):
        self.texts.append(f'<text class="value" id="{identifier}" x="{x}" y="{y}">–</text>')
        self.values.append((identifier, address, "yes" if unit else "no", digits))

    def pair(self, x, y, caption, identifier, address, unit=True, digits=3):
        """A caption with its value below."""
        self.caption(x, y, caption)
        self.value(x, y + 13, identifier, address, unit, digits)

    def text(self):
        style = "\n".join(f".{name} {{{rules}}}" for name, rules in STYLES.items())
        head = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width}" height="{HEIGHT}" '
                f'viewBox="0 0 {self.width} {HEIGHT}">')
        paper = f'<rect x="0" y="0" width="{self.width}" height="{HEIGHT}" fill="#ffffff"/>'
        return "\n".join(['<?xml version="1.0" encoding="UTF-8"?>', "<!-- SPDX-License-Identifier: MIT -->", head,
                          f"<style>\n{style}\n</style>", paper, *self.shapes, *self.fittings, *self.texts, "</svg>", ""])


def line(points, colour=WATER, width=3):
    path = " ".join(f"{x},{y}" for x, y in points)
    return (f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="{width}" '
            'stroke-linejoin="round"/>')


def arrow(x, y, direction, colour=WATER):
    """An arrow head with its tip at a point."""
    dx, dy = {"right": (-1, 0), "left": (1, 0), "down": (0, -1), "up": (0, 1)}[direction]
    back = (x + 11 * dx, y + 11 * dy)
    side = (5 * dy, 5 * dx)
    points = f"{x},{y} {back[0] + side[0]},{back[1] + side[1]} {back[0] - side[0]},{back[1] - side[1]}"
    return f'<polygon points="{points}" fill="{colour}"/>'


def valve(x, y, is_upright=False, colour=INK):
    """Two triangles, tip to tip."""
    long, short = (6, 9) if is_upright else (9, 6)
    if is_upright:
        points = f"{x - long},{y - short} {x + long},{y - short} {x - long},{y + short} {x + long},{y + short}"
    else:
        points = f"{x - long},{y - short} {x + long},{y + short} {x + long},{y - short} {x - long},{y + short}"
    return f'<polygon points="{points}" fill="#ffffff" stroke="{colour}" stroke-width="1.6" stroke-linejoin="round"/>'


def pump(x, y):
    """A circle with a triangle that points to where it delivers, to the right."""
    return (f'<circle cx="{x}" cy="{y}" r="13" fill="#ffffff" stroke="{INK}" stroke-width="1.8"/>'
            f'<polyline points="{x - 4},{y - 12} {x + 13},{y} {x - 4},{y + 12}" fill="none" stroke="{INK}" '
            'stroke-width="1.8" stroke-linejoin="round"/>')


def fan(x, y):
    return (f'<circle cx="{x}" cy="{y}" r="12" fill="#ffffff" stroke="{INK}" stroke-width="1.8"/>'
            f'<path d="M{x},{y} L{x - 5},{y - 9} L{x + 5},{y - 9} Z M{x},{y} L{x - 5},{y + 9} L{x + 5},{y + 9} Z" '
            f'fill="{AIR}"/>')


def vessel(x, y, width, height, beds):
    """An upright vessel with dished ends and its beds, the first one on top."""
    dish = 22
    bottom = y + height
    outline = (f"M{x},{y + dish} C{x},{y - 6} {x + width},{y - 6} {x + width},{y + dish} L{x + width},{bottom - dish} "
               f"C{x + width},{bottom + 6} {x},{bottom + 6} {x},{bottom - dish} Z")
    parts = [f'<path d="{outline}" fill="#ffffff"/>']
    top, end = y + 70, bottom - dish
    depth = (end - top) / len(beds)
    for place, bed in enumerate(beds):
        at = top + place * depth
        parts.append(f'<rect x="{x}" y="{at:g}" width="{width}" height="{depth:g}" fill="{BEDS[bed]}"/>')
        dots = [(x + 9 + 14 * column + 7 * (row % 2), at + 9 + 12 * row)
                for row in range(int(depth // 12)) for column in range((width - 18) // 14 + 1)]
        parts += [f'<circle cx="{cx:g}" cy="{cy:g}" r="2" fill="{INK}" fill-opacity="0.28"/>' for cx, cy in dots
                  if cx < x + width - 5 and cy < at + depth - 3]
        parts.append(line([(x, f"{at:g}"), (x + width, f"{at:g}")], INK, 1))
    parts.append(line([(x, end), (x + width, end)], INK, 1.8))
    # The distributor above the bed.
    parts.append(line([(x + width / 2, y - 2), (x + width / 2, y + 26)], INK, 1.6))
    parts.append(line([(x + 14, y + 26), (x + width - 14, y + 26)], INK, 1.6))
    parts += [line([(at, y + 26), (at, y + 31)], INK, 1.6) for at in range(x + 14, x + width - 13, 14)]
    parts.append(f'<path d="{outline}" fill="none" stroke="{INK}" stroke-width="2.2"/>')
    return "".join(parts)


def tower(x, y, width, height):
    """A column with packing above a sump."""
    sump = 46
    parts = [f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="#ffffff"/>',
             f'<rect x="{x}" y="{y + height - sump}" width="{width}" height="{sump}" fill="#bbdefb"/>',
             f'<rect x="{x}" y="{y + 44}" width="{width}" height="{height - 124}" fill="{BEDS["packing"]}"/>']
    for row in range(4):
        top, step = y + 44 + row * (height - 124) / 4, (height - 124) / 4
        parts.append(f'<path d="M{x},{top:g} L{x + width},{top + step:g} M{x + width},{top:g} L{x},{top + step:g}" '
                     f'stroke="{AIR}" stroke-width="1" fill="none"/>')
    parts.append(line([(x + 14, y + 24), (x + width - 14, y + 24)], INK, 1.6))
    parts += [line([(at, y + 24), (at, y + 30)], INK, 1.6) for at in range(x + 14, x + width - 13, 14)]
    parts.append(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="none" stroke="{INK}" stroke-width="2.2"/>')
    return "".join(parts)


def tank(x, y, width, height, colour, level=0.7):
    """An open tank with what is in it."""
    top = y + height * (1 - level)
    return (f'<rect x="{x}" y="{top:g}" width="{width}" height="{height * level:g}" fill="{colour}" fill-opacity="0.25"/>'
            f'<polyline points="{x},{y} {x},{y + height} {x + width},{y + height} {x + width},{y}" fill="none" '
            f'stroke="{INK}" stroke-width="2.2"/>'
            f'<line x1="{x}" y1="{top:g}" x2="{x + width}" y2="{top:g}" stroke="{colour}" stroke-width="1.6"/>')


def draw_feed(drawing, plant):
    drawing.caption(24, 62, FEEDS.get(plant, "Feed water"), "name")
    drawing.add(tank(24, 84, 78, 68, WATER))
    drawing.add(line([(102, 140), (124, 140), (124, MAIN), (LEFT, MAIN)]))
    drawing.fit(pump(146, MAIN))
    drawing.fit(arrow(192, MAIN, "right"))
    rows = [("Source flow rate", "feed.q", ":project/qbrutto", True), ("Water volume", "feed.w", ":project/wbrutto", True),
            ("Running time", "feed.lz", ":project/lz", True)]
    if plant == "FOODC":
        rows += [("pH", "feed.ph", ":feed/ph", False), ("Density", "feed.density", ":feed/density", True)]
    else:
        rows += [("Temperature", "feed.temp", "water:liquid/temp", True), ("pH", "feed.ph", "water:liquid/ph", False),
                 ("Conductivity", "feed.cond", "water:liquid/cond25", True),
                 ("Total hardness", "feed.th", "water:liquid/hardness.total", True)]
    for place, (caption, identifier, address, unit) in enumerate(rows):
        drawing.pair(24, 172 + 34 * place, caption, identifier, address, unit)


def draw_product(drawing, x, from_main):
    """The product and what the line sends to waste; the line comes in at the drain of the last vessel."""
    drawing.caption(x + 62, 62, "Product", "name")
    drawing.add(line([from_main, (x + 20, DRAIN), (x + 20, MAIN), (x + 62, MAIN)]))
    drawing.fit(arrow(x + 62, MAIN, "right"))
    drawing.add(tank(x + 64, 84, 78, 68, WATER))
    for place, (caption, identifier, address) in enumerate(
            [("Net flow rate", "product.q", ":project/qnetto"), ("Net volume", "product.w", ":project/wnetto"),
             ("Service water", "service", ":project/vol.serv.all"), ("Waste water", "waste", ":project/vol.waste.all")]):
        drawing.pair(x + 64, 172 + 38 * place, caption, identifier, address)


def draw_values(drawing, x, number, kind):
    step = f"ex.{number}:step/"
    rows = [("Diameter", "d", step + "diameter"), ("Bed depth", "depth", step + "bed.depth"), ("Velocity", "v", step + "v"),
            ("Specific flow rate", "bvh", step + "bvh"), ("Pressure drop", "dp", step + "dp"),
            ("Load", "load", f"ex.{number}.comp.1:stepcomp/load"), ("Run time", "time", step + "run.time")]
    if kind == "MB":
        rows[5] = ("Throughput", "throughput", step + "throughput")
    for place, (caption, identifier, address) in enumerate(rows):
        drawing.pair(x + 118, 152 + 34 * place, caption, f"ex{number}.{identifier}", address)


def draw_regenerant(drawing, x, number, compartment):
    """The tank of a chemical, and what of it a regeneration needs."""
    y, part = 480, f"ex.{number}.comp.{compartment}"
    name = f"ex{number}.c{compartment}"
    drawing.add(tank(x + 22, y, 50, 54, CHEMICAL))
    drawing.value(x + 30, y + 62, f"{name}.chemical", f"{part}:stepcomp/rm.chemical", False)
    rows = [("Resin volume", "vol", f"{part}.resin.1:compcomp/vol"), ("Regenerant", "rm", f"{part}:stepcomp/rm"),
            ("Regenerant level", "level", f"{part}:stepcomp/level"), ("Concentration", "konz", f"{part}:stepcomp/konz.d")]
    for place, (caption, identifier, address) in enumerate(rows):
        drawing.pair(x + 100, y - 12 + 34 * place, caption, f"{name}.{identifier}", address)


def draw_chemical_line(drawing, x, y_in):
    """From the tank up to the vessel: into the line at its bottom, or from above in a mixed bed."""
    drawing.add(line([(x + 47, 480), (x + 47, y_in)], CHEMICAL, 2))
    drawing.fit(valve(x + 47, 424, True, CHEMICAL))
    drawing.fit(arrow(x + 47, y_in, "up", CHEMICAL))


def draw_exchanger(drawing, x, number, kind):
    """A column of the line; returns its width. The line comes in at MAIN and leaves at DRAIN."""
    centre = x + 62
    drawing.caption(x + 20, 84, NAMES[kind], "name")
    drawing.add(line([(x, MAIN), (centre, MAIN), (centre, TOP)]))
    drawing.fit(valve(x + 34, MAIN))
    drawing.fit(arrow(centre, TOP, "down"))
    drawing.add(line([(centre, BOTTOM), (centre, DRAIN)]))
    if kind == "DEGAS":
        drawing.add(tower(x + 20, TOP, 84, BOTTOM - TOP))
        drawing.add(line([(x + 104, 318), (x + 132, 318)], AIR, 2) + arrow(x + 104, 318, "left", AIR) + fan(x + 140, 318))
        drawing.caption(x + 160, 310, "Air")
        drawing.add(line([(x + 92, TOP), (x + 92, 128), (x + 132, 128)], AIR, 2) + arrow(x + 132, 128, "right", AIR))
        drawing.caption(x + 138, 120, "CO2")
        drawing.pair(x + 118, 340, "Residual CO2", f"ex{number}.co2", f"ex.{number}:step/co2.residual")
        drawing.fit(pump(x + 130, DRAIN))
        return COLUMN
    drawing.add(vessel(x + 20, TOP, 84, BOTTOM - TOP, ["anion", "cation"] if kind == "MB" else [BED_OF[kind]]))
    draw_values(drawing, x, number, kind)
    drawing.fit(valve(x + 90, DRAIN))
    # What leaves a regeneration goes to waste at the top of the bed, what regenerates comes from below.
    draw_chemical_line(drawing, x, BOTTOM - 2)
    drawing.add(line([(x + 104, 196), (x + 112, 196), (x + 112, 440)], WASTE, 2) + arrow(x + 112, 442, "down", WASTE))
    drawing.fit(valve(x + 112, 420, True, WASTE))
    drawing.caption(x + 124, 414, "Waste water")
    draw_regenerant(drawing, x, number, 1)
    if kind != "MB":
        return COLUMN
    draw_regenerant(drawing, x + COLUMN, number, 2)
    drawing.add(line([(x + COLUMN + 47, 480), (x + COLUMN + 47, 454), (x + 8, 454), (x + 8, 212), (x + 20, 212)], CHEMICAL, 2))
    drawing.fit(arrow(x + 20, 212, "right", CHEMICAL) + valve(x + COLUMN + 47, 467, True, CHEMICAL))
    return 2 * COLUMN


def draw(plant, name, kinds):
    widths = [2 * COLUMN if kind == "MB" else COLUMN for kind in kinds]
    drawing = Drawing(LEFT + sum(widths) + RIGHT)
    drawing.caption(24, 18, name, "title")
    drawing.caption(drawing.width - 160, 18, "Number of lines")
    drawing.value(drawing.width - 160, 31, "lines", ":project/nlines", False)
    draw_feed(drawing, plant)
    x = LEFT
    for place, kind in enumerate(kinds):
        width = draw_exchanger(drawing, x, place + 1, kind)
        if place + 1 < len(kinds):
            rise = x + width - 14
            drawing.add(line([(x + 62, DRAIN), (rise, DRAIN), (rise, MAIN), (x + width, MAIN)]))
            drawing.fit(arrow(rise, 260, "up"))
        x += width
    draw_product(drawing, x - 34, (x - widths[-1] + 62, DRAIN))
    return drawing


def arrangements(exchangers):
    """All lists of kinds that a row of plants.csv allows: those with a question mark may be left out."""
    words = exchangers.split()
    choices = [[(word[:-1],), ()] if word.endswith("?") else [(word,)] for word in words]
    return [sum(choice, ()) for choice in itertools.product(*choices)] if words else []


def table(columns, rows):
    text = io.StringIO()
    writer = csv.writer(text, lineterminator="\n")
    writer.writerow(columns)
    writer.writerows(rows)
    return text.getvalue()


def all_files():
    """Every file with its text."""
    files, graphics, placeholders = {}, [], []
    with open(MASTER / "plants.csv", encoding="utf-8", newline="") as file:
        plants = list(csv.DictReader(file))
    for plant in plants:
        for kinds in arrangements(plant["exchangers"]):
            entry = "_".join([plant["type"], *kinds]).lower() + ".svg"
            drawing = draw(plant["type"], plant["name"], kinds)
            files[GRAPHICS / entry] = drawing.text()
            graphics.append((plant["type"], "LINE", " ".join(kinds), f"graphics/{entry}"))
            placeholders += [(f"graphics/{entry}", *value) for value in drawing.values]
    files[MASTER / "graphics.csv"] = table(("type", "graphic", "keys", "entry"), graphics)
    files[MASTER / "placeholders.csv"] = table(("entry", "id", "address", "unit", "digits"), placeholders)
    return files


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    files = all_files()
    stale = set(GRAPHICS.glob("*.svg")) - set(files)
    if arguments.check:
        wrong = sorted(stale) + [path for path, text in files.items()
                                 if not path.is_file() or path.read_text(encoding="utf-8") != text]
        for path in wrong:
            print(f"{path.relative_to(ROOT)}: not as scripts/draw_graphics.py draws it")
        sys.exit(1 if wrong else 0)
    GRAPHICS.mkdir(parents=True, exist_ok=True)
    for path in stale:
        path.unlink()
    for path, text in files.items():
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
