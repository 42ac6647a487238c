#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Brings the message catalogues up to date with the sources:  update_catalogues.sh [FOLDER]
# Writes FOLDER/tarnvik.pot and merges it into every FOLDER/*.po; FOLDER is resources/i18n. A translation that no
# longer fits its source text becomes fuzzy and has to be looked at.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
folder="$(realpath "${1:-$root/resources/i18n}")"
temporary="$(mktemp -d)"
trap 'rm -rf "$temporary"' EXIT
cd "$root"

# The header of the template, and texts that stand in data: kinds and categories of waters, names of agents and
# organics, elements, categories of compounds, feed mediums, names of details, pairs of the what-if analysis, captions of
# graphics.
python3 - resources/examples/waters.csv:kind,category \
    resources/master/water_types.csv:description resources/master/alkalizing_agents.csv:name \
    resources/master/organics.csv:label resources/master/elements.csv:name,class,state_25c \
    resources/master/compounds.csv:category resources/master/feed_mediums.csv:name \
    resources/master/regenerants.csv:name \
    resources/master/sequence_media.csv:label resources/master/sequence_types.csv:label \
    resources/master/resins.csv:name resources/master/plants.csv:name \
    resources/master/details.csv:label resources/master/whatif.csv:first_label,second_label \
    resources/graphics/*.svg >"$temporary/header.pot" <<'PYTHON'
import csv
import sys
from xml.etree import ElementTree

print("""# Texts of Tarnvik.
# SPDX-License-Identifier: MIT
msgid ""
msgstr ""
"Project-Id-Version: tarnvik\\n"
"MIME-Version: 1.0\\n"
"Content-Type: text/plain; charset=UTF-8\\n"
"Content-Transfer-Encoding: 8bit\\n"
""")
places = {}
for argument in sys.argv[1:]:
    if argument.endswith(".svg"):
        # What has an id is a value.
        for element in ElementTree.parse(argument).iter("{http://www.w3.org/2000/svg}text"):
            if "id" not in element.attrib:
                places.setdefault(element.text, set()).add("resources/graphics")
        continue
    path, columns = argument.split(":")
    with open(path, encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file):
            for text in filter(lambda text: text and "{" not in text, map(row.get, columns.split(","))):
                places.setdefault(text, set()).add(path)
for text, paths in sorted(places.items()):
    print("\n".join(f"#: {path}" for path in sorted(paths)) + f'\nmsgid "{text}"\nmsgstr ""\n')
PYTHON

# The texts of controls are arguments of their constructors, at the place that is given here.
find app modules platform -name '*.cpp' -o -name '*.h' | LC_ALL=C sort |
    xgettext --files-from=- --output="$temporary/sources.pot" --language=C++ --from-code=UTF-8 \
        --package-name=tarnvik --add-location=file --add-comments=TRANSLATORS \
        --keyword --keyword=wxTRANSLATE --keyword=SourceText --keyword=Translated --keyword=Tr --keyword=AddLabel:2 \
        --keyword=TvStaticBoxSizer:3 --keyword=TvCheckBox:3 --keyword=TvRadioButton:3 --keyword=TvButton:3 \
        --keyword=TvStaticText:3 --keyword=SetTranslatableToolTip --keyword=SetTranslatableHint --keyword=CreateButtons:3
msgcat --use-first --sort-output "$temporary/header.pot" "$temporary/sources.pot" >"$folder/tarnvik.pot"

for catalogue in "$folder"/*.po; do
    [ -e "$catalogue" ] || continue
    msgmerge --quiet --update --backup=none --sort-output --add-location=file "$catalogue" "$folder/tarnvik.pot"
done
