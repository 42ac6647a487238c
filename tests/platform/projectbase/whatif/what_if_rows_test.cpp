// SPDX-License-Identifier: MIT
#include "projectbase/whatif/what_if_rows.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using iex::IEXProject;
using whatif::Row;

std::string PlaceText(const Project& project, const whatif::Place& place)
{
    return project.PathOf(place.node->GetOwner()) + ":" + place.detail->GetName();
}

/// "ex.1:step/diameter ex.1:step/v"
std::vector<std::string> Texts(const Project& project, const std::vector<Row>& rows)
{
    std::vector<std::string> texts;
    for (const Row& row : rows)
        texts.push_back(PlaceText(project, row.first) + " " + PlaceText(project, row.second));
    return texts;
}

bool Has(const std::vector<std::string>& texts, const std::string& text)
{
    return std::ranges::find(texts, text) != texts.end();
}

OwnerNode& AddRow(IEXProject& project, std::size_t exchanger, const char* kind)
{
    OwnerNode& row = project.AddOwner(project.GetStep(exchanger), OwnerKind::SequenceRow);
    row.GetDetails()->At("regseqstep/type").SetValue(kind);
    return row;
}

TEST(WhatIfRows, JoinValuesOfOwnersThatBelongTogether)
{
    IEXProject project("DEMI");
    project.AddStep("DEGAS", 1);
    const auto texts = Texts(project, whatif::PlantRows(project));
    EXPECT_TRUE(Has(texts, ":project/qbrutto ex.1.comp.1.resin.1:compcomp/vol"));
    EXPECT_TRUE(Has(texts, ":project/qbrutto ex.3.comp.1.resin.1:compcomp/vol"));
    EXPECT_TRUE(Has(texts, "ex.1:step/diameter ex.1:step/v"));
    EXPECT_FALSE(Has(texts, "ex.1:step/diameter ex.3:step/v"));
    EXPECT_FALSE(Has(texts, "ex.2:step/diameter ex.2:step/v")) << "a degasser has no bed";
    EXPECT_TRUE(Has(texts, "ex.3.comp.1.resin.1:compcomp/vol.actual ex.3:step/run.time"));
    EXPECT_EQ(std::set(texts.begin(), texts.end()).size(), texts.size());
    EXPECT_FALSE(
        std::ranges::any_of(texts, [](const auto& text) { return text.find("regseqstep") != text.npos; }));
}

TEST(WhatIfRows, EveryTypeOfPlantHasThemAndNamesWhatExists)
{
    for (const DBObjects::PlantType& type : MasterDatabase::GetPlantTypes()) {
        IEXProject project(type.type);
        EXPECT_TRUE(whatif::HasRows(project)) << type.type;
        for (const DBObjects::WhatIfPair& pair : MasterDatabase::GetWhatIfTable(type.type))
            EXPECT_FALSE(pair.firstLabel.empty() || pair.secondLabel.empty()) << pair.first;
    }
    EXPECT_TRUE(MasterDatabase::GetWhatIfTable("none").empty());
    Project unknown("none");
    EXPECT_FALSE(whatif::HasRows(unknown));
}

TEST(WhatIfRows, ARowOfASequenceHasThePairsOfItsKind)
{
    IEXProject project("SOFT");
    const auto of = [&](const char* kind) {
        OwnerNode& row = AddRow(project, 0, kind);
        std::vector<std::string> texts;
        for (const Row& each : whatif::SequenceRows(project, row)) {
            EXPECT_EQ(each.first.node, &row);
            texts.push_back(each.pair.first + " " + PlaceText(project, each.second));
        }
        return texts;
    };
    const auto path = [&project] {
        return "ex.1.seq." + std::to_string(project.GetStep(0).GetChildren(OwnerKind::SequenceRow).size());
    };
    const auto backwash = of("REGSEQ_BW");
    EXPECT_TRUE(Has(backwash, "regseqstep/t " + path() + ":regseqstep/vol"));
    EXPECT_TRUE(Has(backwash, "regseqstep/v ex.1:step/expansion"));
    EXPECT_TRUE(of("REGSEQ_SETTLE").empty());
    const auto regenerant = of("REGSEQ_REG");
    EXPECT_TRUE(Has(regenerant, "regseqstep/q " + path() + ":regseqstep/t"));
    EXPECT_FALSE(Has(regenerant, "regseqstep/t " + path() + ":regseqstep/vol"))
        << "the volume of a chemical is not typed";
    EXPECT_EQ(of("REGSEQ_REG_FIRST").size(), regenerant.size())
        << "the first regenerant has the pairs of the others";
}

TEST(WhatIfRows, FirstAndFurtherRegenerantAreOneKind)
{
    struct
    {
        const char* one;
        const char* other;
        bool same;
    } const cases[] = {{"REGSEQ_REG", "REGSEQ_REG", true},        {"REGSEQ_REG", "REGSEQ_REG_FIRST", true},
                       {"REGSEQ_REG_FIRST", "REGSEQ_REG", true},  {"REGSEQ_BW", "REGSEQ_REG", false},
                       {"REGSEQ_REG_FIRST", "REGSEQ_BW", false},  {"REGSEQ_BW", "REGSEQ_BW", true},
                       {"REGSEQ_REG_FIRST", "REGSEQ_DISP", false}};
    for (const auto& each : cases)
        EXPECT_EQ(whatif::IsSameKindOfRow(each.one, each.other), each.same) << each.one << each.other;
}

}  // namespace
