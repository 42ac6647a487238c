// SPDX-License-Identifier: MIT
// What the feed composition does to the compounds of the user database: deleting, editing, exchanging.
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "projectbase/feed/compounds_importer.h"
#include "tests/gui/ionexchange/feed/feed_fixture.h"

#include <gmock/gmock.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <wx/checkbox.h>
#include <wx/choicdlg.h>
#include <wx/choice.h>
#include <wx/filedlg.h>
#include <wx/xml/xml.h>

#include <fstream>

namespace {

using namespace gui_test;
using testing::HasSubstr;

class CompoundDatabaseTest : public FeedTest
{
protected:
    static std::vector<DBObjects::Compound> Named(const std::string& name)
    {
        std::vector<DBObjects::Compound> found;
        for (const auto& compound : ProjectDatabase::GetCompounds()) {
            if (compound.name == name)
                found.push_back(compound);
        }
        return found;
    }
    static std::string Names()
    {
        std::string names;
        for (const auto& compound : ProjectDatabase::GetCompounds())
            names += compound.name + "|" + compound.formula + "|" + std::to_string(compound.pKa) + "\n";
        return names;
    }
    /// An exchange file with two compounds that the database has, with other pKa values, and a new one.
    std::filesystem::path WriteFile()
    {
        const auto path = m_folder / "incoming.mvcf";
        std::vector<DBObjects::Compound> compounds{Named("sulfate").at(0), Named("calcium").at(0), {}};
        compounds[0].pKa = 3.25;
        compounds[1].pKa = 12.5;
        compounds[2].baseElement.assign("Fe");
        compounds[2].name = "magic salt";
        compounds[2].formula = "FeCl2";
        compounds[2].category = "Magic";
        SaveCompoundFile(path, compounds);
        return path;
    }
    void ExpectChoice(const wxString& title, const wxString& message, const wxArrayInt& selections,
                      int answer = wxID_OK)
    {
        m_dialogs.Expect([=](wxDialog& dialog) {
            auto* choice = dynamic_cast<wxMultiChoiceDialog*>(&dialog);
            EXPECT_NE(choice, nullptr) << dialog.GetTitle().utf8_string();
            if (choice == nullptr)
                return static_cast<int>(wxID_CANCEL);
            EXPECT_EQ(choice->GetTitle(), title);
            EXPECT_NE(wxWindow::FindWindowByLabel(message, choice), nullptr);
            choice->SetSelections(selections);
            choice->TransferDataFromWindow();
            return answer;
        });
    }
    void ExpectImportChoice()
    {
        wxArrayInt all;
        for (int i = 0; i < 3; ++i)
            all.Add(i);
        ExpectChoice("Import Compounds", "Choose compounds to import", all);
    }
    void ExpectDuplicates(const std::function<int(DuplicateResolutionDialog&)>& answer)
    {
        m_dialogs.Expect([answer](wxDialog& dialog) {
            auto* duplicates = dynamic_cast<DuplicateResolutionDialog*>(&dialog);
            EXPECT_NE(duplicates, nullptr) << dialog.GetTitle().utf8_string();
            return duplicates != nullptr ? answer(*duplicates) : static_cast<int>(wxID_CANCEL);
        });
    }
    std::string LastLog() const { return m_log.records.empty() ? "" : m_log.records.back().second; }
    wxLogLevel LastLevel() const
    {
        return m_log.records.empty() ? wxLogLevel{wxLOG_Max} : m_log.records.back().first;
    }
    void ImportPath(const std::filesystem::path& path)
    {
        m_controller->ImportFile(wxString::FromUTF8(path.string()));
    }

    LogRecorder m_log;
};

TEST_F(CompoundDatabaseTest, DeletesAfterTheQuestionThatFits)
{
    const auto before = ProjectDatabase::GetCompounds().size();
    SelectRow(Find("sulfate"));
    ExpectBox("Delete entry|Do you really want to delete this entry?", wxID_NO);
    Click(Labelled("Delete"));
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before);
    ExpectBox("Delete entry|Do you really want to delete this entry?", wxID_YES);
    Focus(List());
    Press(WXK_DELETE);
    EXPECT_TRUE(Named("sulfate").empty());
    EXPECT_FALSE(Labelled("Delete").IsEnabled());
    m_view->CancelTextSearch();
    m_controller->RefreshCompounds();
    List().Select(0);
    List().Select(3);
    Pump();
    ExpectBox("Delete entries|Do you really want to delete these entries?", wxID_YES);
    Click(Labelled("Delete"));
    EXPECT_EQ(ProjectDatabase::GetCompounds().size(), before - 3);
    EXPECT_EQ(static_cast<std::size_t>(List().GetItemCount()), before - 3);
}

