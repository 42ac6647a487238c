// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_water_panel.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/support/translation.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

namespace {

constexpr int kGap = 4;

ChoiceCombination::Items WaterTypes()
{
    ChoiceCombination::Items items;
    for (const auto& type : MasterDatabase::GetWaterTypes())
        items.emplace_back(wxString::FromUTF8(type.code), wxString::FromUTF8(type.description));
    return items;
}

}  // namespace

FeedWaterPanel::FeedWaterPanel(Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                               TVHelpFileProvider* help)
    : WaterAnalysisPanel(CreatedByDerived(), project, detailIndex, parent, id, help, wxDefaultPosition,
                         wxDefaultSize, wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL)
{
    Create();
}

void FeedWaterPanel::DoCreateForm()
{
    WaterAnalysisPanel::DoCreateForm();
    CreateHeader();
    AddToDetailContainerWindows(m_specification);
    AddToDetailContainerWindows(m_metaInformation);
    m_specification->SetStatusBar(GetStatusBar());
}

bool FeedWaterPanel::DoHasWhatIf()
{
    return whatif::HasRows(*GetProject());
}

void FeedWaterPanel::CreateHeader()
{
    Project* const project = GetProject();
    wxWindow* const first = GetChildren().empty() ? nullptr : GetChildren().front();
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(kGap));
    auto* feed = new CollapsibleBox(wxVERTICAL, this, wxTRANSLATE("Feed water"));
    AddLocalizable<TvStaticBoxSizer>(feed);
    m_specification = new FeedWaterSpecification(project, static_cast<int>(GetLiquid().GetPosition()),
                                                 feed->GetStaticBox());
    feed->Add(m_specification, spaced);
    feed->TakeKeptState();
    auto* origin = new CollapsibleBox(wxVERTICAL, this, wxTRANSLATE("Origin of the water"));
    AddLocalizable<TvStaticBoxSizer>(origin);
    m_metaInformation = new FeedMetaInformation({.parent = origin->GetStaticBox(),
                                                 .liquid = &GetLiquid(),
                                                 .countries = gui_utils::GetCountries(),
                                                 .waterTypes = WaterTypes()});
    origin->Add(m_metaInformation, spaced);
    origin->TakeKeptState();
    DetailList& details = project->GetDetails();
    m_organics = new OrganicsInputPanel(&details.At("feed/medium"), &details.At("feed/organics"), this,
                                        GetStatusBar());
    m_organicsController = std::make_unique<OrganicsInputPanelController>(project, m_organics);
    AddLocalizable(m_organics);
    m_organics->Show(IsFirstWater());
    int place = 0;
    for (wxSizer* box : {static_cast<wxSizer*>(feed), static_cast<wxSizer*>(origin)})
        GetHead().Insert(place++, box, wxSizerFlags(spaced).Expand());
    GetHead().Insert(1, m_organics, wxSizerFlags(spaced).Expand());
    // What stands above comes first for the keyboard, too.
    if (first != nullptr) {
        feed->GetStaticBox()->MoveBeforeInTabOrder(first);
        origin->GetStaticBox()->MoveBeforeInTabOrder(first);
        m_organics->MoveBeforeInTabOrder(origin->GetStaticBox());
    }
}

void FeedWaterPanel::DoTransferDetailsToWindows()
{
    WaterAnalysisPanel::DoTransferDetailsToWindows();
    m_organicsController->TransferToView();
    // Waters move: another one may be the first.
    if (m_organics->Show(IsFirstWater()))
        FitInside();
}

bool FeedWaterPanel::IsFirstWater() const
{
    return GetLiquid().GetPosition() == 0;
}

void FeedWaterPanel::DoUpdateUnits()
{
    WaterAnalysisPanel::DoUpdateUnits();
    m_specification->UpdateUnit(GetCurrentDisplayUnitSystem());
}

void FeedWaterPanel::DoLocalize()
{
    WaterAnalysisPanel::DoLocalize();
    m_specification->Localize();
    m_metaInformation->SetItems(gui_utils::GetCountries(), WaterTypes());
    m_metaInformation->Localize(GetCurrentDisplayUnitSystem());
}

bool FeedWaterPanel::FocusDetail(const DetailAddress& address)
{
    const bool isProject = address.owner == DetailOwner();
    if (m_organics->IsShown() && isProject && address.key == "feed/medium.temp") {
        TvTextCtrl* const temperature = m_organics->FindField(FeedMediumForm::kTemperature);
        AdvancedInputOptions::OpenAround(*temperature);
        temperature->SetFocus();
        return true;
    }
    TvTextCtrl* field = isProject ? m_specification->FindField(address.key) : nullptr;
    if (field == nullptr)
        return WaterAnalysisPanel::FocusDetail(address);
    AdvancedInputOptions::OpenAround(*field);
    field->SetFocus();
    return true;
}
