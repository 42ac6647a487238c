// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/alkalization_dialog.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>
#include <wx/stattext.h>

#include <limits>

namespace alkalization {

wxString Explain(water::AlkalizationResult result)
{
    using Result = water::AlkalizationResult;
    switch (result) {
        case Result::None:
        case Result::Done:
            return {};
        case Result::UnknownWater:
            return wxTRANSLATE("The full analysis with pH and temperature is needed.");
        case Result::UnknownAgent:
            return wxTRANSLATE("The alkalizing agent is not in the database.");
        case Result::UnknownGoal:
            return wxTRANSLATE("Enter a pH or a dose.");
        case Result::Unreachable:
            return wxTRANSLATE("This agent cannot bring the water there.");
    }
    return {};
}

}  // namespace alkalization

namespace {

constexpr double kMostPh = 14.0;
constexpr double kMostDose = 10000.0;  // mg/l
constexpr int kMessageWidth = 320;

}  // namespace

AlkalizationPanel::AlkalizationPanel(Project* project, int liquid, wxWindow* parent, int id)
    : LiquidToolPanel(project, liquid, parent, id)
{
    Create();
}

void AlkalizationPanel::DoCreateControls()
{
    CreateForm();
    CreateAgentChoice();
    m_byPh = AddGoal(wxTRANSLATE("Target pH"), "liquid/alk.target", kMostPh, "PH", wxRB_GROUP);
    GetForm().AddSpacer(0);
    m_byDose = AddGoal(wxTRANSLATE("Dose"), "liquid/alk.dose", kMostDose, "DOSE", 0);
    GetForm().Add(AddLocalizable(new TvUnitLabel(this, "mg/l", true, true)), Cell());
    AddDoubleOutputCombinationControl(wxTRANSLATE("Resulting pH"), "liquid/alk.ph");
    AddDoubleOutputCombinationControl(wxTRANSLATE("Agent needed"), "liquid/alk.dosed");
    AddDoubleOutputCombinationControl(wxTRANSLATE("HCO3"), "liquid/hco3.mgl");
    AddDoubleOutputCombinationControl(wxTRANSLATE("CO3"), "liquid/co3.mgl");
    AddDoubleOutputCombinationControl(wxTRANSLATE("CO2"), "liquid/co2.mgl");
    AddDoubleOutputCombinationControl(wxTRANSLATE("Conductivity"), "liquid/cond");
    m_message = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                 FromDIP(wxSize(kMessageWidth, 2 * GetCharHeight())), wxST_NO_AUTORESIZE);
    GetSizer()->Add(m_message, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(12)));
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

TvRadioButton* AlkalizationPanel::AddGoal(const char* label, const wxString& key, double max,
                                          const char* mode, long style)
{
    auto* button =
        AddLocalizable(new TvRadioButton(this, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, style));
    GetForm().Add(button, Cell());
    AddInputField(label, key, 0.0, max);
    button->Bind(wxEVT_RADIOBUTTON, [this, mode](wxCommandEvent& event) {
        GetLiquidDetail("liquid/alk.mode")->SetValue(mode);
        OnFieldUpdate(event);
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
    const wxString message = i18n::Translated(alkalization::Explain(m_result));
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
