// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_details.h"

#include "core/number_text.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/library/water_lib_texts.h"
#include "projectbase/library/water_store.h"

#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/wupdlock.h>

#include <algorithm>

namespace {

constexpr int kGap = 4;
constexpr int kCommentHeight = 64;

const std::array kLabels{wxTRANSLATE("Country"),          wxTRANSLATE("Place"),
                         wxTRANSLATE("Water source"),     wxTRANSLATE("Water type"),
                         wxTRANSLATE("Date of sampling"), wxTRANSLATE("Comments")};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxTextCtrl* NewShownText(wxWindow* parent, const wxString& name, bool severalLines)
{
    auto* text = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxTE_READONLY | (severalLines ? wxTE_MULTILINE : wxBORDER_NONE));
    text->SetBackgroundColour(parent->GetBackgroundColour());
    accessibility::SetName(*text, name);
    if (severalLines)
        text->SetMinSize(wxSize(-1, parent->FromDIP(kCommentHeight)));
    else
        text->DisableFocusFromKeyboard();
    return text;
}

}  // namespace

WaterLibDetails::WaterLibDetails(wxWindow* parent) : wxPanel(parent)
{
    CreateControls();
}

void WaterLibDetails::CreateControls()
{
    auto* box = new wxStaticBoxSizer(wxHORIZONTAL, this, Tr("Details"));
    wxWindow* inside = box->GetStaticBox();
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(2 * kGap, kGap)));
    grid->AddGrowableCol(1);
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        const bool comments = i + 1 == m_texts.size();
        grid->Add(new wxStaticText(inside, wxID_ANY, Tr(kLabels[i]) + i18n::Colon()), wxSizerFlags().Top());
        m_texts[i] = NewShownText(inside, Tr(kLabels[i]), comments);
        grid->Add(m_texts[i], wxSizerFlags().Expand());
        if (comments)
            grid->AddGrowableRow(i);
    }
    m_values = new wxListView(inside, wxID_ANY);
    accessibility::SetName(*m_values, Tr("Details"));
    list_column::Append(*m_values, Tr("Name"), 170);
    list_column::Append(*m_values, Tr("Value"), 80, wxLIST_FORMAT_RIGHT);
    list_column::Append(*m_values, Tr("Unit"), 70);
    water_library::FillWidth(*m_values);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    box->Add(grid, wxSizerFlags(spaced).Proportion(1));
    box->Add(m_values, wxSizerFlags(spaced).Proportion(1));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(box, wxSizerFlags().Expand().Proportion(1).Border(wxLEFT | wxTOP, FromDIP(kGap)));
    SetSizer(sizer);
}

void WaterLibDetails::SetValues(const std::vector<DBObjects::WaterLibAttr>& values)
{
    m_liquid = std::make_unique<LiquidData>();
    water_store::Apply(values, *m_liquid);
    const wxWindowUpdateLocker frozen(m_values);
    m_values->DeleteAllItems();
    const std::vector<water_library::DetailLine> lines = water_library::DetailLines(*m_liquid);
    std::vector<std::string> numbers;
    for (const water_library::DetailLine& line : lines)
        numbers.push_back(line.value.utf8_string());
    numbertext::AlignDecimals(numbers, NumericValidator::LocaleSeparators());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const long row = m_values->InsertItem(static_cast<long>(i), lines[i].name);
        m_values->SetItem(row, 1, wxString::FromUTF8(numbers[i]));
        m_values->SetItem(row, 2, lines[i].unit);
    }
    for (const int column : {0, 1})
        number_room::GrowColumn(*m_values, column);
    water_library::FitLastColumn(*m_values);
}

void WaterLibDetails::ShowOrigin(const WaterLibListViewItem& water)
{
    const DetailList& details = *m_liquid->GetDetails();
    SetTexts({water.GetCountry(), water.GetPlace(), water.GetSource(),
              water_library::WaterTypeText(details.At("liquid/water.type").GetStdStringValue()),
              water_library::SamplingDateText(*m_liquid), details.At("liquid/comments").GetStringValue()});
}

void WaterLibDetails::SetTexts(const Texts& texts)
{
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        m_texts[i]->ChangeValue(texts[i]);
}

void WaterLibDetails::Clear()
{
    m_liquid.reset();
    m_values->DeleteAllItems();
    SetTexts({});
}
