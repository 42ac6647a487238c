// SPDX-License-Identifier: MIT
// The composition of the feed in the project: its details, its file, undo and redo.
#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_file_error.h"
#include "projectbase/project/undo_redo_detail_stack.h"
#include "tests/support/project_history.h"
#include "tests/support/temp_folder.h"
#include "tncommon/atomic_file.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Unit = FeedComposition::Unit;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

FeedComposition Sample()
{
    FeedComposition composition;
    composition.SetMedium({3, {20.123456789, TemperatureUnit::Celsius}, 1.0251});
    composition.SetUsesEffluent(true);
    composition.SetPhAdjusted(true);
    composition.SetStatedPh(7.3);
    std::size_t index = 0;
    for (const DBObjects::Compound& compound : MasterDatabase::GetSuppliedCompounds()) {
        composition.Add(compound);
        composition.SetFeed(index, Unit::MgPerLitre, 0.1 * static_cast<double>(index) + 1.0 / 3.0);
        composition.SetEffluent(index, Unit::Ppb, 7.7 * static_cast<double>(index));
        ++index;
    }
    return composition;
}

/// The file that the project becomes.
std::string Bytes(const Project& project, const support::TempFolder& folder)
{
    ProjectFile::Save(project, folder / "feed.tarnvik");
    return tncommon::ReadWholeFile(folder / "feed.tarnvik", std::size_t{1} << 30);
}

void ExpectSame(const FeedComposition& a, const FeedComposition& b)
{
    ASSERT_EQ(a.GetEntries().size(), b.GetEntries().size());
    EXPECT_EQ(a.GetMedium().id, b.GetMedium().id);
    EXPECT_EQ(a.GetDensity(), b.GetDensity());
    EXPECT_EQ(a.UsesEffluent(), b.UsesEffluent());
    EXPECT_EQ(a.IsPhAdjusted(), b.IsPhAdjusted());
    EXPECT_TRUE(a.GetStatedPh() == b.GetStatedPh() ||
                (std::isnan(a.GetStatedPh()) && std::isnan(b.GetStatedPh())));
    for (std::size_t i = 0; i < a.GetEntries().size(); ++i) {
        const auto& x = a.GetEntries()[i];
        const auto& y = b.GetEntries()[i];
        EXPECT_EQ(x.name, y.name);
        EXPECT_EQ(x.formula, y.formula);
        EXPECT_EQ(x.acidBase, y.acidBase);
        EXPECT_EQ(x.ionicCharge, y.ionicCharge);
        EXPECT_EQ(x.category, y.category);
        EXPECT_EQ(x.molweight, y.molweight) << x.formula;
        EXPECT_EQ(x.feed[Unit::MeqPerLitre], y.feed[Unit::MeqPerLitre]);
        EXPECT_EQ(x.effluent[Unit::MeqPerLitre], y.effluent[Unit::MeqPerLitre]);
        if (x.valency > 0) {
            EXPECT_NEAR(x.feed[Unit::MgPerKg], y.feed[Unit::MgPerKg], 1e-12 * x.feed[Unit::MgPerKg]);
        }
    }
}

TEST(FeedDetails, AreOneGroupForEachCompoundWithMeqAndWhatWasTyped)
{
    iex::IEXProject project;
    project.SaveFeedCompositionToDetails(Sample());
    const DetailGroupsPtr groups = project.GetDetailGroups("feedcompound");
    ASSERT_TRUE(groups);
    EXPECT_EQ(groups->size(), MasterDatabase::GetSuppliedCompounds().size());
    std::set<std::string> names;
    for (const DetailData& detail : *groups->front())
        names.insert(detail.GetName());
    const std::set<std::string> expected{"feedcompound/category",   "feedcompound/ioniccharge",
                                         "feedcompound/acid_base",  "feedcompound/oxidationNrCommon",
                                         "feedcompound/valency",    "feedcompound/pka",
                                         "feedcompound/formula",    "feedcompound/name",
                                         "feedcompound/conc.meql",  "feedcompound/conc.effluent.meql",
                                         "feedcompound/conc.typed", "feedcompound/conc.effluent.typed",
                                         "feedcompound/conc.unit",  "feedcompound/conc.effluent.unit"};
    EXPECT_EQ(names, expected);
    ExpectSame(project.LoadFeedCompositionFromDetails(), Sample());
    EXPECT_TRUE(iex::IEXProject().LoadFeedCompositionFromDetails().GetEntries().empty());
}

