// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"

#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/events.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/translation.h"
#include "projectbase/feed/known_elements.h"

#include <cmath>
#include <exception>
#include <utility>

namespace {

constexpr const char* kUsage = "INPUT_FEED";
constexpr const char* kAllElements = wxTRANSLATE("All elements");
constexpr const char* kAllCategories = wxTRANSLATE("All categories");

std::string FilterText(const wxString& chosen, const char* all)
{
    return chosen == all ? std::string() : chosen.utf8_string();
}

}  // namespace

FeedCompositionPanelController::FeedCompositionPanelController(iex::IEXProject& project,
                                                               std::unique_ptr<FeedComposition> composition,
                                                               FeedCompositionPanel& view)
    : m_project(project), m_composition(std::move(composition)), m_view(&view)
{
    InitElementSelection();
    InitMediumSelection();
    InitTemperatureUnitSelection();
    m_view->ShowUnitSystem(m_project.GetUnitSystemDisplay());
    LoadCompositionFromDetails();
    TransferCompositionToView();
    RegisterCallbacks();
    m_project.AddObserver(*this);
    if (m_view->IsShown())
        RefreshCompounds();
}

FeedCompositionPanelController::~FeedCompositionPanelController()
{
    m_project.RemoveObserver(*this);
}

void FeedCompositionPanelController::OnProjectChanged(const ProjectChanges& changes)
{
    if (m_saving > 0 ||
        !changes.Any([](const DetailAddress& address) { return address.key.starts_with("feed"); }))
        return;
    m_stale = true;
    if (m_view && m_view->IsShown())
        Guarded([this] { ReloadComposition(); });
}

void FeedCompositionPanelController::RegisterCallbacks()
{
    using Self = FeedCompositionPanelController;
    m_handlers = {
        {tvFEED_COMPOUND_ADDED, &Self::CallbackCompoundAddedToComposition},
        {tvFEED_COMPOUND_SELECTED, &Self::CallbackCompoundSelected},
        {tvFEED_COMPOUND_DESELECTED, &Self::CallbackCompoundListDeselected},
        {tvFEED_ELEMENT_CHOSEN, &Self::FilterCallback},
        {tvFEED_CATEGORY_CHOSEN, &Self::FilterCallback},
        {tvFEED_SEARCH, &Self::ElementSearchCallback},
        {tvFEED_COMPOUND_NEW, &Self::CallbackAddCompound},
        {tvFEED_COMPOUND_EDIT, &Self::CallbackEditCompound},
        {tvFEED_COMPOUND_DELETE, &Self::CallbackDeleteCompound},
        {tvFEED_ENTRY_REMOVED, &Self::CallbackCompoundRemovedFromComposition},
        {tvFEED_ENTRY_IMPORTED, &Self::ImportCompoundFromProjectCallback},
        {tvFEED_CELL_EDITED, &Self::CallbackFeedCompositionChanged},
        {tvFEED_EFFLUENT_CELL_EDITED, &Self::CallbackEffluentCompositionChanged},
        {tvFEED_PH_CHANGED, &Self::UpdatePhAdjustment},
        {tvFEED_EFFLUENT_CHANGED, &Self::UpdateUseEffluentInput},
        {tvFEED_MEDIUM_CHANGED, &Self::UpdateFeedMedium},
        {tvFEED_EXPORT, &Self::ExportCompoundsCallback},
        {tvFEED_IMPORT, &Self::ImportCompoundsCallback},
        {tvFEED_SHOWN, &Self::CallbackViewShown},
    };
    for (const auto& [type, handler] : m_handlers)
        m_view->Bind(wxEventTypeTag<FeedEvent>(type), &Self::OnViewEvent, this);
    m_view->Bind(tvCHANGEUNITSYSTEM_EVENT, &Self::OnUnitSystemChanged, this);
}

void FeedCompositionPanelController::OnViewEvent(FeedEvent& event)
{
    for (const auto& [type, handler] : m_handlers) {
        if (type == event.GetEventType()) {
            Guarded([this, handler = handler, &event] { (this->*handler)(event); });
            return;
        }
    }
}

