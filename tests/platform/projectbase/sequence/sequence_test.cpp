// SPDX-License-Identifier: MIT
// What the rows of a regeneration sequence come to. Figures are calculated by hand from the densities of
// Perry's handbook.
#include "projectbase/project/iex_project.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/sequence/row_quantities.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/sequence/sequence_rows.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

namespace {

using sequence::BedSize;
using sequence::RowQuantities;
using testing::ElementsAre;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

void ExpectRow(const RowQuantities& row, const RowQuantities& expected, const std::string& what)
{
    const auto same = [&](double value, double wanted, const char* name) {
        if (std::isnan(wanted))
            EXPECT_TRUE(std::isnan(value)) << what << ": " << name << " is " << value;
        else
            EXPECT_NEAR(value, wanted, 1e-12 * std::abs(wanted)) << what << ": " << name;
    };
    same(row.v, expected.v, "v");
    same(row.q, expected.q, "q");
    same(row.qBv, expected.qBv, "q.bv");
    same(row.t, expected.t, "t");
    same(row.vol, expected.vol, "vol");
    same(row.volBv, expected.volBv, "vol.bv");
}

TEST(RowQuantities, TwoFollowTheOneThatWasTyped)
{
    const BedSize bed{.area = 2.0, .volume = 4.0};
    const RowQuantities whole{.v = 10.0, .q = 20.0, .qBv = 5.0, .t = 0.5, .vol = 10.0, .volBv = 2.5};
    const RowQuantities stale{.v = 1.0, .q = 1.0, .qBv = 1.0, .t = 1.0, .vol = 1.0, .volBv = 1.0};
    for (const char* flow : {"v", "q", "q.bv", ""}) {
        for (const char* amount : {"t", "vol", "vol.bv", ""}) {
            RegSeqStep step{.values = stale};
            step.Type(*flow == '\0' ? "v" : flow,
                      RegSeqStep{.values = whole}.Get(*flow == '\0' ? "v" : flow));
            step.Type(*amount == '\0' ? "t" : amount,
                      RegSeqStep{.values = whole}.Get(*amount == '\0' ? "t" : amount));
            ExpectRow(FollowTyped(step.values, flow, amount, bed), whole,
                      std::string(flow) + " and " + amount);
        }
    }
}

TEST(RowQuantities, WhatCannotBeKnownIsEmpty)
{
    const BedSize bed{.area = 2.0, .volume = 4.0};
    const BedSize none;
    const struct
    {
        const char* what;
        RowQuantities typed;
        const char* flow;
        const char* amount;
        BedSize bed;
        RowQuantities expected;
    } cases[] = {
        {"no bed", {.v = 10.0, .t = 0.5}, "v", "t", none, {.v = 10.0, .t = 0.5}},
        {"no bed, but m3/h", {.q = 10.0, .t = 0.5}, "q", "t", none, {.q = 10.0, .t = 0.5, .vol = 5.0}},
        {"no flow",
         {.v = 0.0, .vol = 3.0},
         "v",
         "vol",
         bed,
         {.v = 0.0, .q = 0.0, .qBv = 0.0, .vol = 3.0, .volBv = 0.75}},
        {"no flow for a time",
         {.v = 0.0, .t = 3.0},
         "v",
         "t",
         bed,
         {.v = 0.0, .q = 0.0, .qBv = 0.0, .t = 3.0, .vol = 0.0, .volBv = 0.0}},
        {"a bed without resin",
         {.v = 10.0, .t = 0.5},
         "v",
         "t",
         {2.0, 0.0},
         {.v = 10.0, .q = 20.0, .t = 0.5, .vol = 10.0}},
        {"beyond all numbers",
         {.v = 1e300, .t = 1e300},
         "v",
         "t",
         bed,
         {.v = 1e300, .q = 2e300, .qBv = 5e299, .t = 1e300}},
        {"nothing typed", {.v = 10.0}, "v", "t", bed, {.v = 10.0, .q = 20.0, .qBv = 5.0}},
    };
    for (const auto& row : cases)
        ExpectRow(FollowTyped(row.typed, row.flow, row.amount, row.bed), row.expected, row.what);
}

TEST(RowQuantities, TheVolumeOfADoseLeavesFlowOrTimeToFollow)
{
    const BedSize bed{.area = 2.0, .volume = 4.0};
    ExpectRow(FollowVolume({.qBv = 5.0, .t = 9.0}, 10.0, "q.bv", "vol", bed),
              {.v = 10.0, .q = 20.0, .qBv = 5.0, .t = 0.5, .vol = 10.0, .volBv = 2.5}, "flow typed");
    ExpectRow(FollowVolume({.qBv = 7.0, .t = 0.5}, 10.0, "q.bv", "t", bed),
              {.v = 10.0, .q = 20.0, .qBv = 5.0, .t = 0.5, .vol = 10.0, .volBv = 2.5}, "time typed");
    ExpectRow(FollowVolume({.t = 0.0}, 10.0, "v", "t", bed), {.t = 0.0, .vol = 10.0, .volBv = 2.5},
              "in no time");
    ExpectRow(FollowVolume({.v = 3.0}, kUnknown, "v", "vol", bed), {.v = 3.0, .q = 6.0, .qBv = 1.5},
              "dose unknown");
}

/// A project that does not design: what the sequence refers to is given.
class SequenceTest : public testing::Test
{
protected:
    SequenceTest() : m_project("SAC") {}

