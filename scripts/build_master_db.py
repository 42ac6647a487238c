#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds the master database that the program reads at run time.

build_master_db.py OUTPUT CSV_DIR --ions FILE --waters FILE [--iso-codes DIR] [--locales DIR]

CSV_DIR holds details.csv, detail_choices.csv, elements.csv, alkalizing_agents.csv, compounds.csv, feed_mediums.csv, organics.csv, plants.csv,
regenerants.csv, regenerant_densities.csv, resins.csv, resin_regeneration.csv, exchanger_defaults.csv, sequence_media.csv, sequence_types.csv, sequence_defaults.csv, graphics.csv, placeholders.csv, water_types.csv and whatif.csv; the files are the rows of an analysis as list_ions writes them, and the waters of the library. Countries
and currencies come from the iso-codes package: their codes from its JSON files, their translated names from its message
catalogues. The output is replaced as a whole or not at all, and equal inputs give equal bytes.
"""
import argparse
import csv
import gettext
import json
import math
import os
import sqlite3
import sys
import tempfile
from pathlib import Path

APPLICATION_ID = 0x54564D44  # "TVMD"
SCHEMA_VERSION = 13
ROLES = {"input", "derived"}
TYPES = {"double", "long", "bool", "date", "string"}
# Columns of the waters that are details by another name; a column that bears the name of an ion is its amount in mg/l.
WATER_COLUMNS = {
    "temperature_c": "liquid/temp.orig", "ph": "liquid/ph", "m_value_mmol_l": "liquid/alkalinity.m.orig",
    "country": "liquid/country", "place": "liquid/place",
    "water_source": "liquid/water.source", "water_type": "liquid/water.type",
    "sampling_date": "liquid/sampling.date", "source": "liquid/comments",
}
# Kinds of compounds in the order of their numbers.
ACID_BASE = ("neutral", "strong acid", "weak acid", "strong base", "weak base")
EXCHANGERS = {"SAC_NA", "SAC_H", "WAC_H", "WBA", "SBA", "MB", "DEGAS"}
REGENERANT_KINDS = {"acid", "base", "salt"}
SEQUENCE_CLASSES = {"flow", "still", "chemical", "air"}
SEQUENCE_MEDIA = {"water", "product", "chemical", "air"}
SEQUENCE_FLOWS = {"", "v", "q", "q.bv"}
SEQUENCE_AMOUNTS = {"", "t", "vol", "vol.bv"}
RESIN_KINDS = {"SAC", "WAC", "WBA", "SBA", "inert"}
NO_COUNTRY = "International"
# Which kinds of ions a placeholder in a detail's key stands for.
KEY_PLACEHOLDERS = {
    "{ion}": {"cation", "anion"},
    "{named}": {"named cation", "named anion"},
    "{equivalent}": {"equivalent cation", "equivalent anion"},
}

SCHEMA = """
-- What a text may be, where it is one of several; an empty choice is one, too.
CREATE TABLE detail_choice (name TEXT NOT NULL, position INTEGER NOT NULL, choice TEXT NOT NULL,
    PRIMARY KEY (name, position)) WITHOUT ROWID;
CREATE TABLE detail (grp TEXT NOT NULL, variant TEXT NOT NULL, name TEXT NOT NULL, derived INTEGER NOT NULL,
    type TEXT NOT NULL, unit TEXT NOT NULL, min_value REAL, max_value REAL, limit_unit TEXT NOT NULL,
    default_value TEXT NOT NULL, label TEXT NOT NULL,
    PRIMARY KEY (grp, variant, name)) WITHOUT ROWID;
CREATE TABLE ion (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, symbol TEXT NOT NULL, label TEXT NOT NULL,
    charge INTEGER NOT NULL, kind TEXT NOT NULL);
CREATE TABLE element (id INTEGER PRIMARY KEY, symbol TEXT NOT NULL UNIQUE, name TEXT NOT NULL,
    atomic_weight REAL NOT NULL, table_group INTEGER, table_group_old TEXT NOT NULL, period INTEGER NOT NULL,
    block TEXT NOT NULL, state TEXT NOT NULL, electron_configuration TEXT NOT NULL, oxidation_states TEXT NOT NULL,
    class TEXT NOT NULL);
