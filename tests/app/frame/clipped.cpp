// SPDX-License-Identifier: MIT
#include "tests/app/frame/clipped.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/water/results/result_card.h"

#include <wx/arrstr.h>
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/collpane.h>
#include <wx/combo.h>
#include <wx/combobox.h>
#include <wx/datectrl.h>
#include <wx/listctrl.h>
#include <wx/radiobut.h>
#include <wx/scrolwin.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

namespace gui_test {
namespace {

/// What the arrow of a choice takes of it, in DIP.
constexpr int kArrow = 24;

/// Fields show numbers in a width of their own; texts that may be shortened say so by their style.
wxSize Needed(const wxWindow& window)
{
    if (const auto* card = dynamic_cast<const wateranalysis::ResultCard*>(&window))
        return {0, card->HeightFor(card->GetSize().x)};
    const wxSize best = window.GetBestSize();
    if (const auto* text = dynamic_cast<const wxStaticText*>(&window)) {
        constexpr long kShortened =
            wxST_ELLIPSIZE_START | wxST_ELLIPSIZE_MIDDLE | wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE;
        if (text->HasFlag(kShortened) || text->GetLabel().empty())
            return {0, 0};
        // The toolkit's own answer may be that of a font that the text had before.
        wxSize needed = best;
        for (const wxString& line : wxSplit(text->GetLabelText(), '\n', '\0'))
            needed.IncTo({window.GetTextExtent(line).x, 0});
        return needed;
    }
    // The list of a combo box, and the date of a picker, are the toolkit's.
    if (dynamic_cast<const wxComboBox*>(&window) != nullptr ||
        dynamic_cast<const wxDatePickerCtrl*>(window.GetParent()) != nullptr ||
        dynamic_cast<const wxComboCtrl*>(window.GetParent()) != nullptr)
        return {0, 0};
    // The best height of a field counts in what was asked for before.
    if (const auto* field = dynamic_cast<const wxTextCtrl*>(&window)) {
        if (window.HasFlag(wxTE_MULTILINE))
            return {0, 0};
        // A number is read as a whole; names may be longer than their fields.
        const bool isNumber =
            dynamic_cast<const NumericValidator*>(const_cast<wxWindow&>(window).GetValidator()) != nullptr;
        return {isNumber ? window.GetTextExtent(field->GetValue()).x : 0, window.GetCharHeight()};
    }
    if (const auto* choice = dynamic_cast<const wxChoice*>(&window)) {
        // A list may have longer texts than the field: what is chosen is seen, unless the field has a width
        // of its own, as those for names of resins.
        const int text = window.GetTextExtent(choice->GetStringSelection()).x + window.FromDIP(kArrow);
        const int own = choice->GetMinSize().x;
        return {own > 0 ? std::min(own, text) : text, best.y};
    }
    const bool hasText = dynamic_cast<const wxCheckBox*>(&window) != nullptr ||
                         dynamic_cast<const wxRadioButton*>(&window) != nullptr ||
                         dynamic_cast<const wxButton*>(&window) != nullptr;
    return hasText ? best : wxSize(0, 0);
}

std::string Describe(const wxWindow& window)
{
    return (window.GetClassInfo()->GetClassName() + (" '" + window.GetLabel()) + "' " + window.GetName())
        .utf8_string();
}

/// How far a window goes beyond the end of what holds it.
wxSize Beyond(const wxWindow& window)
{
    const wxWindow& parent = *window.GetParent();
    // The toolkit does not say where the title of a box is, nor where a page of a book.
    const bool isTitle = dynamic_cast<const wxStaticBox*>(&parent) != nullptr &&
                         dynamic_cast<const wxButton*>(&window) != nullptr && window.HasFlag(wxBORDER_NONE);
    if (isTitle || dynamic_cast<const wxScrollHelperBase*>(&parent) != nullptr ||
        dynamic_cast<const wxBookCtrlBase*>(&parent) != nullptr)
        return {0, 0};
    const wxPoint end = window.GetRect().GetBottomRight();
    const wxPoint beyond = end - wxPoint(parent.GetSize().x - 1, parent.GetSize().y - 1);
    return {std::max(beyond.x, 0), std::max(beyond.y, 0)};
}

std::vector<std::string> NarrowColumns(const wxWindow& window)
{
    std::vector<std::string> narrow;
    const auto* list = dynamic_cast<const wxListCtrl*>(&window);
    for (int i = 0; list != nullptr && i < list->GetColumnCount(); ++i) {
        wxListItem column;
        column.SetMask(wxLIST_MASK_TEXT);
        list->GetColumn(i, column);
        if (list->GetTextExtent(column.GetText()).x > list->GetColumnWidth(i))
            narrow.push_back(Describe(window) + " column " + column.GetText().utf8_string());
    }
    return narrow;
}

}  // namespace

void VisitShown(const wxWindow& window, const std::function<void(const wxWindow&)>& visit)
{
    for (const wxWindow* child : window.GetChildren()) {
        if (!child->IsShown() || child->IsTopLevel())
            continue;
        visit(*child);
        const auto* fold = dynamic_cast<const wxCollapsiblePane*>(child);
        if (fold == nullptr || fold->IsExpanded())
            VisitShown(*child, visit);
    }
}

std::vector<std::string> Clipped(const wxWindow& window)
{
    std::vector<std::string> clipped;
    VisitShown(window, [&clipped](const wxWindow& child) {
        const wxSize needed = Needed(child);
        const wxSize size = child.GetSize();
        if (size.x + 1 < needed.x || size.y + 1 < needed.y)
            clipped.push_back(
                Describe(child) +
                wxString::Format(" %d x %d of %d x %d", size.x, size.y, needed.x, needed.y).utf8_string());
        else if (const wxSize beyond = Beyond(child); beyond != wxSize(0, 0))
            clipped.push_back(Describe(child) +
                              wxString::Format(" %d, %d beyond ", beyond.x, beyond.y).utf8_string() +
                              Describe(*child.GetParent()));
        std::ranges::copy(NarrowColumns(child), std::back_inserter(clipped));
    });
    return clipped;
}

}  // namespace gui_test