    OwnerNode& AddExchanger(const char* kind, std::initializer_list<const char*> chemicals)
    {
        const ProjectEdit edit(m_project);
        OwnerNode& exchanger = m_project.AddOwner(m_project.GetRoot(), OwnerKind::Exchanger);
        Set(exchanger, "step/kind", kind);
        Set(exchanger, "step/area", 0.5);
        for (const char* chemical : chemicals) {
            OwnerNode& compartment = m_project.AddOwner(exchanger, OwnerKind::Compartment);
            OwnerNode& resin = m_project.AddOwner(compartment, OwnerKind::Resin);
            Set(resin, "compcomp/resin", "sac_gel");
            Set(resin, "compcomp/vol", 0.9333);
            Set(compartment, "stepcomp/rm.chemical", chemical);
            Set(compartment, "stepcomp/rm", 65.33);
            Set(compartment, "stepcomp/rm.konz", 30.0);
            Set(compartment, "stepcomp/konz.d", 5.0);
        }
        sequence::AddDefaults(m_project, exchanger);
        sequence::Calculate(exchanger);
        return exchanger;
    }

    template <typename Value>
    static void Set(OwnerNode& node, const char* key, Value value)
    {
        node.GetDetails()->At(key).SetValue(value);
    }
    static double Get(const OwnerNode& node, const char* key)
    {
        return node.GetDetails()->At(key).GetDoubleValue();
    }
    static std::vector<std::string> TypesOf(const OwnerNode& exchanger)
    {
        std::vector<std::string> types;
        for (const RegSeqStep& step : sequence::Read(exchanger).steps)
            types.push_back(step.type + (step.removable ? "" : "!"));
        return types;
    }
    OwnerNode& Row(OwnerNode& exchanger, std::size_t place)
    {
        return *exchanger.GetChildren(OwnerKind::SequenceRow)[place];
    }