CREATE TABLE country (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
CREATE TABLE country_name (code TEXT NOT NULL, language TEXT NOT NULL, name TEXT NOT NULL,
    PRIMARY KEY (language, code)) WITHOUT ROWID;
CREATE TABLE currency (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
CREATE TABLE currency_name (code TEXT NOT NULL, language TEXT NOT NULL, name TEXT NOT NULL,
    PRIMARY KEY (language, code)) WITHOUT ROWID;
CREATE TABLE alkalizing_agent (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL,
    formula TEXT NOT NULL, molar_mass REAL NOT NULL, valency INTEGER NOT NULL, carbon INTEGER NOT NULL,
    ion TEXT NOT NULL, cation_mass REAL NOT NULL, pka REAL, enthalpy REAL);
CREATE TABLE compound (id INTEGER PRIMARY KEY, base_element TEXT NOT NULL, name TEXT NOT NULL, formula TEXT NOT NULL,
    pka REAL, valency INTEGER NOT NULL, oxidation_number INTEGER NOT NULL, conjugate INTEGER NOT NULL,
    ionic_charge INTEGER NOT NULL, category TEXT NOT NULL, UNIQUE (name, formula));
CREATE TABLE compound_name (compound_id INTEGER NOT NULL, language TEXT NOT NULL, name TEXT NOT NULL,
    PRIMARY KEY (language, compound_id)) WITHOUT ROWID;
CREATE TABLE feed_medium (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, density REAL NOT NULL);
CREATE TABLE feed_medium_usage (medium_id INTEGER NOT NULL, module TEXT NOT NULL, usage TEXT NOT NULL,
    PRIMARY KEY (module, usage, medium_id)) WITHOUT ROWID;
-- The exchangers of a plant in flow order; an optional one may be left out.
CREATE TABLE plant_type (id INTEGER PRIMARY KEY, type TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
CREATE TABLE plant_exchanger (type TEXT NOT NULL, position INTEGER NOT NULL, kind TEXT NOT NULL,
    optional INTEGER NOT NULL, PRIMARY KEY (type, position)) WITHOUT ROWID;
-- What exchangers are regenerated with, and the densities (kg/l) of their solutions by content (% by mass) at 20 °C.
CREATE TABLE regenerant (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL, formula TEXT NOT NULL,
    kind TEXT NOT NULL, equivalent_mass REAL NOT NULL);
CREATE TABLE regenerant_density (code TEXT NOT NULL, percent REAL NOT NULL, density REAL NOT NULL,
    PRIMARY KEY (code, percent)) WITHOUT ROWID;
-- The rows of regeneration sequences: what flows in them, what they can be, and those that an exchanger begins with.
CREATE TABLE sequence_medium (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, label TEXT NOT NULL, kind TEXT NOT NULL,
    chemical TEXT NOT NULL);
CREATE TABLE sequence_type (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, label TEXT NOT NULL, class TEXT NOT NULL,
    direction TEXT NOT NULL, flow TEXT NOT NULL, flow_value REAL, amount TEXT NOT NULL, amount_value REAL);
CREATE TABLE sequence_default (id INTEGER PRIMARY KEY, kind TEXT NOT NULL, type TEXT NOT NULL, medium TEXT NOT NULL,
    direction TEXT NOT NULL, flow TEXT NOT NULL, flow_value REAL, amount TEXT NOT NULL, amount_value REAL);
-- Resins by kind, what they are regenerated with, and how an exchanger begins.
CREATE TABLE resin (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL, kind TEXT NOT NULL,
    total_capacity REAL NOT NULL, capacity REAL NOT NULL, bead REAL NOT NULL, density REAL NOT NULL, bulk_density REAL,
    void REAL NOT NULL, swelling REAL NOT NULL, v_max REAL NOT NULL, t_max REAL NOT NULL);
CREATE TABLE resin_regeneration (id INTEGER PRIMARY KEY, resin TEXT NOT NULL, chemical TEXT NOT NULL, mode TEXT NOT NULL,
    q_max REAL, k REAL, level_min REAL, level_max REAL, ratio_min REAL, ratio_max REAL, UNIQUE (resin, chemical, mode));
CREATE TABLE exchanger_default (plant TEXT NOT NULL, kind TEXT NOT NULL, compartment INTEGER NOT NULL, mode TEXT NOT NULL,
    v_max REAL NOT NULL, resin TEXT NOT NULL, chemical TEXT NOT NULL, level REAL NOT NULL, supply REAL NOT NULL,
    dilution REAL NOT NULL, temperature REAL NOT NULL, PRIMARY KEY (plant, kind, compartment)) WITHOUT ROWID;
-- Pairs of values of which one is sought for another, of a type of plant or of a kind of row of its regeneration sequences.
CREATE TABLE what_if (type TEXT NOT NULL, position INTEGER NOT NULL, step TEXT NOT NULL, first TEXT NOT NULL,
    first_label TEXT NOT NULL, second TEXT NOT NULL, second_label TEXT NOT NULL,
    PRIMARY KEY (type, position)) WITHOUT ROWID;
CREATE TABLE graphic (id INTEGER PRIMARY KEY, type TEXT NOT NULL, graphic TEXT NOT NULL, keys TEXT NOT NULL,
                      entry TEXT NOT NULL UNIQUE, UNIQUE (type, graphic, keys));
CREATE TABLE placeholder (id INTEGER PRIMARY KEY, entry TEXT NOT NULL, code TEXT NOT NULL, owner TEXT NOT NULL,
                          key TEXT NOT NULL, with_unit INTEGER NOT NULL, digits INTEGER NOT NULL, UNIQUE (entry, code));
CREATE TABLE organic (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, label TEXT NOT NULL, acidity REAL NOT NULL,
    carbon REAL NOT NULL);
CREATE TABLE water_type (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, description TEXT NOT NULL);
-- Categories and countries take their identifiers from one row of numbers: a query names either kind by number alone.
CREATE TABLE water_category (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, position INTEGER NOT NULL);
CREATE TABLE water_country (id INTEGER PRIMARY KEY, category_id INTEGER NOT NULL, name TEXT NOT NULL,
    UNIQUE (category_id, name));
CREATE TABLE water (id INTEGER PRIMARY KEY, country_id INTEGER NOT NULL, place TEXT NOT NULL, source TEXT NOT NULL);
CREATE INDEX water_of_country ON water (country_id);
CREATE TABLE water_value (water_id INTEGER NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL, unit TEXT NOT NULL,
    PRIMARY KEY (water_id, name)) WITHOUT ROWID;
"""


def read_csv(path, columns):
    with open(path, newline="", encoding="utf-8") as file:
        reader = csv.DictReader(file, strict=True)
        missing = set(columns) - set(reader.fieldnames or [])
        if missing:
            sys.exit(f"{path}: missing columns {sorted(missing)}")
        for row in reader:
            if None in row or None in row.values():
                sys.exit(f"{path}:{reader.line_num}: wrong number of fields")
            yield f"{path}:{reader.line_num}", row


def number(text, where):
    if text == "":
        return None
    value = float(text)
    if not math.isfinite(value):
        sys.exit(f"{where}: '{text}' is no finite number")
    return value


def check_default(kind, text, where):
    if text == "":
        return
    try:
        {"double": float, "long": int}.get(kind, str)(text)
    except ValueError:
        sys.exit(f"{where}: default '{text}' is no {kind}")
    if kind == "bool" and text not in ("true", "false"):
        sys.exit(f"{where}: default '{text}' is no bool")


def expand_key(key, label, ions):
    """The keys that a row stands for, each with its label."""
    for placeholder, kinds in KEY_PLACEHOLDERS.items():
        if placeholder in key:
            return [(key.replace(placeholder, ion["key"]), label.replace("{name}", ion["name"]))
                    for ion in ions if ion["kind"] in kinds]
    return [(key, label)]


def fill_details(db, csv_dir, ions):
    columns = ("group", "variant", "key", "role", "type", "unit", "min", "max", "limit_unit", "default", "label")
    for where, row in read_csv(csv_dir / "details.csv", columns):
        if row["type"] not in TYPES:
            sys.exit(f"{where}: unknown type '{row['type']}'")
        if row["role"] not in ROLES:
            sys.exit(f"{where}: unknown role '{row['role']}'")
        low, high = number(row["min"], where), number(row["max"], where)
        if low is not None and high is not None and low > high:
            sys.exit(f"{where}: the minimum lies above the maximum")
        check_default(row["type"], row["default"], where)
        for key, label in expand_key(row["key"], row["label"], ions):
            try:
                db.execute("INSERT INTO detail VALUES (?,?,?,?,?,?,?,?,?,?,?)",
                           (row["group"], row["variant"], key, row["role"] == "derived", row["type"], row["unit"],
                            low, high, row["limit_unit"], row["default"], label))
            except sqlite3.IntegrityError:
                sys.exit(f"{where}: '{key}' is there already")


def fill_detail_choices(db, csv_dir):
    for where, row in read_csv(csv_dir / "detail_choices.csv", ("key", "empty", "choices")):
        if ":" in row["choices"]:
            file, column = row["choices"].split(":")
            if column == "#":
                choices = [str(place) for place, _ in enumerate(read_csv(csv_dir / file, ()), start=1)]
            else:
                choices = [other[column] for _, other in read_csv(csv_dir / file, (column,))]
        else:
            choices = row["choices"].split()
        choices += [""] if row["empty"] == "yes" else []
        found = db.execute("SELECT type, default_value FROM detail WHERE name = ?", (row["key"],)).fetchone()
        if found is None or found[0] not in ("string", "long") or found[1] not in choices:
            sys.exit(f"{where}: '{row['key']}' is no text or number with one of these values as its default")
        for position, choice in enumerate(choices):
            db.execute("INSERT INTO detail_choice VALUES (?,?,?)", (row["key"], position, choice))


def fill_ions(db, ions):
    for number_of_ion, ion in enumerate(ions, start=1):
        db.execute("INSERT INTO ion VALUES (?,?,?,?,?,?)",
                   (number_of_ion, ion["key"], ion["symbol"], ion["name"], int(ion["charge"]), ion["kind"]))


def fill_elements(db, csv_dir):
    columns = ("symbol", "name", "z", "atomic_weight", "group", "group_old", "period", "block", "state_25c",
               "electron_configuration", "oxidation_states", "class")
    for _, row in read_csv(csv_dir / "elements.csv", columns):
        # Elements without stable isotopes carry the mass number of the longest-lived one, in brackets.
        weight = float(row["atomic_weight"].strip("[]"))
        db.execute("INSERT INTO element VALUES (?,?,?,?,?,?,?,?,?,?,?,?)",
                   (int(row["z"]), row["symbol"], row["name"], weight,
                    int(row["group"]) if row["group"].isdigit() else None, row["group_old"], int(row["period"]),
                    row["block"], row["state_25c"], row["electron_configuration"], row["oxidation_states"],
                    row["class"]))


def catalogues(locales, domain):
    for path in sorted(locales.glob(f"*/LC_MESSAGES/{domain}.mo")):
        with open(path, "rb") as file:
            yield path.parent.parent.name, gettext.GNUTranslations(file)


def fill_iso_codes(db, table, entries, locales, domain):
    for entry in entries:
        # The common name ("Bolivia") reads better in a list than the filed one ("Bolivia, Plurinational State of").
        entry["shown"] = entry.get("common_name", entry["name"])
        db.execute(f"INSERT INTO {table} VALUES (?,?,?)", (int(entry["numeric"]), entry["code"], entry["shown"]))
    for language, catalogue in catalogues(locales, domain):
        for entry in entries:
            name = catalogue.gettext(entry["shown"])
            if name != entry["shown"]:
                db.execute(f"INSERT INTO {table}_name VALUES (?,?,?)", (entry["code"], language, name))


def fill_alkalizing_agents(db, csv_dir, ions):
    columns = ("key", "name", "formula", "molar_mass", "valency", "carbon", "ion", "cation_mass", "pka", "enthalpy")
    rows = read_csv(csv_dir / "alkalizing_agents.csv", columns)
    for identifier, (where, row) in enumerate(rows, start=1):
        if row["ion"] and row["ion"] not in {ion["key"] for ion in ions}:
            sys.exit(f"{where}: no ion '{row['ion']}'")
        if (int(row["valency"]) == 0) != bool(row["pka"]):
            sys.exit(f"{where}: a strong base has a valency, a weak one a pKa")
        db.execute("INSERT INTO alkalizing_agent VALUES (?,?,?,?,?,?,?,?,?,?,?)",
                   (identifier, row["key"], row["name"], row["formula"], number(row["molar_mass"], where),
                    int(row["valency"]), int(row["carbon"]), row["ion"], number(row["cation_mass"], where),
                    number(row["pka"], where), number(row["enthalpy"], where)))


def fill_compounds(db, csv_dir):
    elements = {symbol for symbol, in db.execute("SELECT symbol FROM element")}
    columns = ("base_element", "name", "formula", "pka", "valency", "oxidation_number", "acid_base", "charge",
               "category")
    called = set()
    for identifier, (where, row) in enumerate(read_csv(csv_dir / "compounds.csv", columns), start=1):
        if row["base_element"] not in elements:
            sys.exit(f"{where}: no element '{row['base_element']}'")
        if row["acid_base"] not in ACID_BASE:
            sys.exit(f"{where}: unknown kind '{row['acid_base']}'")
        try:
            db.execute("INSERT INTO compound VALUES (?,?,?,?,?,?,?,?,?,?)",
                       (identifier, row["base_element"], row["name"], row["formula"], number(row["pka"], where),
                        int(row["valency"]), int(row["oxidation_number"]), ACID_BASE.index(row["acid_base"]),
                        int(row["charge"]), row["category"]))
        except sqlite3.IntegrityError:
            sys.exit(f"{where}: '{row['name']}' is there already")
        # A column for each language: what is searched and typed in a language leads back to one compound.
        for language in (column.removeprefix("name_") for column in row if column.startswith("name_")):
            name = row[f"name_{language}"]
            if not name or (language, name, row["formula"]) in called:
                sys.exit(f"{where}: name '{name}' in {language} is missing or there already")
            called.add((language, name, row["formula"]))
            db.execute("INSERT INTO compound_name VALUES (?,?,?)", (identifier, language, name))


def fill_feed_mediums(db, csv_dir, plants):
    rows = read_csv(csv_dir / "feed_mediums.csv", ("name", "density", "usages"))
    for identifier, (where, row) in enumerate(rows, start=1):
        db.execute("INSERT INTO feed_medium VALUES (?,?,?)", (identifier, row["name"], number(row["density"], where)))
        db.executemany("INSERT INTO feed_medium_usage VALUES (?,?,?)",
                       [(identifier, plant, usage) for plant in plants for usage in row["usages"].split()])


def fill_plants(db, csv_dir):
    """Returns the types."""
    types = []
    for identifier, (where, row) in enumerate(read_csv(csv_dir / "plants.csv", ("type", "name", "exchangers")), start=1):
        db.execute("INSERT INTO plant_type VALUES (?,?,?)", (identifier, row["type"], row["name"]))
        for position, word in enumerate(row["exchangers"].split()):
            kind = word.removesuffix("?")
            if kind not in EXCHANGERS:
                sys.exit(f"{where}: unknown exchanger '{kind}'")
            db.execute("INSERT INTO plant_exchanger VALUES (?,?,?,?)",
                       (row["type"], position, kind, kind != word))
        types.append(row["type"])
    return types


def fill_regenerants(db, csv_dir):
    columns = ("key", "name", "formula", "kind", "equivalent_mass", "source")
    keys = []
    for identifier, (where, row) in enumerate(read_csv(csv_dir / "regenerants.csv", columns), start=1):
        if row["kind"] not in REGENERANT_KINDS:
            sys.exit(f"{where}: unknown kind '{row['kind']}'")
        db.execute("INSERT INTO regenerant VALUES (?,?,?,?,?,?)",
                   (identifier, row["key"], row["name"], row["formula"], row["kind"],
                    number(row["equivalent_mass"], where)))
        keys.append(row["key"])
    for where, row in read_csv(csv_dir / "regenerant_densities.csv", ("key", "percent", "density", "source")):
        if row["key"] not in keys:
            sys.exit(f"{where}: no regenerant '{row['key']}'")
        db.execute("INSERT INTO regenerant_density VALUES (?,?,?)",
                   (row["key"], number(row["percent"], where), number(row["density"], where)))


def sequence_figures(where, row):
    """Direction, flow and amount of a row of a sequence."""
    if row["direction"] not in ("UP", "DOWN") or row["flow"] not in SEQUENCE_FLOWS or row["amount"] not in SEQUENCE_AMOUNTS:
        sys.exit(f"{where}: no direction, flow or amount of a sequence")
    return (row["direction"], row["flow"], number(row["flow_value"], where), row["amount"],
            number(row["amount_value"], where))


def fill_sequences(db, csv_dir):
    figures = ("direction", "flow", "flow_value", "amount", "amount_value")
    chemicals = {code for code, in db.execute("SELECT code FROM regenerant")} | {""}
    media, types = [], []
    for where, row in read_csv(csv_dir / "sequence_media.csv", ("key", "label", "kind", "chemical")):
        if row["kind"] not in SEQUENCE_MEDIA or row["chemical"] not in chemicals:
            sys.exit(f"{where}: unknown kind or chemical")
        media.append(row["key"])
        db.execute("INSERT INTO sequence_medium VALUES (?,?,?,?,?)",
                   (len(media), row["key"], row["label"], row["kind"], row["chemical"]))
    for where, row in read_csv(csv_dir / "sequence_types.csv", ("key", "label", "class", "source") + figures):
        if row["class"] not in SEQUENCE_CLASSES:
            sys.exit(f"{where}: unknown class '{row['class']}'")
        types.append(row["key"])
        db.execute("INSERT INTO sequence_type VALUES (?,?,?,?,?,?,?,?,?)",
                   (len(types), row["key"], row["label"], row["class"]) + sequence_figures(where, row))
    rows = read_csv(csv_dir / "sequence_defaults.csv", ("kind", "type", "medium") + figures)
    for identifier, (where, row) in enumerate(rows, start=1):
        if row["kind"] not in EXCHANGERS or row["type"] not in types or row["medium"] not in media:
            sys.exit(f"{where}: unknown exchanger, type or medium")
        db.execute("INSERT INTO sequence_default VALUES (?,?,?,?,?,?,?,?,?)",
                   (identifier, row["kind"], row["type"], row["medium"]) + sequence_figures(where, row))


def fill_resins(db, csv_dir):
    columns = ("total_capacity", "capacity", "bead", "density", "bulk_density", "void", "swelling", "v_max", "t_max")
    resins = []
    for where, row in read_csv(csv_dir / "resins.csv", ("key", "name", "kind", "source") + columns):
        if row["kind"] not in RESIN_KINDS:
            sys.exit(f"{where}: unknown kind '{row['kind']}'")
        resins.append(row["key"])
        db.execute("INSERT INTO resin VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)",
                   (len(resins), row["key"], row["name"], row["kind"], *(number(row[each], where) for each in columns)))
    chemicals = {code for code, in db.execute("SELECT code FROM regenerant")}
    figures = ("q_max", "k", "level_min", "level_max", "ratio_min", "ratio_max")
    names = ("resin", "chemical", "mode", "source")
    for identifier, (where, row) in enumerate(read_csv(csv_dir / "resin_regeneration.csv", names + figures), start=1):
        if row["resin"] not in resins or row["chemical"] not in chemicals or row["mode"] not in ("", "CO", "COUNTER", "MB"):
            sys.exit(f"{where}: unknown resin, chemical or mode")
        db.execute("INSERT INTO resin_regeneration VALUES (?,?,?,?,?,?,?,?,?,?)",
                   (identifier, row["resin"], row["chemical"], row["mode"], *(number(row[each], where) for each in figures)))
    figures = ("level", "supply", "dilution", "temperature")
    names = ("plant", "kind", "compartment", "mode", "v_max", "resin", "chemical", "source")
    plants = {type_ for type_, in db.execute("SELECT type FROM plant_type")} | {""}
    for where, row in read_csv(csv_dir / "exchanger_defaults.csv", names + figures):
        if (row["plant"] not in plants or row["kind"] not in EXCHANGERS or row["resin"] not in resins or
                row["chemical"] not in chemicals or row["mode"] not in ("CO", "COUNTER")):
            sys.exit(f"{where}: unknown plant, exchanger, mode, resin or chemical")
        db.execute("INSERT INTO exchanger_default VALUES (?,?,?,?,?,?,?,?,?,?,?)",
                   (row["plant"], row["kind"], int(row["compartment"]), row["mode"], number(row["v_max"], where),
                    row["resin"], row["chemical"], *(number(row[each], where) for each in figures)))


def fill_what_if(db, csv_dir, plants):
    columns = ("types", "steps", "first", "first_label", "second", "second_label")
    known = {name: (kind, derived) for name, kind, derived in db.execute("SELECT name, type, derived FROM detail")}
    seen = set()
    for where, row in read_csv(csv_dir / "whatif.csv", columns):
        for key in (row["first"], row["second"]):
            if known.get(key, ("", 0))[0] not in ("double", "long"):
                sys.exit(f"{where}: there is no number '{key}'")
            if row["steps"] == "" and key.startswith("regseqstep/"):
                sys.exit(f"{where}: '{key}' belongs to a row of a sequence, but no kind of row is given")
        if known[row["first"]][1] and known[row["second"]][1]:
            sys.exit(f"{where}: one of the two must be an input")
        for plant in row["types"].split():
            if plant not in plants:
                sys.exit(f"{where}: unknown type '{plant}'")
            for step in row["steps"].split() or [""]:
                pair = (plant, step, row["first"], row["second"])
                if pair in seen:
                    sys.exit(f"{where}: the pair is there already")
                seen.add(pair)
                db.execute("INSERT INTO what_if VALUES (?,?,?,?,?,?,?)",
                           (plant, len(seen), step, row["first"], row["first_label"], row["second"],
                            row["second_label"]))


def fill_graphics(db, csv_dir, plants):
    entries = set()
    for identifier, (where, row) in enumerate(read_csv(csv_dir / "graphics.csv", ("type", "graphic", "keys", "entry")), start=1):
        if row["type"] not in plants:
            sys.exit(f"{where}: unknown type '{row['type']}'")
        db.execute("INSERT INTO graphic VALUES (?,?,?,?,?)",
                   (identifier, row["type"], row["graphic"], row["keys"], row["entry"]))
        entries.add(row["entry"])
    details = {name for name, in db.execute("SELECT name FROM detail")}
    rows = read_csv(csv_dir / "placeholders.csv", ("entry", "id", "address", "unit", "digits"))
    for identifier, (where, row) in enumerate(rows, start=1):
        owner, _, key = row["address"].partition(":")
        if row["entry"] not in entries or key not in details or row["unit"] not in ("yes", "no"):
            sys.exit(f"{where}: no such graphic or value, or neither with a unit nor without one")
        db.execute("INSERT INTO placeholder VALUES (?,?,?,?,?,?,?)",
                   (identifier, row["entry"], row["id"], owner, key, row["unit"] == "yes", int(row["digits"])))


def fill_organics(db, csv_dir):
    rows = read_csv(csv_dir / "organics.csv", ("key", "label", "acidity", "carbon"))
    for identifier, (where, row) in enumerate(rows, start=1):
        db.execute("INSERT INTO organic VALUES (?,?,?,?,?)",
                   (identifier, row["key"], row["label"], number(row["acidity"], where), number(row["carbon"], where)))


def fill_water_types(db, csv_dir):
    for identifier, (_, row) in enumerate(read_csv(csv_dir / "water_types.csv", ("code", "description")), start=1):
        db.execute("INSERT INTO water_type VALUES (?,?,?)", (identifier, row["code"], row["description"]))


def scientific(value):
    """A number as the program writes it: 15 digits, an exponent of three."""
    mantissa, exponent = f"{value:.14E}".split("E")
    return f"{mantissa}E{exponent[0]}{exponent[1:].zfill(3)}"


def water_values(db, row, ion_keys, where):
    """Key, value and unit of each stored detail. The stored water is a whole one: what the analysis does not state has
    the default of the catalogue, zeros and empty texts are left out, a number that is not known has an empty text."""
    stated = {}
    for column, text in row.items():
        if column in WATER_COLUMNS:
            stated[WATER_COLUMNS[column]] = text
        elif column in ion_keys:
            stated[f"liquid/{column}.orig"] = text
    details = db.execute("SELECT name, type, unit, default_value FROM detail "
                         "WHERE grp = 'liquid' AND variant = 'BASE' AND NOT derived ORDER BY name").fetchall()
    units = {name: default for name, _, _, default in details if name.endswith(".unit")}
    for name, kind, unit, default in details:
        text = stated.pop(name, "") or default
        if kind == "double":
            value = number(text, where)
            if value == 0:
                continue
            text = "" if value is None else scientific(value)
        elif text in ("", "false"):
            continue
        if name.endswith(".orig"):
            unit = units[name.removesuffix("orig") + "unit"]
        yield name, text, unit
    if stated:
        sys.exit(f"{where}: the catalogue lacks {sorted(stated)}")


def fill_waters(db, path, ions):
    rows = list(read_csv(path, ("id", "category", "kind", *WATER_COLUMNS)))
    country_names = dict(db.execute("SELECT code, name FROM country"))
    categories = list(dict.fromkeys(row["category"] for _, row in rows))
    for identifier, name in enumerate(categories, start=1):
        db.execute("INSERT INTO water_category VALUES (?,?,?)", (identifier, name, identifier))
    countries = {}
    for identifier, (where, row) in enumerate(rows, start=1):
        if row["country"] and row["country"] not in country_names:
            sys.exit(f"{where}: no country '{row['country']}'")
        if row["water_type"] and not db.execute("SELECT 1 FROM water_type WHERE code = ?",
                                                (row["water_type"],)).fetchone():
            sys.exit(f"{where}: no water type '{row['water_type']}'")
        key = (categories.index(row["category"]) + 1, country_names.get(row["country"], NO_COUNTRY))
        if key not in countries:
            countries[key] = len(categories) + len(countries) + 1
            db.execute("INSERT INTO water_country VALUES (?,?,?)", (countries[key], *key))
        db.execute("INSERT INTO water VALUES (?,?,?,?)",
                   (identifier, countries[key], row["place"], row["water_source"]))
        db.executemany("INSERT INTO water_value VALUES (?,?,?,?)",
                       [(identifier, *value) for value in water_values(db, row, {ion["key"] for ion in ions}, where)])


def build(path, arguments):
    db = sqlite3.connect(path)
    db.execute(f"PRAGMA application_id = {APPLICATION_ID}")
    db.execute(f"PRAGMA user_version = {SCHEMA_VERSION}")
    db.executescript(SCHEMA)
    ions = [row for _, row in read_csv(arguments.ions, ("key", "symbol", "name", "charge", "kind"))]
    fill_ions(db, ions)
    fill_details(db, arguments.csv_dir, ions)
    fill_detail_choices(db, arguments.csv_dir)
    fill_elements(db, arguments.csv_dir)
    for table, domain, code in (("country", "iso_3166-1", "alpha_2"), ("currency", "iso_4217", "alpha_3")):
        with open(arguments.iso_codes / f"{domain}.json", encoding="utf-8") as file:
            entries = json.load(file)[domain.removeprefix("iso_")]
        for entry in entries:
            entry["code"] = entry[code]
        fill_iso_codes(db, table, entries, arguments.locales, domain)
    fill_alkalizing_agents(db, arguments.csv_dir, ions)
    fill_compounds(db, arguments.csv_dir)
    plants = fill_plants(db, arguments.csv_dir)
    fill_feed_mediums(db, arguments.csv_dir, plants)
    fill_what_if(db, arguments.csv_dir, plants)
    fill_regenerants(db, arguments.csv_dir)
    fill_sequences(db, arguments.csv_dir)
    fill_resins(db, arguments.csv_dir)
    fill_graphics(db, arguments.csv_dir, plants)
    fill_organics(db, arguments.csv_dir)
    fill_water_types(db, arguments.csv_dir)
    fill_waters(db, arguments.waters, ions)
    db.commit()
    db.execute("VACUUM")
    db.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("output", type=Path)
    parser.add_argument("csv_dir", type=Path)
    parser.add_argument("--ions", type=Path, required=True)
    parser.add_argument("--waters", type=Path, required=True)
    parser.add_argument("--iso-codes", type=Path, default=Path("/usr/share/iso-codes/json"))
    parser.add_argument("--locales", type=Path, default=Path("/usr/share/locale"))
    arguments = parser.parse_args()
    arguments.output.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(dir=arguments.output.parent) as folder:
        temporary = Path(folder) / "master.db"
        build(temporary, arguments)
        temporary.chmod(0o644)
        os.replace(temporary, arguments.output)


if __name__ == "__main__":
    main()