TEST_F(CompoundDatabaseTest, NewAndEditedCompoundsAreStored)
{
    m_dialogs.Expect([](wxDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Compound editor");
        auto& editor = dynamic_cast<CompoundEditorDialog&>(dialog);
        Compound compound;
        compound.name = "test salt";
        compound.SetFormula("NaCl");
        compound.category = "Test category";
        editor.GetPanel().SetData({compound});
        wxCommandEvent save(tvCOMPOUND_SAVE);
        editor.GetPanel().ProcessWindowEvent(save);
        return editor.GetReturnCode();
    });
    Click(Labelled("New"));
    ASSERT_EQ(Named("test salt").size(), 1u);
    const int id = Named("test salt")[0].id;
    Choose(CategoryChoice(), "Test category");
    EXPECT_EQ(m_view->GetSelectedCategory(), "Test category") << "the new category is offered";
    Choose(CategoryChoice(), "All categories");
    SelectRow(Find("test salt"));
    m_dialogs.Expect([](wxDialog& dialog) {
        auto& editor = dynamic_cast<CompoundEditorDialog&>(dialog);
        Compound compound = editor.GetPanel().GetData().compound;
        EXPECT_EQ(compound.name, "test salt");
        compound.name = "test salt 2";
        editor.GetPanel().SetData({compound});
        wxCommandEvent save(tvCOMPOUND_SAVE);
        editor.GetPanel().ProcessWindowEvent(save);
        return editor.GetReturnCode();
    });
    Click(Labelled("Edit"));
    ASSERT_EQ(Named("test salt 2").size(), 1u);
    EXPECT_EQ(Named("test salt 2")[0].id, id);
    EXPECT_TRUE(Named("test salt").empty());
}

TEST_F(CompoundDatabaseTest, ExportsWhatIsListedAndReadsItBack)
{
    Find("sulfate");
    const auto path = m_folder / "out.mvcf";
    const auto listed = List().GetCompounds();
    ASSERT_GT(listed.size(), 1u);
    wxArrayInt second;
    second.Add(1);
    ExpectChoice("Export Compounds", "Choose compounds to export", second);
    m_dialogs.Expect([&](wxDialog& dialog) {
        auto& files = dynamic_cast<wxFileDialog&>(dialog);
        EXPECT_EQ(files.GetMessage(), "Save mvcf file");
        EXPECT_EQ(files.GetFilename(), "compounds.mvcf");
        EXPECT_EQ(files.GetWildcard(), "mvcf files (*.mvcf)|*.mvcf");
        return ChooseFile(files, path) ? wxID_OK : wxID_CANCEL;
    });
    Click(Labelled("Export"));
    EXPECT_EQ(LastLog(), "Compounds exported to:\n " + path.string());
    EXPECT_EQ(LastLevel(), wxLOG_Info);
    const auto read = CompoundsImporter::Import(LoadCompoundFile(path)->GetRoot());
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].name, listed[1].name);

    const auto nowhere = m_folder / "no" / "out.mvcf";
    m_controller->Export({0}, listed, wxString::FromUTF8(nowhere.string()));
    EXPECT_EQ(LastLog(), "Couldn't open file to write: " + nowhere.string() + "\nthe folder does not exist");
    EXPECT_EQ(LastLevel(), wxLOG_Error);
    Focus(Search());
    Type("zzzz");
    ASSERT_EQ(List().GetItemCount(), 0);
    Click(Labelled("Export"));
    EXPECT_EQ(LastLog(), "There are no compounds in your list which can be exported.");
}

TEST_F(CompoundDatabaseTest, DuplicatesAreSkippedReplacedOrKeptEachAsDecided)
{
    const auto path = WriteFile();
    const int sulfate = Named("sulfate").at(0).id;
    ExpectImportChoice();
    ExpectDuplicates([](DuplicateResolutionDialog& dialog) {
        EXPECT_EQ(dialog.GetTitle(), "Resolve Duplicate Compounds");
        auto& grid = gui_test::Find<wxGrid>(dialog);
        EXPECT_EQ(grid.GetNumberRows(), 2);
        EXPECT_THAT(grid.GetCellValue(0, 2).utf8_string(), HasSubstr("Incoming pKa: 3.25"));
        EXPECT_EQ(grid.GetCellValue(1, 3), "Skip");
        EXPECT_FALSE(gui_test::Find<wxChoice>(dialog).IsThisEnabled());
        grid.SetCellValue(0, 3, "Replace");
        grid.SetCellValue(1, 3, "Keep both");
        return wxID_OK;
    });
    ImportPath(path);
    EXPECT_EQ(LastLog(), "Compound import complete");
    ASSERT_EQ(Named("sulfate").size(), 1u);
    EXPECT_EQ(Named("sulfate")[0].pKa, 3.25);
    EXPECT_EQ(Named("sulfate")[0].id, sulfate) << "a replaced compound keeps its identifier";
    ASSERT_EQ(Named("calcium").size(), 1u);
    EXPECT_NE(Named("calcium")[0].pKa, 12.5);
    ASSERT_EQ(Named("calcium (imported)").size(), 1u);
    EXPECT_EQ(Named("calcium (imported)")[0].pKa, 12.5);
    EXPECT_EQ(Named("magic salt").size(), 1u);
    Choose(CategoryChoice(), "Magic");
    EXPECT_EQ(m_view->GetSelectedCategory(), "Magic") << "new categories are offered at once";

    // Now all three are duplicates, and one decision stands for all.
    const std::string before = Names();
    constexpr int kSkip = static_cast<int>(compound_import::Decision::Skip);
    for (const int decision : {kSkip, static_cast<int>(compound_import::Decision::Replace)}) {
        ExpectImportChoice();
        ExpectDuplicates([decision](DuplicateResolutionDialog& dialog) {
            gui_test::Find<wxCheckBox>(dialog).SetValue(true);
            gui_test::Find<wxChoice>(dialog).SetSelection(decision);
            return wxID_OK;
        });
        ImportPath(path);
        EXPECT_EQ(Names() == before, decision == kSkip);
    }
    EXPECT_EQ(Named("calcium")[0].pKa, 12.5);
}