bool FeedCompositionPanelController::Guarded(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        if (m_view)
            m_view->ShowErrorMessage(MessageOf(error).text);
        return false;
    }
}

void FeedCompositionPanelController::InitCategorySelection()
{
    FeedCompositionPanel::Selection items{{0, kAllCategories}};
    for (const std::string& category : ProjectDatabase::GetCompoundCategories())
        items.emplace_back(static_cast<long>(items.size()), wxString::FromUTF8(category));
    m_view->SetCategorySelection(items);
}

void FeedCompositionPanelController::InitElementSelection()
{
    FeedCompositionPanel::Selection items{{0, kAllElements}};
    for (const auto& element : MasterDatabase::GetElementsFromPeriodicSystem())
        items.emplace_back(element.id, wxString::FromUTF8(element.symbol));
    m_view->SetElementSelection(items);
}

void FeedCompositionPanelController::InitMediumSelection()
{
    FeedCompositionPanel::Selection items;
    for (const auto& medium : MasterDatabase::GetFeedMediums(m_project.GetModuleType(), kUsage))
        items.emplace_back(medium.id, wxString::FromUTF8(medium.name));
    m_view->SetMediumSelection(items);
}

void FeedCompositionPanelController::InitTemperatureUnitSelection()
{
    FeedCompositionPanel::Selection items;
    for (const TemperatureUnit unit :
         {TemperatureUnit::Celsius, TemperatureUnit::Fahrenheit, TemperatureUnit::Kelvin})
        items.emplace_back(static_cast<long>(unit), wxString::FromUTF8(Temperature::UnitText(unit)));
    m_view->SetTemperatureUnitSelection(items);
}

void FeedCompositionPanelController::OnUnitSystemChanged(wxCommandEvent& event)
{
    event.Skip();
    m_view->ShowUnitSystem(m_project.GetUnitSystemDisplay());
}

void FeedCompositionPanelController::LoadCompositionFromDetails()
{
    FeedComposition former = std::exchange(*m_composition, FeedComposition());
    try {
        const FeedComposition::Batch batch(*m_composition);
        LoadCompositionBaseFromDetails();
        LoadFeedMediumFromDetails();
        LoadFeedCompoundsFromDetails();
    } catch (...) {
        // Half a feed would be saved with the next edit.
        *m_composition = std::move(former);
        throw;
    }
    m_stale = false;
}

void FeedCompositionPanelController::ReloadComposition()
{
    LoadCompositionFromDetails();
    TransferCompositionToView();
}

void FeedCompositionPanelController::SaveFeedCompositionToDetails()
{
    const wxRecursionGuard guard(m_saving);
    m_project.SaveFeedCompositionToDetails(*m_composition);
}

void FeedCompositionPanelController::TransferCompositionToView()
{
    if (m_view)
        m_view->SetComposition(*m_composition);
}

void FeedCompositionPanelController::SendTvChangeEventToView()
{
    if (m_view)
        m_view->SendTvChangeEvent();
}

void FeedCompositionPanelController::CompositionChanged()
{
    SaveFeedCompositionToDetails();
    TransferCompositionToView();
    SendTvChangeEventToView();
}

void FeedCompositionPanelController::RefreshCompounds()
{
    m_compoundsShown = true;
    // Without a user database the feed of the project can still be edited.
    Guarded([this] {
        InitCategorySelection();
        UpdateCompoundSelectionFiltered();
    });
}

void FeedCompositionPanelController::UpdateCompoundSelectionFiltered()
{
    const std::string element = FilterText(m_view->GetSelectedElement(), kAllElements);
    const std::string category = FilterText(m_view->GetSelectedCategory(), kAllCategories);
    const std::string search = m_view->GetElementSearchString().utf8_string();
    if (element.empty() && category.empty() && search.empty())
        UpdateCompoundSelectionShowAll();
    else
        m_view->SetCompoundSelection(ProjectDatabase::GetCompounds(element, category, search));
}

