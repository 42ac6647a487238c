// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_total_box.h"

#include "core/number_text.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <cmath>

namespace {

constexpr int kGap = 4;
constexpr int kFieldWidth = 92;
constexpr int kDigits = 6;
/// Pairs of a field and its unit in one line.
constexpr int kMostPairs = 5;
constexpr int kLeastPairs = 2;
/// Numbers from here on are written with all digits instead of an exponent, up to there.
constexpr double kLarge = 999999.5;
constexpr double kTooLarge = 1e11;

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

wxString FeedTotalBox::NumberText(double value)
{
    const double size = std::abs(value);
    numbertext::Style style{.precision = kDigits};
    if (size >= kLarge && size < kTooLarge)
        style = {.format = TvTextCtrlFormat::Fixed, .precision = 0};
    return wxString::FromUTF8(numbertext::Format(value, style, NumericValidator::LocaleSeparators()));
}

void FeedTotalBox::ShowNumber(TvTextCtrl& field, double value)
{
    const wxString text = NumberText(value);
    if (field.GetValue() != text)
        field.ChangeValue(text);
    number_room::Fit(field, field.FromDIP(kFieldWidth));
}

FeedTotalBox::FeedTotalBox(wxWindow* parent, int id)
    : TvPanel(parent, id), m_grid(new wxFlexGridSizer(2 * kMostPairs, FromDIP(wxSize(kGap, kGap))))
{
    for (std::size_t unit = 0; unit < m_units.size(); ++unit)
        m_units[unit] = AddField(UnitText(unit));
    m_cations = AddField(wxString());
    m_cationsText = dynamic_cast<wxStaticText*>(GetChildren().GetLast()->GetData());
    m_anions = AddField(wxString());
    m_anionsText = dynamic_cast<wxStaticText*>(GetChildren().GetLast()->GetData());
    SetSizer(m_grid);
    UpdateNames();
}

TvTextCtrl* FeedTotalBox::AddField(const wxString& text)
{
    TvTextCtrl* field = NewResultField(this);
    m_grid->Add(field, wxSizerFlags().CentreVertical());
    m_grid->Add(new wxStaticText(this, wxID_ANY, text),
                wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap)));
    return field;
}

void FeedTotalBox::ArrangeFor(int width)
{
    const int before = m_grid->GetCols();
    for (int pairs = kMostPairs; pairs >= kLeastPairs; --pairs) {
        m_grid->SetCols(2 * pairs);
        if (m_grid->CalcMin().x <= width)
            break;
    }
    if (m_grid->GetCols() == before)
        return;
    InvalidateBestSize();
    m_grid->Layout();
}

void FeedTotalBox::SetTotals(const FeedComposition::Totals& totals)
{
    for (std::size_t unit = 0; unit < m_units.size(); ++unit)
        ShowNumber(*m_units[unit], totals.values[unit]);
    ShowNumber(*m_cations, totals.cations);
    ShowNumber(*m_anions, totals.anions);
}

void FeedTotalBox::Localize(const std::string& unitSystem)
{
    UpdateNames();
    TvPanel::Localize(unitSystem);
}

void FeedTotalBox::UpdateNames()
{
    const wxString total = i18n::Translated(wxTRANSLATE("Total"));
    for (std::size_t unit = 0; unit < m_units.size(); ++unit)
        accessibility::SetName(*m_units[unit], total + ", " + UnitText(unit));
    const auto name = [&](TvTextCtrl* field, wxStaticText* text, const wxString& ions) {
        text->SetLabel("meq/l " + ions);
        accessibility::SetName(*field, total + ", " + ions + ", meq/l");
    };
    name(m_cations, m_cationsText, i18n::Translated(wxTRANSLATE("Cations")));
    name(m_anions, m_anionsText, i18n::Translated(wxTRANSLATE("Anions")));
}
