// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_info_box.h"

#include "core/number_text.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/ionexchange/feed/feed_hint.h"
#include "gui_base/support/accessibility.h"

#include <wx/sizer.h>
#include <wx/translation.h>

namespace {

constexpr int kGap = 4;
constexpr int kDigits = 6;
constexpr int kDetailWidth = 100;

wxString Number(double value, const char* unit)
{
    const wxString text = wxString::FromUTF8(numbertext::Format(
        value, {.precision = kDigits, .shortExponent = true}, NumericValidator::LocaleSeparators()));
    return text.empty() ? text : text + unit;
}

}  // namespace

CompoundInfoBox::CompoundInfoBox(wxWindow* parent) : TvPanel(parent)
{
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(3 * kGap, kGap)));
    m_noSelection = AddControl(NewFeedHint(this, wxTRANSLATE("No compound selected")));
    for (const char* label : {wxTRANSLATE("Ionic Charge"), wxTRANSLATE("Molweight"), wxTRANSLATE("Valency"),
                              wxTRANSLATE("pKa")}) {
        auto* text = AddControl(new TvStaticText(this, wxID_ANY, label, ":"));
        auto* value = new wxStaticText(this, wxID_ANY, wxString());
        accessibility::SetName(*value, label);
        value->SetMinSize(FromDIP(wxSize(kDetailWidth, -1)));
        grid->Add(text);
        grid->Add(value);
        m_details.emplace_back(text, value);
    }
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_noSelection, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    sizer->Add(grid, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
    SetSizer(sizer);
}

void CompoundInfoBox::ShowCompound(const DBObjects::Compound& compound, double molweight)
{
    const wxString texts[] = {wxString::Format(compound.ionicCharge > 0 ? "+%d" : "%d", compound.ionicCharge),
                              Number(molweight, " g/mol"), wxString::Format("%d", compound.valency),
                              Number(compound.pKa, "")};
    for (std::size_t i = 0; i < m_details.size(); ++i)
        m_details[i].second->SetLabel(texts[i]);
    ShowFields(true);
}

void CompoundInfoBox::ShowFields(bool show)
{
    m_noSelection->Show(!show);
    for (const auto& [label, value] : m_details) {
        label->Show(show);
        value->Show(show);
    }
    Layout();
}

void CompoundInfoBox::Clear()
{
    for (const auto& detail : m_details)
        detail.second->SetLabel(wxString());
    ShowFields(false);
}
