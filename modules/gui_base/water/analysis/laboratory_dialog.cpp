// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/laboratory_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace {

constexpr int kMostSamples = 1000000;

enum Column : int
{
    kParameter,
    kText,
    kValue,
    kUnit,
    kRemark
};

}  // namespace

LaboratoryDialog::LaboratoryDialog(wxWindow* parent, const laboratory::File& file, const DetailList& liquid)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Import analysis"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_file(file),
      m_liquid(liquid)
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)).Expand();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(new wxStaticText(this, wxID_ANY, FormText()), spaced);
    if (m_file.samples.size() > 1) {
        auto* row = new wxBoxSizer(wxHORIZONTAL);
        const wxString label = i18n::Translated("Sample");
        row->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CentreVertical());
        m_sample =
            new wxSpinCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS, 1,
                           std::min(kMostSamples, static_cast<int>(m_file.samples.size())), 1);
        accessibility::SetName(*m_sample, label);
        row->Add(m_sample, wxSizerFlags().Border(wxLEFT, FromDIP(8)));
        row->Add(new wxStaticText(
                     this, wxID_ANY,
                     wxString::Format(i18n::Translated("of %d"), static_cast<int>(m_file.samples.size()))),
                 wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(8)));
        m_sample->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { ShowSample(); });
        outer->Add(row, spaced);
    }
    m_list = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(680, 380)));
    accessibility::SetName(*m_list, i18n::Translated("Parameter"));
    m_list->AppendColumn(i18n::Translated("Parameter"), wxLIST_FORMAT_LEFT, FromDIP(200));
    m_list->AppendColumn(i18n::Translated("Cell"), wxLIST_FORMAT_RIGHT, FromDIP(110));
    m_list->AppendColumn(i18n::Translated("Value"), wxLIST_FORMAT_RIGHT, FromDIP(90));
    m_list->AppendColumn(i18n::Translated("Unit"), wxLIST_FORMAT_LEFT, FromDIP(90));
    m_list->AppendColumn(i18n::Translated("Remark"), wxLIST_FORMAT_LEFT, FromDIP(170));
    outer->Add(m_list, wxSizerFlags(spaced).Proportion(1));
    m_clear = new wxCheckBox(this, wxID_ANY, i18n::Translated("Clear what the file does not state"));
    m_clear->SetValue(true);
    outer->Add(m_clear, spaced);
    outer->Add(dialogs::CreateButtons(*this, true, "Import"),
               wxSizerFlags(spaced).Border(wxALL, FromDIP(12)));
    ShowSample();
    SetSizerAndFit(outer);
    CentreOnParent();
}

wxString LaboratoryDialog::FormText() const
{
    const wxString separator = m_file.separator == '\t'  ? i18n::Translated("tab")
                               : m_file.separator == ';' ? i18n::Translated("semicolon")
                               : m_file.separator == '|' ? i18n::Translated("bar")
                                                         : i18n::Translated("comma");
    const wxString sign = m_file.decimalSign == ',' ? i18n::Translated("comma") : i18n::Translated("point");
    return wxString::Format(i18n::Translated("Separator: %s; decimal sign: %s"), separator, sign);
}

std::size_t LaboratoryDialog::GetSample() const
{
    return m_sample != nullptr ? static_cast<std::size_t>(m_sample->GetValue() - 1) : 0;
}

wxString LaboratoryDialog::Remark(std::size_t parameter, bool isTaken) const
{
    const laboratory::Parameter& shown = m_file.parameters[parameter];
    if (isTaken)
        return {};
    if (shown.target.empty())
        return i18n::Translated("Unknown parameter");
    if (!shown.unitIsKnown)
        return i18n::Translated("Unknown unit");
    if (m_file.samples[GetSample()][parameter].empty())
        return i18n::Translated("No value");
    if (!m_file.GetNumber(GetSample(), parameter))
        return i18n::Translated("No number");
    return i18n::Translated("Not taken");
}

void LaboratoryDialog::ShowSample()
{
    m_values = water::TakeSample(m_file, GetSample(), m_liquid);
    const auto separators = NumericValidator::LocaleSeparators();
    const numbertext::Style style{.precision = 6, .trimZeros = true};
    m_list->Freeze();
    m_list->DeleteAllItems();
    for (std::size_t i = 0; i < m_file.parameters.size(); ++i) {
        const laboratory::Parameter& parameter = m_file.parameters[i];
        const auto taken = std::find_if(m_values.begin(), m_values.end(),
                                        [i](const water::TakenValue& value) { return value.parameter == i; });
        const bool isTaken = taken != m_values.end();
        const long row = m_list->InsertItem(m_list->GetItemCount(), wxString::FromUTF8(parameter.title));
        m_list->SetItem(row, kText, wxString::FromUTF8(m_file.samples[GetSample()][i]));
        if (isTaken) {
            m_list->SetItem(row, kValue,
                            wxString::FromUTF8(numbertext::Format(taken->value, style, separators)));
            m_list->SetItem(row, kUnit, wxString::FromUTF8(taken->unit));
        } else {
            m_list->SetItemTextColour(row, wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        }
        m_list->SetItem(row, kRemark, Remark(i, isTaken));
    }
    m_list->Thaw();
    if (wxWindow* ok = FindWindow(wxID_OK))
        ok->Enable(!m_values.empty());
}
