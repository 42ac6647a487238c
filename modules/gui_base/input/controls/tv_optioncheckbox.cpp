// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_optioncheckbox.h"

#include "gui_base/support/translation.h"

#include <wx/tokenzr.h>

#include <set>
#include <stdexcept>
#include <vector>

namespace {

/// The content of the detail that lists the chosen options.
struct Chosen
{
    std::set<long> ids;
    std::vector<wxString> others;
};

Chosen Read(const DetailData& detail)
{
    Chosen chosen;
    for (const wxString& word : wxStringTokenize(detail.GetStringValue(), " \t\n", wxTOKEN_STRTOK)) {
        long id = 0;
        if (word.ToCLong(&id))
            chosen.ids.insert(id);
        else
            chosen.others.push_back(word);
    }
    return chosen;
}

wxString Write(const Chosen& chosen)
{
    wxString text;
    const auto append = [&text](const wxString& word) { text += (text.empty() ? "" : " ") + word; };
    for (const long id : chosen.ids)
        append(wxString() << id);
    for (const wxString& word : chosen.others)
        append(word);
    return text;
}

void ShowToolTip(wxWindow& window, const wxString& source)
{
    if (!source.empty())
        window.SetToolTip(i18n::Translated(source));
}

}  // namespace

TvOptionCheckBox::TvOptionCheckBox(wxWindow* parent, int id, TvOption& option, const wxPoint& pos,
                                   const wxSize& size, long style)
    : TvCheckBox(parent, id, option.label, pos, size, style), m_option(option)
{
    ShowToolTip(*this, m_option.tooltip);
    TvOptionCheckBox::TransferDetailToWindow();
    Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
        m_option.checked = event.IsChecked();
        event.Skip();
    });
}

void TvOptionCheckBox::TransferDetailToWindow()
{
    if (GetValue() != m_option.checked)
        SetValue(m_option.checked);
    Enable(m_option.available);
}

void TvOptionCheckBox::Localize(const std::string& unitSystem)
{
    TvCheckBox::Localize(unitSystem);
    ShowToolTip(*this, m_option.tooltip);
}

TvProcessOptionCheckBox::TvProcessOptionCheckBox(wxWindow* parent, int id, const ProcessOption& option,
                                                 DetailData* chosenOptions, const wxPoint& pos,
                                                 const wxSize& size, long style)
    : TvCheckBox(parent, id, option.name, pos, size, style), m_option(option), m_chosenOptions(chosenOptions)
{
    if (chosenOptions == nullptr)
        throw std::runtime_error("TvProcessOptionCheckBox::TvProcessOptionCheckBox: the detail is missing");
    ShowToolTip(*this, m_option.hint);
    TvProcessOptionCheckBox::TransferDetailToWindow();
    Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
        Store(event.IsChecked());
        event.Skip();
    });
}

void TvProcessOptionCheckBox::TransferDetailToWindow()
{
    const bool chosen = Read(*m_chosenOptions).ids.contains(m_option.id);
    if (GetValue() != chosen)
        SetValue(chosen);
}

void TvProcessOptionCheckBox::Store(bool isChosen)
{
    Chosen chosen = Read(*m_chosenOptions);
    if (isChosen)
        chosen.ids.insert(m_option.id);
    else
        chosen.ids.erase(m_option.id);
    m_chosenOptions->SetValue(Write(chosen));
}

void TvProcessOptionCheckBox::Localize(const std::string& unitSystem)
{
    TvCheckBox::Localize(unitSystem);
    ShowToolTip(*this, m_option.hint);
}
