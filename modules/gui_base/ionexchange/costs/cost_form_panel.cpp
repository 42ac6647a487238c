// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/costs/cost_form_panel.h"

#include <wx/wupdlock.h>

namespace {

/// The rate that a project brings with it.
costs::ShownCurrency OwnOf(const Project& project)
{
    const DetailList& details = project.GetDetails();
    return {details.At("cost/currency").GetStdStringValue(),
            details.At("cost/currency.rate").GetDoubleValue()};
}

}  // namespace

iex::IEXProject& CostFormPanel::Plant() const
{
    return dynamic_cast<iex::IEXProject&>(*GetProject());
}

std::string CostFormPanel::Key(const char* kind, const std::string& suffix)
{
    return std::string("cost/") + kind + suffix;
}

CostTable& CostFormPanel::AddTable(wxWindow* parent, const char* quantity,
                                   std::span<const cost_table::Line> lines,
                                   std::span<const cost_table::Result> results,
                                   const AlignedGrid::Group& group)
{
    m_tables.push_back(std::make_unique<CostTable>(GetFields(), parent, quantity, lines, results, group));
    return *m_tables.back();
}

void CostFormPanel::DoCreateControls()
{
    m_tables.clear();
    FormPanel::DoCreateControls();
    m_ofProject = OwnOf(*GetProject());
    GetFields().SetCurrency(costs::ChosenCurrency(*GetProject()));
}

void CostFormPanel::DoTransferDetailsToWindows()
{
    DoSetResults();
    FormPanel::DoTransferDetailsToWindows();
    ShowTables();
}

void CostFormPanel::ShowTables()
{
    bool isOther = false;
    for (const auto& table : m_tables)
        isOther = table->ShowLines() || isOther;
    if (!isOther)
        return;
    NameTables();
    FitAndLayout();
}

void CostFormPanel::NameTables()
{
    for (const auto& table : m_tables)
        table->NameFields(GetCurrentDisplayUnitSystem());
}

void CostFormPanel::UpdateCurrencyDisplay()
{
    ShowIn(costs::ChosenCurrency(*GetProject()));
}

void CostFormPanel::ShowIn(const costs::ShownCurrency& currency)
{
    const wxWindowUpdateLocker frozen(this);
    m_ofProject = OwnOf(*GetProject());
    if (currency == GetCurrency())
        return DoTransferDetailsToWindows();
    const bool isOtherCode = currency.code != GetCurrency().code;
    GetFields().SetCurrency(currency);
    DoUpdateValidators();
    DoTransferDetailsToWindows();
    if (!isOtherCode)
        return;
    GetFields().ShowUnits(GetCurrentDisplayUnitSystem());
    FormPanel::DoUpdateUnits();
    NameTables();
    FitAndLayout();
}

void CostFormPanel::DoFollowProject()
{
    if (OwnOf(*GetProject()) != m_ofProject)
        return UpdateCurrencyDisplay();
    // Names hold units, which an edit leaves, and what the lines are called: those look after themselves.
    ModulePanelBase::DoFollowProject();
}

void CostFormPanel::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    NameTables();
}

void CostFormPanel::DoLocalize()
{
    FormPanel::DoLocalize();
    ShowTables();
    NameTables();
}
