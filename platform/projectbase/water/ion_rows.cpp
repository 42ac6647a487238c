// SPDX-License-Identifier: MIT
#include "projectbase/water/ion_rows.h"

#include "core/ion_table.h"

#include <algorithm>
#include <vector>

namespace water {

IonRow MakeIonRow(std::string_view ion)
{
    const std::string prefix = "liquid/" + std::string(ion);
    IonRow row;
    row.ion = ion;
    row.orig = prefix + ".orig";
    row.unit = prefix + ".unit";
    row.meql = prefix + ".meql";
    row.mgl = prefix + ".mgl";
    row.name = prefix + ".name";
    row.species = SpeciesOfKey(ion);
    row.isCation = std::ranges::find(ions::kCationKeys, ion) != ions::kCationKeys.end();
    row.isNamed = ions::IsNamedIon(ion);
    row.countsAsCharge = ions::CountsAsCharge(ion);
    return row;
}

std::span<const IonRow> IonRows()
{
    static const std::vector<IonRow> rows = [] {
        std::vector<IonRow> built;
        for (const auto key : ions::kCationKeys)
            built.push_back(MakeIonRow(key));
        for (const auto key : ions::kAnionKeys)
            built.push_back(MakeIonRow(key));
        return built;
    }();
    return rows;
}

const IonRow* FindIonRow(std::string_view ion)
{
    const auto rows = IonRows();
    const auto found = std::ranges::find(rows, ion, &IonRow::ion);
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace water