void FeedCompositionPanelController::UpdateCompoundSelectionShowAll()
{
    m_view->SetCompoundSelection(ProjectDatabase::GetCompounds());
}

DBObjects::Compound FeedCompositionPanelController::GetCompoundFromDB(int id) const
{
    return ProjectDatabase::GetCompound(id);
}

void FeedCompositionPanelController::CallbackCompoundAddedToComposition(FeedEvent& event)
{
    Compounds added;
    for (const int id : event.compounds) {
        DBObjects::Compound compound = GetCompoundFromDB(id);
        // Somebody else may have deleted it meanwhile.
        if (compound.id >= 0)
            added.push_back(std::move(compound));
    }
    if (added.empty())
        return;
    {
        const FeedComposition::Batch batch(*m_composition);
        for (const DBObjects::Compound& compound : added)
            m_composition->Add(compound);
    }
    CompositionChanged();
    m_view->ShowEntry(m_composition->GetEntries().size() - 1);
}

void FeedCompositionPanelController::CallbackCompoundSelected(FeedEvent& event)
{
    const DBObjects::Compound compound = GetCompoundFromDB(event.compounds.at(0));
    if (compound.id < 0)
        m_view->UnSelectedCompound();
    else
        m_view->ShowCompoundDetails(compound, MolarMassOfFormula(compound.formula));
}

void FeedCompositionPanelController::CallbackCompoundListDeselected(FeedEvent&)
{
    m_view->UnSelectedCompound();
}

void FeedCompositionPanelController::FilterCallback(FeedEvent&)
{
    UpdateCompoundSelectionFiltered();
}

void FeedCompositionPanelController::ElementSearchCallback(FeedEvent&)
{
    UpdateCompoundSelectionFiltered();
}

void FeedCompositionPanelController::CallbackCompoundRemovedFromComposition(FeedEvent& event)
{
    m_composition->Remove(event.row);
    CompositionChanged();
}

void FeedCompositionPanelController::CallbackFeedCompositionChanged(FeedEvent& event)
{
    m_composition->SetFeed(event.row, event.unit, event.value);
    CompositionChanged();
}

void FeedCompositionPanelController::CallbackEffluentCompositionChanged(FeedEvent& event)
{
    m_composition->SetEffluent(event.row, event.unit, event.value);
    CompositionChanged();
}

void FeedCompositionPanelController::UpdatePhAdjustment(FeedEvent&)
{
    const FeedCompositionPanel::Data data = m_view->GetData();
    if (data.adjustPh && m_composition->IsPhAdjusted())
        m_composition->SetStatedPh(data.totalPh);
    m_composition->SetPhAdjusted(data.adjustPh);
    SaveFeedCompositionToDetails();
    // With which pH an adjustment begins, the project knows.
    LoadCompositionBaseFromDetails();
    TransferCompositionToView();
    SendTvChangeEventToView();
}

void FeedCompositionPanelController::UpdateUseEffluentInput(FeedEvent&)
{
    m_composition->SetUsesEffluent(m_view->GetData().useEffluent);
    CompositionChanged();
}

void FeedCompositionPanelController::UpdateFeedMedium(FeedEvent&)
{
    FeedMedium::Data medium = m_view->GetData().medium;
    medium.temperature = medium.temperature.ConvertedTo(TemperatureUnit::Celsius);
    medium.density = m_composition->GetDensity();
    m_composition->SetMedium(medium);
    SaveFeedCompositionToDetails();
    // Which density another medium brings, the project knows.
    LoadFeedMediumFromDetails();
    TransferCompositionToView();
    SendTvChangeEventToView();
}

void FeedCompositionPanelController::CallbackViewShown(FeedEvent&)
{
    // A large database is read when its compounds are first seen.
    if (!m_compoundsShown)
        RefreshCompounds();
    if (m_stale)
        ReloadComposition();
    else
        TransferCompositionToView();
}
