// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/alkalization_dialog.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_edit.h"

#include <wx/stattext.h>
#include <wx/translation.h>

#include <array>

namespace {

constexpr FormRow kTargetPh{.key = "liquid/alk.target", .label = wxTRANSLATE("Target pH")};
constexpr FormRow kDose{.key = "liquid/alk.dose", .label = wxTRANSLATE("Dose")};

constexpr FormRow Result(const char* key, const char* label)
{
    return {.key = key, .label = label, .field = FormField::Result};
}

constexpr std::array kResults{
    Result("liquid/alk.ph", wxTRANSLATE("Resulting pH")),
    Result("liquid/alk.dosed", wxTRANSLATE("Agent needed")),
    Result("liquid/hco3.mgl", wxTRANSLATE("HCO3")),
    Result("liquid/co3.mgl", wxTRANSLATE("CO3")),
    Result("liquid/co2.mgl", wxTRANSLATE("CO2")),
    Result("liquid/cond", wxTRANSLATE("Conductivity")),
};

constexpr int kMessageWidth = 320;

}  // namespace

AlkalizationPanel::AlkalizationPanel(Project* project, int liquid, wxWindow* parent, int id)
    : LiquidToolPanel(project, liquid, parent, id)
{
    Create();
}

void AlkalizationPanel::DoCreateRows()
{
    CreateAgentChoice();
    m_byPh = AddGoal(kTargetPh, "PH", wxRB_GROUP);
    m_byDose = AddGoal(kDose, "DOSE", 0);
    AddRows(kResults);
    m_message = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                 FromDIP(wxSize(kMessageWidth, 2 * GetCharHeight())), wxST_NO_AUTORESIZE);
    GetSizer()->Add(m_message, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(12)));
}

void AlkalizationPanel::DoPrepare()
{
    LiquidToolPanel::DoPrepare();
    ShowGoal();
}

void AlkalizationPanel::CreateAgentChoice()
{
    m_agent = std::make_unique<ComboCombination>(this, wxID_ANY, wxTRANSLATE("Alkalizing agent"), wxString(),
                                                 GetLiquidDetail("liquid/alk.type"), &GetForm(),
                                                 FromDIP(wxSize(200, -1)));
    GetForm().AddSpacer(0);
    m_agent->AppendColumn(wxTRANSLATE("Name"));
    m_agent->AppendColumn(wxTRANSLATE("Formula"));
    m_agent->AppendColumn(wxTRANSLATE("g/mol"), wxLIST_FORMAT_RIGHT);
    m_agent->InsertItem(-1, wxTRANSLATE("None"), wxString());
    for (const DBObjects::AlkalizingAgent& agent : MasterDatabase::GetAlkalizingAgents()) {
        const long row =
            m_agent->InsertItem(-1, wxString::FromUTF8(agent.name), wxString::FromUTF8(agent.key));
        m_agent->SetItem(row, 1, wxString::FromUTF8(agent.formula));
        m_agent->SetItem(row, 2, agent.molarMass);
    }
    m_agent->AdjustColumnsWidth();
    AddLocalizable(m_agent.get());
    AddToDetailContainerWindows(m_agent.get());
    BindControlToOnFieldUpdate(m_agent.get(), tvCHANGE_EVENT);
}

TvRadioButton* AlkalizationPanel::AddGoal(const FormRow& row, const char* mode, long style)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    auto* button =
        AddLocalizable(new TvRadioButton(this, wxID_ANY, row.label, wxDefaultPosition, wxDefaultSize, style));
    GetForm().Add(button, cell);
    GetForm().Add(GetFields().CreateField(this, row), wxSizerFlags().Expand());
    const std::string& unit = GetLiquidDetail(row.key)->GetUnit();
    GetForm().Add(GetFields().AddUnitLabel(this, wxString::FromUTF8(unit), true), cell);
    button->Bind(wxEVT_RADIOBUTTON, [this, mode](wxCommandEvent& event) {
        GetLiquidDetail("liquid/alk.mode")->SetValue(mode);
        Commit();
        event.Skip();
    });
    return button;
}

void AlkalizationPanel::DoUpdateValues()
{
    const auto index = static_cast<std::size_t>(GetLiquidIndex());
    GetProject()->NormalizeIons(index, true);
    m_result = GetProject()->CalculateAlkalization(index);
    ShowGoal();
}

void AlkalizationPanel::ShowGoal()
{
    const bool byDose = GetLiquidDetail("liquid/alk.mode")->GetStringValue() == "DOSE";
    const bool isChosen = !GetLiquidDetail("liquid/alk.type")->GetStringValue().empty();
    m_byPh->SetValue(!byDose);
    m_byDose->SetValue(byDose);
    for (TvRadioButton* button : {m_byPh, m_byDose})
        button->Enable(isChosen);
    FindField("liquid/alk.target")->Enable(isChosen && !byDose);
    FindField("liquid/alk.dose")->Enable(isChosen && byDose);
    const wxString message = i18n::Translated(wxString::FromUTF8(water::Explain(m_result)));
    if (m_message->GetLabelText() != message) {
        m_message->SetLabelText(message);
        m_message->Wrap(FromDIP(kMessageWidth));
    }
}

AlkalizationDialog::AlkalizationDialog(Project* project, int liquid, wxWindow* parent, int id,
                                       const wxString& title)
    : LiquidToolDialog(project, liquid, parent, id,
                       title.empty() ? i18n::Translated(wxTRANSLATE("Alkalization")) : title,
                       wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE, wxASCII_STR(wxDialogNameStr))
{
    for (auto& [name, detail] : GetDetails())
        m_before.emplace_back(&detail, detail.GetStoredValue());
    CreateControls(new AlkalizationPanel(project, liquid, this));
    BindEvents();
    GetPanel()->SynchronizeProject();
}

void AlkalizationDialog::RestoreData()
{
    for (const auto& [detail, value] : m_before)
        detail->RestoreValue(value);
}

bool AlkalizationDialog::ShowFor(Project& project, const LiquidData& water, wxWindow* parent)
{
    const ProjectEdit edit(project, wxTRANSLATE("alkalization"));
    return AlkalizationDialog(&project, static_cast<int>(water.GetPosition()), parent).ShowModal() == wxID_OK;
}
