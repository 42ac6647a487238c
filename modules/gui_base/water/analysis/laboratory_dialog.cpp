// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/laboratory_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/rows/limit_readings.h"
#include "projectbase/water/detection_limits.h"

#include <wx/choice.h>
#include <wx/sizer.h>

#include <algorithm>
#include <array>

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

/// A cell may hold a letter; a list shows its beginning.
wxString CellText(const std::string& utf8)
{
    constexpr std::size_t kShown = 200;
    wxString text = wxString::FromUTF8(utf8);
    if (text.length() > kShown)
        text = text.Left(kShown) + wxString::FromUTF8("\u2026");
    text.Replace("\n", " ");
    return text;
}

}  // namespace

LaboratoryDialog::LaboratoryDialog(wxWindow* parent, const laboratory::File& file, const DetailList& liquid,
                                   laboratory::LimitReading limits)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Import analysis"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_file(file),
      m_liquid(liquid),
      m_reading(limits)
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)).Expand();
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(new wxStaticText(this, wxID_ANY, FormText()), spaced);
    if (m_file.samples.size() > 1)
        AddSampleRow(*outer);
    AddList(*outer);
    if (m_file.hasLimits)
        AddLimitRow(*outer);
    m_clear = new wxCheckBox(this, wxID_ANY, i18n::Translated("Clear what the file does not state"));
    m_clear->SetValue(true);
    outer->Add(m_clear, spaced);
    outer->Add(dialogs::CreateButtons(*this, true, "Import"),
               wxSizerFlags(spaced).Border(wxALL, FromDIP(12)));
    ShowSample();
    SetSizerAndFit(outer);
    CentreOnParent();
}

void LaboratoryDialog::AddSampleRow(wxSizer& outer)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags next = wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(8));
    const wxString label = i18n::Translated("Sample");
    const int count = std::min(kMostSamples, static_cast<int>(m_file.samples.size()));
    row->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CentreVertical());
    m_sample = new wxSpinCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS,
                              1, count, 1);
    accessibility::SetName(*m_sample, label);
    row->Add(m_sample, wxSizerFlags().Border(wxLEFT, FromDIP(8)));
    row->Add(new wxStaticText(this, wxID_ANY, wxString::Format(i18n::Translated("of %d"), count)), next);
    m_sampleName = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                    wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    row->Add(m_sampleName, wxSizerFlags(next).Proportion(1));
    m_sample->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { ShowSample(); });
    outer.Add(row, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)).Expand());
}

void LaboratoryDialog::AddList(wxSizer& outer)
{
    m_list = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(720, 380)));
    accessibility::SetName(*m_list, i18n::Translated("Parameter"));
    list_column::Append(*m_list, i18n::Translated("Parameter"), 200);
    list_column::Append(*m_list, i18n::Translated("Cell"), 110, wxLIST_FORMAT_RIGHT);
    list_column::Append(*m_list, i18n::Translated("Value"), 90, wxLIST_FORMAT_RIGHT);
    list_column::Append(*m_list, i18n::Translated("Unit"), 90);
    list_column::Append(*m_list, i18n::Translated("Remark"), 210);
    outer.Add(m_list, wxSizerFlags(1).Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)).Expand());
}

void LaboratoryDialog::AddLimitRow(wxSizer& outer)
{
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxString label = i18n::Translated("Values below a limit of detection count as");
    row->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CentreVertical());
    auto* choice = new wxChoice(this, wxID_ANY);
    accessibility::SetName(*choice, label);
    for (const wateranalysis::ReadingChoice& reading : wateranalysis::kLimitReadings) {
        choice->Append(i18n::Translated(reading.label));
        if (reading.reading == m_reading)
            choice->SetSelection(static_cast<int>(choice->GetCount()) - 1);
    }
    choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        m_reading = wateranalysis::kLimitReadings.at(static_cast<std::size_t>(event.GetSelection())).reading;
        ShowSample();
    });
    row->Add(choice, wxSizerFlags().Border(wxLEFT, FromDIP(8)));
    outer.Add(row, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)));
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

wxString LaboratoryDialog::Remark(std::size_t parameter, const water::TakenValue* taken) const
{
    const laboratory::Parameter& shown = m_file.parameters[parameter];
    if (taken != nullptr && taken->acidLeft > 0.0)
        return i18n::Translated("m-value: less 0.05 mmol/l");
    if (taken != nullptr)
        return taken->isLimit ? i18n::Translated("Limit of detection") : wxString();
    if (shown.target.empty())
        return i18n::Translated("Unknown parameter");
    if (shown.target == "sample")
        return i18n::Translated("Name of the sample");
    if (!shown.unitIsKnown)
        return i18n::Translated("Unknown unit");
    if (m_file.samples[GetSample()][parameter].empty())
        return i18n::Translated("No value");
    if (!shown.isText && !m_file.GetNumber(GetSample(), parameter))
        return i18n::Translated("No number");
    return i18n::Translated("Not taken");
}

void LaboratoryDialog::ShowRow(std::size_t parameter, const water::TakenValue* taken)
{
    const long row = m_list->InsertItem(m_list->GetItemCount(), CellText(m_file.parameters[parameter].title));
    m_list->SetItem(row, kText, CellText(m_file.samples[GetSample()][parameter]));
    m_list->SetItem(row, kRemark, Remark(parameter, taken));
    if (taken == nullptr) {
        m_list->SetItemTextColour(row, wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        return;
    }
    const numbertext::Style style{.precision = 6, .trimZeros = true};
    m_list->SetItem(row, kValue,
                    taken->text.empty()
                        ? wxString::FromUTF8(water::TypedText(taken->key, taken->value, style,
                                                              NumericValidator::LocaleSeparators()))
                        : CellText(taken->text));
    m_list->SetItem(row, kUnit, wxString::FromUTF8(taken->unit));
}

void LaboratoryDialog::ShowSample()
{
    m_values = water::TakeSample(m_file, GetSample(), m_liquid, m_reading);
    if (m_sampleName != nullptr)
        m_sampleName->SetLabelText(CellText(m_file.GetSampleName(GetSample())));
    m_list->Freeze();
    m_list->DeleteAllItems();
    for (std::size_t i = 0; i < m_file.parameters.size(); ++i) {
        const auto taken = std::ranges::find(m_values, i, &water::TakenValue::parameter);
        ShowRow(i, taken != m_values.end() ? &*taken : nullptr);
    }
    number_room::GrowColumn(*m_list, kValue);
    m_list->Thaw();
    if (wxWindow* ok = FindWindow(wxID_OK))
        ok->Enable(!m_values.empty());
}