TEST(FeedDetails, StayTheSameBytesThroughAThousandRounds)
{
    const support::TempFolder folder;
    iex::IEXProject project;
    FeedComposition composition = Sample();
    while (composition.GetEntries().size() > 8)
        composition.Remove(8);
    composition.SetFeed(3, Unit::MeqPerLitre, kNaN);
    composition.SetEffluent(4, Unit::MeqPerLitre, kNaN);
    composition.SetFeed(5, Unit::MeqPerLitre, 5e-324);
    project.SaveFeedCompositionToDetails(composition);
    const std::string first = Bytes(project, folder);
    const DetailGroupsPtr groups = project.GetDetailGroups("feedcompound");
    for (int round = 0; round < 1000; ++round)
        project.SaveFeedCompositionToDetails(project.LoadFeedCompositionFromDetails());
    EXPECT_EQ(project.GetDetailGroups("feedcompound"), groups) << "equal groups are shared";
    EXPECT_EQ(Bytes(project, folder), first);

    const std::unique_ptr<Project> loaded = ProjectFile::Load(folder / "feed.tarnvik");
    const auto& back = dynamic_cast<const iex::IEXProject&>(*loaded);
    const FeedComposition again = back.LoadFeedCompositionFromDetails();
    EXPECT_TRUE(std::isnan(again.GetEntries()[3].feed[Unit::MeqPerLitre]));
    EXPECT_TRUE(std::isnan(again.GetEntries()[4].effluent[Unit::MeqPerLitre]));
    EXPECT_EQ(again.GetEntries()[5].feed[Unit::MeqPerLitre], 5e-324);
    EXPECT_EQ(Bytes(back, folder), first);
}

TEST(FeedDetails, StayAsTheyAreWhereTheEffluentIsAsMuchAsTheFeed)
{
    const std::vector<DBObjects::Compound> compounds = MasterDatabase::GetSuppliedCompounds();
    int clamped = 0;
    for (std::size_t feedUnit = 0; feedUnit < FeedComposition::kUnitCount; ++feedUnit) {
        for (std::size_t unit = 0; unit < FeedComposition::kUnitCount; ++unit) {
            FeedComposition composition;
            composition.SetMedium({3, {20.0, TemperatureUnit::Celsius}, 1.0251});
            for (std::size_t i = 0; i < compounds.size(); ++i) {
                composition.Add(compounds[i]);
                composition.SetFeed(i, static_cast<Unit>(feedUnit), 0.7 * static_cast<double>(i) + 1.0 / 3.0);
                composition.SetEffluent(i, static_cast<Unit>(unit), 1e15);
                const auto& entry = composition.GetEntries()[i];
                clamped += entry.effluent.values == entry.feed.values;
            }
            iex::IEXProject project;
            project.SaveFeedCompositionToDetails(composition);
            const DetailGroupsPtr groups = project.GetDetailGroups("feedcompound");
            project.SaveFeedCompositionToDetails(project.LoadFeedCompositionFromDetails());
            EXPECT_EQ(project.GetDetailGroups("feedcompound"), groups) << feedUnit << " " << unit;
        }
    }
    EXPECT_EQ(clamped, static_cast<int>(49 * compounds.size()));
}

TEST(FeedDetails, AreUndoneAndRedone)
{
    iex::IEXProject project;
    support::History history(project);
    UndoRedoDetailStack& stack = history.stack;
    std::vector<FeedComposition> states{project.LoadFeedCompositionFromDetails()};
    const auto save = [&](const FeedComposition& composition) {
        project.SaveFeedCompositionToDetails(composition);
        states.push_back(project.LoadFeedCompositionFromDetails());
    };
    FeedComposition composition = Sample();
    save(composition);
    composition.SetFeed(17, Unit::MgPerLitre, 3.25);
    save(composition);
    composition.Remove(2);
    save(composition);
    composition.Clear();
    save(composition);
    EXPECT_EQ(history.told, 4);
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        ASSERT_TRUE(stack.Undo());
        EXPECT_TRUE(
            history.last->Any([](const DetailAddress& address) { return address.key == "feedcompound"; }));
        ExpectSame(project.LoadFeedCompositionFromDetails(), states[i]);
    }
    stack.RedoAll();
    ExpectSame(project.LoadFeedCompositionFromDetails(), states.back());
    stack.UndoAll();
    EXPECT_EQ(project.GetDetailGroups("feedcompound"), nullptr);

    const int told = history.told;
    project.SaveFeedCompositionToDetails(states[0]);
    EXPECT_EQ(history.told, told) << "nothing changed";
}

TEST(FeedDetails, OfASpoiledFileAreNoticed)
{
    const support::TempFolder folder;
    iex::IEXProject project;
    project.SaveFeedCompositionToDetails(Sample());
    std::string bytes = Bytes(project, folder);
    const std::size_t place = bytes.find("calcium sulfate");
    ASSERT_NE(place, std::string::npos);
    bytes[place] = 'C';
    tncommon::ReplaceFile(folder / "feed.tarnvik", bytes);
    EXPECT_THROW(ProjectFile::Load(folder / "feed.tarnvik"), ProjectFileError);
}

TEST(FeedMediumDetails, AreKeptInCelsius)
{
    iex::IEXProject project;
    project.SaveFeedMediumToDetails({5, {68.0, TemperatureUnit::Fahrenheit}, 1.07});
    const FeedMedium::Data medium = project.LoadFeedMediumFromDetails();
    EXPECT_EQ(medium.id, 5);
    EXPECT_NEAR(medium.temperature.In(TemperatureUnit::Celsius), 20.0, 1e-12);
    EXPECT_EQ(medium.density, 1.07);
    EXPECT_EQ(project.LoadFeedCompositionFromDetails().GetDensity(), 1.07);
}

}  // namespace