TEST_F(CompoundDatabaseTest, ACancelledImportWritesNothing)
{
    const auto path = WriteFile();
    const std::string before = Names();
    ExpectImportChoice();
    ExpectDuplicates([](DuplicateResolutionDialog&) { return wxID_CANCEL; });
    ImportPath(path);
    EXPECT_EQ(Names(), before) << "not even the new one";
    wxArrayInt none;
    ExpectChoice("Import Compounds", "Choose compounds to import", none);
    ImportPath(path);
    EXPECT_EQ(Names(), before);
    EXPECT_TRUE(m_log.records.empty()) << LastLog();
}

TEST_F(CompoundDatabaseTest, FilesThatCannotBeReadAreNamedAndChangeNothing)
{
    const std::string before = Names();
    const std::string whole = support::ReadBytes(WriteFile());
    const auto write = [&](const char* name, const std::string& bytes) {
        support::WriteBytes(m_folder / name, bytes);
        return m_folder / name;
    };
    struct Case
    {
        std::filesystem::path path;
        std::string text;
    };
    const Case cases[] = {
        {m_folder / "missing.mvcf", "there is no such file"},
        {m_folder.Path(), "it is a folder"},
        {write("large.mvcf", std::string((16 << 20) + 1, 'x')), "it is larger than 16 MiB"},
        {write("empty.mvcf", ""), "An error occurred during reading the file: "},
        {write("foreign.mvcf", "<compounds/>"), "File structure wrong"},
        {write("cut.mvcf", whole.substr(0, whole.size() / 2)), "File structure wrong"},
    };
    for (const Case& one : cases) {
        ImportPath(one.path);
        EXPECT_THAT(LastLog(), HasSubstr(one.text)) << one.path;
        EXPECT_THAT(LastLog(), HasSubstr(one.path.string()));
        EXPECT_EQ(LastLevel(), wxLOG_Error);
        EXPECT_EQ(Names(), before);
    }
}

TEST_F(CompoundDatabaseTest, ACompoundOfTheProjectIsTakenIntoTheDatabaseOnce)
{
    FeedComposition composition = Stored();
    DBObjects::Compound salt;
    salt.name = "from afar";
    salt.formula = "Na2SO4";
    salt.valency = 2;
    composition.Add(salt);
    m_project.SaveFeedCompositionToDetails(composition);
    const auto import = [this] {
        FeedEvent event(tvFEED_ENTRY_IMPORTED, m_view->GetId());
        m_view->ProcessWindowEvent(event);
    };
    import();
    ASSERT_EQ(Named("from afar").size(), 1u);
    EXPECT_EQ(m_view->GetSelectedElement().utf8_string(), Named("from afar")[0].baseElement);
    ExpectBox("Duplicate Compound|This compound already exists: from afar (Na2SO4)", wxID_OK);
    import();
    EXPECT_EQ(Named("from afar").size(), 1u);
}

TEST_F(CompoundDatabaseTest, WhatTheDatabaseRefusesIsShown)
{
    Add("sulfate");
    soci::session(*soci::factory_sqlite3(), "dbname=\"" + (m_folder / "user.db").string() + "\"")
        << "DROP TABLE tarnvik_compound";
    const int listed = List().GetItemCount();
    ExpectBox("Delete entry|Do you really want to delete this entry?", wxID_YES);
    Click(Labelled("Delete"));
    EXPECT_EQ(LastLevel(), wxLogLevel{wxLOG_Error});
    EXPECT_EQ(List().GetItemCount(), listed) << "what is shown stays";
    TypeCell(Grid(), 0, kFeedFirstUnit, "5");
    EXPECT_EQ(Feed(0, Unit::MgPerLitre), 5.0) << "the feed of the project can still be edited";
}

}  // namespace
