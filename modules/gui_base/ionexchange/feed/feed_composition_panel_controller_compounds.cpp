// SPDX-License-Identifier: MIT
// What the feed composition does to the compounds of the database: deletion, exchange with files and with the
// project.
#include "dbinterfaces/project_database.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/compound_name.h"
#include "gui_base/support/file_path.h"
#include "gui_base/support/translation.h"
#include "projectbase/feed/compounds_importer.h"
#include "projectbase/library/compound_import.h"
#include "tncommon/zip_container.h"

#include <wx/xml/xml.h>

#include <algorithm>
#include <system_error>

namespace {

using Record = DBObjects::Compound;

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString Label(const Record& compound)
{
    return i18n::CompoundName(compound.name, compound.formula) + " (" + wxString::FromUTF8(compound.formula) +
           ")";
}

std::vector<wxString> Labels(const std::vector<Record>& compounds)
{
    std::vector<wxString> labels;
    labels.reserve(compounds.size());
    for (const Record& compound : compounds)
        labels.push_back(Label(compound));
    return labels;
}

std::vector<Record> Chosen(const std::vector<Record>& compounds, const std::vector<int>& indices)
{
    std::vector<Record> chosen;
    chosen.reserve(indices.size());
    for (const int index : indices)
        chosen.push_back(compounds.at(static_cast<std::size_t>(index)));
    return chosen;
}

}  // namespace

void FeedCompositionPanelController::CallbackDeleteCompound(FeedEvent& event)
{
    {
        ProjectDatabase::Transaction transaction;
        for (const int id : event.compounds)
            ProjectDatabase::DeleteCompound(id);
        transaction.Commit();
    }
    InitCategorySelection();
    UpdateCompoundSelectionFiltered();
}

bool FeedCompositionPanelController::SaveCompoundToDB(const Record& compound)
{
    if (!Compound(compound).IsValid())
        return false;
    return Guarded([&] { ProjectDatabase::InsertOrReplaceCompound(compound); });
}

void FeedCompositionPanelController::CallbackAddCompound(FeedEvent&)
{
    EditCompound(Record());
}

void FeedCompositionPanelController::CallbackEditCompound(FeedEvent& event)
{
    const Record compound = GetCompoundFromDB(event.compounds.at(0));
    if (compound.id >= 0)
        EditCompound(compound);
}

void FeedCompositionPanelController::EditCompound(const Record& record)
{
    const auto edited =
        m_view->ShowCompoundEditor(Compound(record), ProjectDatabase::GetCompoundCategories());
    if (!edited || !SaveCompoundToDB(edited->ToRecord()))
        return;
    InitCategorySelection();
    UpdateCompoundSelectionFiltered();
}

void FeedCompositionPanelController::ImportCompoundFromProjectCallback(FeedEvent& event)
{
    const Record compound = m_composition->GetEntries().at(event.row).ToRecord();
    const Compounds alike = ProjectDatabase::GetCompounds(std::string(), std::string(), compound.name);
    const bool exists = std::any_of(alike.begin(), alike.end(), [&](const Record& other) {
        return compound_import::Key(other) == compound_import::Key(compound);
    });
    if (exists) {
        m_view->ShowMessageBox(Tr(wxTRANSLATE("Duplicate Compound")),
                               Tr(wxTRANSLATE("This compound already exists: ")) + Label(compound));
        return;
    }
    if (!SaveCompoundToDB(compound))
        return;
    InitCategorySelection();
    m_view->SelectElement(wxString::FromUTF8(compound.baseElement));
    UpdateCompoundSelectionFiltered();
}

void FeedCompositionPanelController::ExportCompoundsCallback(FeedEvent&)
{
    // What the list shows under its present filter can be exported.
    const Compounds compounds = m_view->GetCompoundList().GetCompounds();
    if (compounds.empty()) {
        m_view->ShowErrorMessage(
            Tr(wxTRANSLATE("There are no compounds in your list which can be exported.")));
        return;
    }
    const auto selected = m_view->ShowExportCompoundDialog(Labels(compounds));
    if (!selected || selected->empty())
        return;
    const wxString path = m_view->ShowExportFileDialog();
    if (!path.empty())
        Export(*selected, compounds, path);
}

void FeedCompositionPanelController::Export(const std::vector<int>& selected, const Compounds& compounds,
                                            const wxString& path)
{
    Guarded([&] {
        try {
            SaveCompoundFile(PathOf(path), Chosen(compounds, selected));
            m_view->ShowInfoMessage(
                wxString::Format(Tr(wxTRANSLATE("Compounds exported to:\n %s")), ShownPath(PathOf(path))));
        } catch (const std::system_error& error) {
            m_view->ShowErrorMessage(
                wxString::Format(Tr(wxTRANSLATE("Couldn't open file to write: %s")),
                                 ShownPath(PathOf(path)) + "\n" + CauseText(error.code())));
        }
    });
}

void FeedCompositionPanelController::ImportCompoundsCallback(FeedEvent&)
{
    const wxString path = m_view->ShowImportFileDialog();
    if (!path.empty())
        ImportFile(path);
}

void FeedCompositionPanelController::ImportFile(const wxString& path)
{
    const auto unreadable = [&](const wxString& cause) {
        m_view->ShowErrorMessage(
            wxString::Format(Tr(wxTRANSLATE("An error occurred during reading the file: %s")),
                             ShownPath(PathOf(path)) + "\n" + cause));
    };
    const auto work = [&] {
        try {
            Import(*LoadCompoundFile(PathOf(path)));
        } catch (const std::system_error& error) {
            m_view->ShowErrorMessage(wxString::Format(
                Tr(wxTRANSLATE("Couldn't open file to read: %s")),
                ShownPath(PathOf(path)) + "\n" + ReadingCauseText(error.code(), kLargestCompoundFile)));
        } catch (const tncommon::ZipError& error) {
            unreadable(Tr(error.what()));
        } catch (const CompoundFileError& error) {
            unreadable(MessageOf(error).text);
        }
    };
    // What an import that fails half-way has brought is shown, too.
    Guarded(work);
    Guarded([&] {
        InitCategorySelection();
        UpdateCompoundSelectionFiltered();
    });
}

void FeedCompositionPanelController::Import(const wxXmlDocument& document)
{
    const Compounds incoming = CompoundsImporter::Import(document.GetRoot());
    const auto picked = m_view->ShowImportCompoundDialog(Labels(incoming));
    if (!picked || picked->empty())
        return;
    const auto plan = compound_import::MakePlan(Chosen(incoming, *picked), ProjectDatabase::GetCompounds());
    DuplicateResolutionResult resolution;
    if (!plan.duplicates.empty()) {
        resolution = m_view->ShowDuplicateResolutionDialog(plan.duplicates);
        if (resolution.cancelled)
            return;
    }
    compound_import::CarryOut(plan, resolution.CountingDecisions());
    m_view->ShowInfoMessage(Tr(wxTRANSLATE("Compound import complete")));
    InitElementSelection();
}