    Project m_project;
};

TEST_F(SequenceTest, AChemicalFlowsAsItsDoseAndDilutionSay)
{
    OwnerNode& exchanger = AddExchanger("SAC_H", {"HCL"});
    OwnerNode& acid = Row(exchanger, 1);
    // 65.33 kg of HCl, 5 % at 1.0230 kg/l.
    EXPECT_NEAR(Get(acid, "regseqstep/vol"), 1.2772, 1e-4);
    EXPECT_NEAR(Get(acid, "regseqstep/vol.bv"), 1.3685, 1e-4);
    EXPECT_NEAR(Get(acid, "regseqstep/t"), 1.2772 / (4.0 * 0.9333), 1e-4);
    auto rows = sequence::Volumes(exchanger);
    ASSERT_EQ(rows.size(), 4u);
    // 65.33 kg in 30 % at 1.149 kg/l; the rest is the water of the displacement that follows.
    EXPECT_NEAR(rows[1].volume, 0.18953, 1e-5);
    EXPECT_NEAR(rows[1].dilutionVolume, 1.2772 - 0.1895, 1e-4);
    EXPECT_EQ(rows[1].dilution->key, "REGSEQ_DECAT_WATER");

    Set(*exchanger.GetChildren(OwnerKind::Compartment)[0], "stepcomp/konz.d", 60.0);
    sequence::Calculate(exchanger);
    EXPECT_TRUE(std::isnan(Get(acid, "regseqstep/vol"))) << "a density that is not known";
    EXPECT_TRUE(std::isnan(Get(acid, "regseqstep/t")));
    EXPECT_EQ(Get(acid, "regseqstep/q.bv"), 4.0) << "what was typed stays";
    Set(*exchanger.GetChildren(OwnerKind::Compartment)[0], "stepcomp/konz.d", 33.0);
    sequence::Calculate(exchanger);
    EXPECT_TRUE(std::isnan(sequence::Volumes(exchanger)[1].dilutionVolume)) << "stronger than its supply";
}

TEST_F(SequenceTest, SulfuricAcidInTwoStepsHasTwoRows)
{
    OwnerNode& exchanger = AddExchanger("SAC_H", {"H2SO4"});
    EXPECT_THAT(TypesOf(exchanger), ElementsAre("REGSEQ_BW", "REGSEQ_REG!", "REGSEQ_DISP!", "REGSEQ_RINSE!"));
    OwnerNode& compartment = *exchanger.GetChildren(OwnerKind::Compartment)[0];
    Set(compartment, "stepcomp/rm.konz", 96.0);
    Set(compartment, "stepcomp/konz.d", 2.0);
    Set(compartment, "stepcomp/konz.d2", 4.0);
    Set(compartment, "stepcomp/rm.progressive", true);
    EXPECT_THAT(TypesOf(exchanger), ElementsAre("REGSEQ_BW", "REGSEQ_REG_FIRST!", "REGSEQ_REG!",
                                                "REGSEQ_DISP!", "REGSEQ_RINSE!"));
    Set(compartment, "stepcomp/rm.portion", 40.0);
    EXPECT_EQ(Get(compartment, "stepcomp/rm.portion2"), 60.0);
    sequence::Calculate(exchanger);
    // 26.132 kg in 2 % at 1.012 kg/l, 39.198 kg in 4 % at 1.025 kg/l.
    EXPECT_NEAR(Get(Row(exchanger, 1), "regseqstep/vol"), 1.29111, 1e-5);
    EXPECT_NEAR(Get(Row(exchanger, 2), "regseqstep/vol"), 0.95605, 1e-5);
    Set(compartment, "stepcomp/rm.chemical", "HCL");
    EXPECT_EQ(sequence::Read(exchanger).steps[1].medium, "REGSEQ_HCL") << "the rows follow their chemical";
}

TEST_F(SequenceTest, WhatAnExchangerRequiresStays)
{
    OwnerNode& bed = AddExchanger("MB", {"HCL", "NAOH"});
    RegSeqData data = sequence::Read(bed);
    const std::vector<std::string> usual = TypesOf(bed);
    EXPECT_EQ(std::ranges::count(usual, "REGSEQ_REG!"), 2) << "both regenerants";
    data.steps.clear();
    data.remarks = std::string(5'000, 'x');
    sequence::Save(m_project, bed, data);
    EXPECT_THAT(TypesOf(bed), ElementsAre("REGSEQ_BW!", "REGSEQ_REG!", "REGSEQ_REG!", "REGSEQ_DISP!",
                                          "REGSEQ_RINSE!", "REGSEQ_AIRMIX!", "REGSEQ_FINAL!"));
    data = sequence::Read(bed);
    EXPECT_EQ(data.remarks.size(), 4'000u);
    EXPECT_EQ(data.steps[1].medium, "REGSEQ_HCL");
    EXPECT_EQ(data.steps[2].medium, "REGSEQ_NAOH");
    // Another rinse than the one that is required may go.
    data.steps.push_back({.type = "REGSEQ_RINSE", .medium = "REGSEQ_AIR"});
    sequence::Save(m_project, bed, data);
    const RegSeqStep added = sequence::Read(bed).steps.back();
    EXPECT_TRUE(added.removable);
    EXPECT_EQ(added.medium, "REGSEQ_TAP_WATER") << "a rinse with air is none";
    EXPECT_EQ(added.values.volBv, 2.0) << "the usual figures";
    Set(Row(bed, 7), "regseqstep/flag.removable", false);
    EXPECT_TRUE(sequence::Read(bed).steps.back().removable);
    Set(Row(bed, 4), "regseqstep/type", "REGSEQ_DRAIN");
    EXPECT_EQ(TypesOf(bed).back(), "REGSEQ_RINSE!") << "now the only one";
    // A row has a medium that its type can have, however it is told.
    Set(Row(bed, 0), "regseqstep/medium", "REGSEQ_AIR");
    EXPECT_EQ(sequence::Read(bed).steps[0].medium, "REGSEQ_TAP_WATER");
    Set(Row(bed, 0), "regseqstep/type", "REGSEQ_AIRMIX");
    EXPECT_EQ(sequence::Read(bed).steps[1].medium, "REGSEQ_AIR")
        << "the backwash that is required stands before";
}

TEST_F(SequenceTest, RowsKeepTheirIdentityAndAreUndone)
{
    OwnerNode& exchanger = AddExchanger("SBA", {"NAOH"});
    support::History history(m_project);
    const RegSeqData before = sequence::Read(exchanger);
    RegSeqData data = before;
    std::swap(data.steps[0], data.steps[3]);
    data.steps.insert(data.steps.begin() + 1, RegSeqStep());
    data.steps[0].Type("q", 3.0);
    data.remarks = "Wärme 40 °C";
    sequence::Save(m_project, exchanger, data);
    const RegSeqData after = sequence::Read(exchanger);
    EXPECT_EQ(after.steps[0].row, before.steps[3].row);
    EXPECT_EQ(after.steps[4].row, before.steps[0].row);
    EXPECT_EQ(after.steps[0].flowTyped, "q");
    EXPECT_EQ(history.stack.GetUndoStep()->name, "change regeneration sequence");
    history.stack.Undo();
    const RegSeqData back = sequence::Read(exchanger);
    ASSERT_EQ(back.steps.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(back.steps[i].row, before.steps[i].row);
        EXPECT_EQ(back.steps[i].flowTyped, before.steps[i].flowTyped);
    }
    EXPECT_EQ(back.remarks, "");
}

TEST_F(SequenceTest, WhatComesInGoesOutWhateverTheRows)
{
    OwnerNode& exchanger = AddExchanger("SAC_H", {"HCL"});
    std::mt19937 random(12);
    const auto pick = [&random](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    for (int round = 0; round < 100; ++round) {
        RegSeqData data;
        for (std::size_t rows = pick(20); rows > 0; --rows) {
            RegSeqStep step{.type = sequence::Types()[pick(sequence::Types().size())].key,
                            .medium = sequence::Media()[pick(sequence::Media().size())].key,
                            .counts = pick(2) == 0,
                            .own = pick(2) == 0};
            step.Type(std::array{"v", "q", "q.bv"}[pick(3)], 0.5 + static_cast<double>(pick(30)));
            step.Type(std::array{"t", "vol", "vol.bv"}[pick(3)], 0.1 * static_cast<double>(1 + pick(30)));
            data.steps.push_back(step);
        }
        sequence::Save(m_project, exchanger, data);
        sequence::Calculate(exchanger);
        double rows = 0.0;
        double regenerants = 0.0;
        for (const RegSeqStep& step : sequence::Read(exchanger).steps) {
            const std::string& kind = sequence::FindType(step.type)->rowClass;
            if (kind != "air" && kind != "still" && step.type != "REGSEQ_COND")
                rows += step.values.vol;
            if (sequence::IsRegeneration(step.type))
                regenerants += step.values.vol;
            EXPECT_TRUE(kind != "still" || (std::isnan(step.values.q) && std::isnan(step.values.vol)));
        }
        // Half of the rows may be of conditioning, whose chemical nobody chose.
        if (std::ranges::any_of(data.steps, [](const auto& step) { return step.type == "REGSEQ_COND"; }))
            continue;
        EXPECT_NEAR(regenerants, 1.2772, 1e-4) << "one dose, shared by rows that are alike";
        const auto sums = sequence::SumsOf(exchanger);
        const double sum =
            std::accumulate(sums.begin(), sums.end(), 0.0,
                            [](double all, const MediumSum& each) { return all + each.volume; });
        EXPECT_NEAR(sum, rows, 1e-9 * rows) << "round " << round;
        const sequence::Totals totals = sequence::TotalsOf(exchanger);
        EXPECT_NEAR(totals.ownUse + totals.serviceWater + totals.chemicals, rows, 1e-9 * rows);
        EXPECT_LE(totals.waste, rows * (1.0 + 1e-12));
    }
}

TEST(SequenceOfAPlant, WaterInIsWaterOut)
{
    for (const char* type : {"SOFT", "DEALK", "DEMI", "MB", "CP"}) {
        iex::IEXProject plant(type);
        support::SetWater(plant, {{"na", 1.0}, {"ca", 3.0}, {"hco3", 2.5}, {"cl", 1.5}, {"sio2", 0.2}});
        support::SetFlow(plant);
        support::Put(plant, "", "project/nlines", 3L);
        double rows = 0.0;
        double chemicals = 0.0;
        double waste = 0.0;
        for (std::size_t step = 0; step < plant.NumberSteps(); ++step) {
            for (const RegSeqStep& row : plant.GetRegSeqData(step).steps) {
                const std::string& kind = sequence::FindType(row.type)->rowClass;
                rows += kind == "flow" || kind == "chemical" ? row.values.vol : 0.0;
            }
            chemicals += sequence::TotalsOf(plant.GetStep(step)).chemicals;
            waste += sequence::TotalsOf(plant.GetStep(step)).waste;
        }
        const auto project = [&plant](const char* key) { return support::Get(plant, "", key); };
        EXPECT_GT(rows, 0.0) << type;
        EXPECT_NEAR(project("project/wbrutto") + project("project/vol.serv.all") / 3.0 + chemicals,
                    project("project/wnetto") + rows, 1e-9 * rows)
            << type;
        EXPECT_NEAR(project("project/vol.waste.all"), 3.0 * waste, 1e-9 * waste) << type;
        EXPECT_NEAR(project("project/qnetto"), project("project/wnetto") / 12.0, 1e-9) << type;
        EXPECT_EQ(plant.GetStatus(), StatusDesigned) << type;
    }
}

TEST(SequenceOfAPlant, TypedFirstAndWhatFollowsAreTheProjects)
{
    iex::IEXProject plant("DEMI");
    support::History history(plant);
    OwnerNode& rinse = *plant.FindOwner("ex.1.seq.4");
    const auto typed = [&rinse] {
        return rinse.GetDetails()->At("regseqstep/flow.typed").GetStdStringValue() + " " +
               rinse.GetDetails()->At("regseqstep/amount.typed").GetStdStringValue();
    };
    EXPECT_EQ(typed(), "q.bv vol.bv");
    rinse.GetDetails()->At("regseqstep/q").SetValue(12.0);
    rinse.GetDetails()->At("regseqstep/t").SetValue(0.5);
    EXPECT_EQ(typed(), "q t");
    EXPECT_EQ(rinse.GetDetails()->At("regseqstep/vol").GetDoubleValue(), 6.0);
    rinse.GetDetails()->At("regseqstep/vol").SetValue(3.0);
    EXPECT_EQ(typed(), "q vol");
    EXPECT_EQ(rinse.GetDetails()->At("regseqstep/t").GetDoubleValue(), 0.25);
    history.stack.Undo();
    EXPECT_EQ(typed(), "q t");
    EXPECT_EQ(rinse.GetDetails()->At("regseqstep/t").GetDoubleValue(), 0.5);
    EXPECT_FALSE(plant.HasConditioning(0));
    plant.FindOwner("ex.1.comp.1")->GetDetails()->At("stepcomp/cond.chemical").SetValue("NACL");
    EXPECT_TRUE(plant.HasConditioning(0));
    EXPECT_FALSE(plant.StepHasConditioning(0, {}));
    EXPECT_TRUE(plant.StepHasConditioning(0, {.type = "REGSEQ_COND"}));
}

/// "REG NACL UP" of the rows of a chemical and of displacement, in their order.
std::vector<std::string> ChemicalRows(Project& project, const char* exchanger)
{
    std::vector<std::string> rows;
    const auto word = [](const DetailData& detail) {
        const std::string text = detail.GetStdStringValue();
        return text.substr(text.find('_') + 1);
    };
    for (const auto& row : project.FindOwner(exchanger)->GetChildren(OwnerKind::SequenceRow)) {
        const DetailList& details = *row->GetDetails();
        const std::string type = word(details.At("regseqstep/type"));
        if (type == "REG" || type == "COND" || type == "DISP")
            rows.push_back(type + " " + word(details.At("regseqstep/medium")) + " " +
                           details.At("regseqstep/direction").GetStdStringValue());
    }
    return rows;
}

TEST(SequenceOfAPlant, RowsFollowTheChemicalThroughNoneAndTheOthers)
{
    iex::IEXProject softener("SOFT");
    const auto chemical = [](Project& project, const char* owner, const char* key) {
        support::Put(project, owner, "stepcomp/rm.chemical", key);
    };
    EXPECT_THAT(ChemicalRows(softener, "ex.1"), ElementsAre("REG NACL DOWN", "DISP RAW_WATER DOWN"));
    chemical(softener, "ex.1.comp.1", "");
    EXPECT_THAT(ChemicalRows(softener, "ex.1"), ElementsAre("REG  DOWN", "DISP RAW_WATER DOWN"));
    const auto faults = RangeFaults(softener);
    EXPECT_TRUE(std::ranges::any_of(
        faults, [](const RangeFault& fault) { return fault.address.key == "regseqstep/medium"; }));
    chemical(softener, "ex.1.comp.1", "H2SO4");
    EXPECT_THAT(ChemicalRows(softener, "ex.1"), ElementsAre("REG H2SO4 DOWN", "DISP RAW_WATER DOWN"));

    iex::IEXProject mixed("MB");
    const std::vector<std::string> before = ChemicalRows(mixed, "ex.1");
    const auto count = mixed.GetStep(0).GetChildren(OwnerKind::SequenceRow).size();
    for (const char* other : {"NAOH", "", "H2SO4"}) {
        chemical(mixed, "ex.1.comp.1", other);
        EXPECT_EQ(mixed.GetStep(0).GetChildren(OwnerKind::SequenceRow).size(), count) << other;
        chemical(mixed, "ex.1.comp.1", "HCL");
        EXPECT_EQ(ChemicalRows(mixed, "ex.1"), before) << other;
    }
    chemical(mixed, "ex.1.comp.2", "HCL");
    chemical(mixed, "ex.1.comp.2", "NAOH");
    EXPECT_EQ(ChemicalRows(mixed, "ex.1"), before);
}

TEST(SequenceOfAPlant, NobodyConditionsWithAChemicalThatWasNotChosen)
{
    iex::IEXProject column("FOODC");
    support::Put(column, "ex.2.seq.1", "regseqstep/type", "REGSEQ_COND");
    EXPECT_EQ(ChemicalRows(column, "ex.2").front(), "COND  UP");
    support::Put(column, "ex.2.comp.1", "stepcomp/cond.chemical", "HCL");
    EXPECT_EQ(ChemicalRows(column, "ex.2").front(), "COND HCL UP");
    support::Put(column, "ex.2.comp.1", "stepcomp/cond.chemical", "");
    EXPECT_EQ(ChemicalRows(column, "ex.2").front(), "COND  UP");
}

TEST(SequenceOfAPlant, RegenerantAndDisplacementFlowAsTheModeSays)
{
    iex::IEXProject plant("DEMI");
    EXPECT_THAT(ChemicalRows(plant, "ex.1"), ElementsAre("REG HCL UP", "DISP DECAT_WATER UP"));
    support::Put(plant, "ex.1", "step/mode", "CO");
    EXPECT_THAT(ChemicalRows(plant, "ex.1"), ElementsAre("REG HCL DOWN", "DISP DECAT_WATER DOWN"));
    EXPECT_EQ(support::Detail(plant, "ex.1.seq.1", "regseqstep/direction").GetStdStringValue(), "UP")
        << "a backwash flows up whatever the mode";
    support::Put(plant, "ex.1.seq.2", "regseqstep/direction", "UP");
    EXPECT_THAT(ChemicalRows(plant, "ex.1"), ElementsAre("REG HCL UP", "DISP DECAT_WATER DOWN"))
        << "a row can be told otherwise";
}

}  // namespace
