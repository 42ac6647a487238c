// SPDX-License-Identifier: MIT
// A line of the ion table is all that it takes to add an ion: whatever shows, stores, reads or calculates
// ions follows.
#include "core/ion_table.h"
#include "core/laboratory_file.h"
#include "dbinterfaces/master_database.h"
#include "projectbase/water/conductivity.h"
#include "projectbase/water/laboratory_import.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using testing_support::WaterUnderTest;

namespace {

std::vector<const ions::Ion*> RowsOfAnalysis()
{
    std::vector<const ions::Ion*> rows(ions::kCations.begin(), ions::kCations.end());
    rows.insert(rows.end(), ions::kAnions.begin(), ions::kAnions.end());
    return rows;
}

TEST(IonRows, TheDatabaseListsTheIonsOfTheTable)
{
    const auto rows = RowsOfAnalysis();
    const auto listed = MasterDatabase::GetIons("%", "%", "%");
    ASSERT_EQ(listed.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(listed[i].key, rows[i]->key);
        EXPECT_EQ(listed[i].symbol, rows[i]->symbol);
        EXPECT_EQ(listed[i].name, rows[i]->name);
        EXPECT_EQ(listed[i].charge, rows[i]->charge) << rows[i]->key;
        EXPECT_EQ(listed[i].kind.starts_with("named "), ions::IsNamedIon(rows[i]->key)) << rows[i]->key;
        const bool isCation = std::ranges::find(ions::kCations, rows[i]) != ions::kCations.end();
        EXPECT_EQ(listed[i].kind.ends_with("cation"), isCation) << rows[i]->key;
    }
}

TEST(IonRows, EveryIonIsNormalisedAndConducts)
{
    for (const ions::Ion* ion : RowsOfAnalysis()) {
        const std::string key(ion->key);
        WaterUnderTest water;
        water.Set("ph", 7.0).Set("temp.orig", 25.0).Set("balance.ph", true);
        if (ions::IsNamedIon(key))
            water.Set(key + ".name", "Cs");
        water.Type(key, 2.0, "meq/l").Update();
        EXPECT_EQ(water[key + ".meql"], 2.0) << key;
        const auto* reference = ions::FindIon(ions::ReferenceKey(key, "Cs"));
        ASSERT_NE(reference, nullptr) << key;
        EXPECT_NEAR(water[key + ".mgl"], 2.0 * reference->equivalentWeight, 1e-9) << key;
        const double sum = water[ion->charge > 0 ? "sum.c.meql" : "sum.a.meql"];
        EXPECT_NEAR(sum, ion->charge == 0 ? 0.0 : 2.0, 1e-2) << key;
        if (ion->charge != 0)
            EXPECT_GT(water["cond25"], 50.0) << key;
        else
            EXPECT_LT(water["cond25"], 1.0) << key;
    }
}

TEST(IonRows, AmountsOfLaboratoriesBecomeTheMassOfEveryIon)
{
    for (const ions::Ion& ion : ions::kIonTable) {
        for (std::size_t at = 0; at < ion.spellings.size();) {
            const std::size_t end = std::min(ion.spellings.find('|', at), ion.spellings.size());
            const std::string name(ion.spellings.substr(at, end - at));
            at = end + 1;
            EXPECT_EQ(laboratory::FindTarget(name), ion.key) << name;
            for (const auto& [unit, amount] : {std::pair("mmol/l", "0.5"), {"\u00b5mol/l", "500"}}) {
                const auto file = laboratory::Read("Parameter;Unit;Sample\npH;-;7\n" + name + ';' + unit +
                                                   ';' + amount + "\n");
                WaterUnderTest water;
                const auto values =
                    water::TakeSample(file, 0, water.Details(), laboratory::LimitReading::Half);
                water::StoreSample(values, water.Details(), laboratory::LimitReading::Half, true);
                water.Update();
                EXPECT_NEAR(water[std::string(ion.key) + ".mgl"], 0.5 * ion.molarMass, 2e-3 * ion.molarMass)
                    << name << " in " << unit;
            }
        }
    }
}

}  // namespace
