// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_total_box.h"

#include "gui_base/core/number_text.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>

namespace {

constexpr int kGap = 4;
constexpr int kFieldWidth = 92;
constexpr int kDigits = 6;
/// Pairs of a unit and its field in one line.
constexpr std::size_t kPairs = 4;

wxString UnitText(std::size_t unit)
{
    return wxString::FromUTF8(FeedComposition::kUnitTexts[unit]);
}

}  // namespace

TvTextCtrl* FeedTotalBox::NewResultField(wxWindow* parent)
{
    auto* field = new TvTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition,
                                 parent->FromDIP(wxSize(kFieldWidth, -1)), wxTE_RIGHT | wxTE_READONLY);
    field->DisableFocusFromKeyboard();
    return field;
}

void FeedTotalBox::ShowNumber(TvTextCtrl& field, double value)
{
    const wxString text = wxString::FromUTF8(
        numbertext::Format(value, {.precision = kDigits}, NumericValidator::LocaleSeparators()));
    if (field.GetValue() != text)
        field.ChangeValue(text);
}

FeedTotalBox::FeedTotalBox(wxWindow* parent, int id) : TvPanel(parent, id)
{
    // Unit behind its number; the sums of charges stand last in each line.
    auto* grid = new wxFlexGridSizer(2 * (kPairs + 1) + 1, FromDIP(wxSize(kGap, kGap)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    const wxSizerFlags spaced = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap));
    const auto addUnit = [&](std::size_t unit) {
        m_units[unit] = NewResultField(this);
        grid->Add(m_units[unit], cell);
        grid->Add(new wxStaticText(this, wxID_ANY, UnitText(unit)), spaced);
    };
    const auto addCharge = [&](const char* label, TvTextCtrl*& field) {
        grid->Add(AddControl(new TvStaticText(this, wxID_ANY, label)), cell);
        field = NewResultField(this);
        grid->Add(field, cell);
        grid->Add(new wxStaticText(this, wxID_ANY, "meq/l"), spaced);
    };
    for (std::size_t unit = 0; unit < kPairs; ++unit)
        addUnit(unit);
    addCharge(wxTRANSLATE("Cations"), m_cations);
    for (std::size_t unit = kPairs; unit < m_units.size(); ++unit)
        addUnit(unit);
    for (std::size_t cellsLeft = 2 * (2 * kPairs - m_units.size()); cellsLeft > 0; --cellsLeft)
        grid->AddSpacer(0);
    addCharge(wxTRANSLATE("Anions"), m_anions);
    SetSizer(grid);
    UpdateNames();
}

void FeedTotalBox::SetTotals(const FeedComposition::Totals& totals)
{
    for (std::size_t unit = 0; unit < m_units.size(); ++unit)
        ShowNumber(*m_units[unit], totals.values[unit]);
    ShowNumber(*m_cations, totals.cations);
    ShowNumber(*m_anions, totals.anions);
}

void FeedTotalBox::UpdateNames()
{
    const wxString total = i18n::Translated(wxTRANSLATE("Total"));
    for (std::size_t unit = 0; unit < m_units.size(); ++unit)
        accessibility::SetName(*m_units[unit], total + ", " + UnitText(unit));
    accessibility::SetName(*m_cations, i18n::Translated("Cations") + ", meq/l");
    accessibility::SetName(*m_anions, i18n::Translated("Anions") + ", meq/l");
}
