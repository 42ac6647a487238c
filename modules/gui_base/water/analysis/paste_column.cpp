// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/paste_column.h"

#include "core/detection_limit.h"
#include "core/text_limits.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace wateranalysis {
namespace {

wxString ClipboardText()
{
    wxTextDataObject text;
    if (!wxTheClipboard->Open())
        return {};
    const bool got = wxTheClipboard->GetData(text);
    wxTheClipboard->Close();
    return got ? text.GetText() : wxString();
}

/// More than a number has, and short enough to be drawn: a cell in quotes may be as long as the clipboard.
constexpr std::size_t kMostLettersShown = 60;

char LocaleDecimalSign()
{
    return NumericValidator::LocaleSeparators().decimal == "," ? ',' : '.';
}

bool HasNumbers(const std::vector<PasteLine>& lines)
{
    return std::any_of(lines.begin(), lines.end(),
                       [](const PasteLine& line) { return line.cell.value && !line.key.empty(); });
}

}  // namespace

std::vector<PasteLine> PairCells(const WaterAnalysisPanel& panel, const columntext::Column& column)
{
    const IonGrid& grid = panel.GetFocusedGrid();
    std::vector<PasteLine> lines;
    auto row = static_cast<std::size_t>(std::max(grid.FocusedRow(), 0));
    for (const columntext::Cell& cell : column.cells) {
        while (row < grid.Rows().size() && !grid.Rows()[row].typed->IsEnabled())
            ++row;
        PasteLine line{.key = {}, .row = {}, .cell = cell};
        if (row < grid.Rows().size()) {
            line.key = std::string("liquid/") + grid.Rows()[row].ion->key + ".orig";
            line.row = grid.Rows()[row].typed->GetName();
            ++row;
        }
        lines.push_back(line);
    }
    return lines;
}

PasteColumnDialog::PasteColumnDialog(wxWindow* parent, const std::vector<PasteLine>& lines, char decimalSign)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Paste column"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(8));
    outer->Add(
        new wxStaticText(this, wxID_ANY,
                         decimalSign == ',' ? i18n::Translated("The decimal sign of the column is a comma.")
                                            : i18n::Translated("The decimal sign of the column is a point.")),
        spaced);
    auto* list = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(620, 400)));
    FillList(*list, lines);
    outer->Add(list, wxSizerFlags(spaced).Expand().Proportion(1));
    outer->Add(dialogs::CreateButtons(*this, true, "Paste"), wxSizerFlags(spaced).Expand());
    SetSizerAndFit(outer);
    FindWindow(wxID_OK)->Enable(HasNumbers(lines));
    CentreOnParent();
}

void PasteColumnDialog::FillList(wxListView& list, const std::vector<PasteLine>& lines)
{
    list_column::Append(list, i18n::Translated("Row"), 170);
    list_column::Append(list, i18n::Translated("Cell"), 130, wxLIST_FORMAT_RIGHT);
    list_column::Append(list, i18n::Translated("Value"), 110, wxLIST_FORMAT_RIGHT);
    list_column::Append(list, i18n::Translated("Remark"), 200);
    const auto separators = NumericValidator::LocaleSeparators();
    for (const PasteLine& line : lines) {
        const long item = list.InsertItem(list.GetItemCount(), line.row);
        list.SetItem(item, 1,
                     wxString::FromUTF8(std::string(text_limits::Cut(line.cell.text, kMostLettersShown))));
        wxString remark;
        if (line.key.empty())
            remark = i18n::Translated("No row left");
        else if (line.cell.text.empty())
            remark = i18n::Translated("Blank: the row stays");
        else if (!line.cell.value)
            remark = i18n::Translated("No number: the row stays");
        else
            list.SetItem(
                item, 2,
                wxString::FromUTF8(detection_limit::Format(*line.cell.value, {.precision = 10}, separators)));
        list.SetItem(item, 3, remark);
        if (!line.cell.text.empty() && (!line.cell.value || line.key.empty())) {
            list.SetItemBackgroundColour(item, wxColour(255, 160, 144));
            list.SetItemTextColour(item, *wxBLACK);
        }
    }
    for (int column = 1; column <= 2; ++column)
        number_room::GrowColumn(list, column);
}

void PasteColumn(WaterAnalysisPanel& panel)
{
    wxWindow* const parent = wxGetTopLevelParent(&panel);
    columntext::Column column;
    try {
        column = columntext::Parse(ClipboardText().utf8_string(), LocaleDecimalSign());
    } catch (const delimited::TooLarge& error) {
        dialogs::ShowMessage(
            parent,
            wxString::Format(i18n::Translated("What was copied cannot be pasted as a column: %s."),
                             ReadingCauseText(error)),
            i18n::Translated("Paste column"), wxICON_WARNING,
            i18n::Translated("Copy only the cells of the column that belong to the analysis."));
        return;
    }
    const auto lines = PairCells(panel, column);
    PasteColumnDialog dialog(parent, lines, column.decimalSign);
    if (dialog.ShowModal() != wxID_OK)
        return;
    std::vector<std::pair<std::string, double>> values;
    for (const PasteLine& line : lines) {
        if (line.cell.value && !line.key.empty())
            values.emplace_back(line.key, *line.cell.value);
    }
    panel.StoreTypedValues(values);
}

}  // namespace wateranalysis
