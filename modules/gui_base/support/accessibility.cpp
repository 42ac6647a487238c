// SPDX-License-Identifier: MIT
#include "gui_base/support/accessibility.h"

#include "gui_base/support/translation.h"

#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/control.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <map>
#include <vector>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace accessibility {

namespace {

/// What takes the focus, and what is to be said of it.
struct Control
{
    wxWindow* window = nullptr;
    wxString label;               ///< without unit
    wxString unit;                ///< with its brackets and the blank ahead of them; may be empty
    std::vector<wxString> boxes;  ///< titles around it, the nearest one first
    bool isResult = false;
    wxString addition = {};

    wxString Name() const { return label + addition + unit; }
};

#ifdef __WXGTK__
void Speak(GtkWidget& widget, const wxScopedCharBuffer& name)
{
    AtkObject* accessible = gtk_widget_get_accessible(&widget);
    const char* former = atk_object_get_name(accessible);
    if (former == nullptr || std::string_view(former) != name.data())
        atk_object_set_name(accessible, name);
}
#endif

void Speak(wxWindow& window, const wxString& name)
{
#ifdef __WXGTK__
    // The toolkit hands names to screen readers on other systems only.
    auto* widget = static_cast<GtkWidget*>(window.GetHandle());
    if (widget == nullptr)
        return;
    const wxScopedCharBuffer text = name.utf8_str();
    Speak(*widget, text);
    // A text of several lines stands in a frame that scrolls, that of a combo box in its list.
    GtkWidget* const inner = GTK_IS_BIN(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : nullptr;
    if (inner != nullptr && (GTK_IS_TEXT_VIEW(inner) || GTK_IS_ENTRY(inner)))
        Speak(*inner, text);
#endif
}

/// Whether nobody gave the window a name: then it has that of its kind.
bool HasNameOfKind(const wxWindow& window)
{
    static const std::vector<wxString> kinds{
        wxPanelNameStr,       wxButtonNameStr, wxCheckBoxNameStr, wxTextCtrlNameStr,  "comboBox",
        wxRadioButtonNameStr, "GridWindow",    wxChoiceNameStr,   wxStaticBoxNameStr, "scrolledWindow"};
    return window.GetName().empty() || std::ranges::find(kinds, window.GetName()) != kinds.end();
}

bool IsContainer(const wxWindow& window)
{
    return dynamic_cast<const wxPanel*>(&window) != nullptr ||
           dynamic_cast<const wxStaticBox*>(&window) != nullptr ||
           dynamic_cast<const wxBookCtrlBase*>(&window) != nullptr;
}

/// The name that was given to a window, the label that it shows, or the name of the control that it is part
/// of.
wxString BaseName(const wxWindow& window)
{
    if (!HasNameOfKind(window))
        return window.GetName();
    const bool isLabelled = dynamic_cast<const wxAnyButton*>(&window) != nullptr ||
                            dynamic_cast<const wxCheckBox*>(&window) != nullptr ||
                            dynamic_cast<const wxRadioButton*>(&window) != nullptr;
    if (isLabelled)
        return wxControl::RemoveMnemonics(window.GetLabel());
    const wxWindow* parent = window.GetParent();
    return parent == nullptr || parent->IsTopLevel() || IsContainer(*parent) ? wxString() : BaseName(*parent);
}

/// The titles of the boxes around a window within a page, the nearest one first.
std::vector<wxString> BoxesAround(const wxWindow& window, const wxWindow& page)
{
    std::vector<wxString> titles;
    for (const wxWindow* at = window.GetParent(); at != nullptr && at != &page; at = at->GetParent()) {
        if (dynamic_cast<const wxStaticBox*>(at) == nullptr)
            continue;
        const wxString title =
            HasNameOfKind(*at) ? wxControl::RemoveMnemonics(at->GetLabel()) : at->GetName();
        if (!title.empty())
            titles.push_back(title);
    }
    return titles;
}

void Collect(wxWindow& window, const wxWindow& page, std::vector<Control>& controls)
{
    // The pages of a notebook are looked at one by one.
    if (page.IsTopLevel() && dynamic_cast<wxBookCtrlBase*>(&window) != nullptr)
        return;
    for (wxWindow* child : window.GetChildren()) {
        if (child->IsTopLevel())
            continue;
        Collect(*child, page, controls);
        wxString label =
            child->GetChildren().empty() && child->AcceptsFocus() ? BaseName(*child) : wxString();
        if (label.empty())
            continue;
        wxString unit;
        const std::size_t bracket = label.rfind(" [");
        if (label.EndsWith("]") && bracket != wxString::npos) {
            unit = label.substr(bracket);
            label.erase(bracket);
        }
        const bool isResult =
            dynamic_cast<const wxTextCtrl*>(child) != nullptr && child->HasFlag(wxTE_READONLY);
        controls.push_back({child, label, unit, BoxesAround(*child, page), isResult});
    }
}

/// Calls `tell` with those that have one name, for each name that several have.
template <typename Tell>
void ForEachAlike(std::vector<Control>& controls, wxString (*nameOf)(const Control&), const Tell& tell)
{
    std::map<wxString, std::vector<Control*>> named;
    for (Control& control : controls)
        named[nameOf(control)].push_back(&control);
    for (auto& [name, alike] : named) {
        if (alike.size() > 1)
            tell(alike);
    }
}

/// Says of each control of a page what distinguishes it from the others of its name: that it is a result or
/// the title of a box, the boxes around it, else its number.
void TellApart(wxWindow& page)
{
    std::vector<Control> controls;
    Collect(page, page, controls);
    const auto label = [](const Control& control) { return control.label; };
    const auto name = [](const Control& control) { return control.Name(); };
    for (Control& control : controls) {
        const bool isTitle = !control.boxes.empty() && control.boxes.front() == control.label &&
                             dynamic_cast<const wxAnyButton*>(control.window) != nullptr;
        if (isTitle)
            control.addition = ", " + i18n::Translated("show or hide");
    }
    ForEachAlike(controls, label, [](const std::vector<Control*>& alike) {
        if (std::ranges::all_of(alike, &Control::isResult))
            return;
        for (Control* control : alike) {
            if (control->isResult)
                control->addition = ", " + i18n::Translated("result");
        }
    });
    std::size_t most = 0;
    for (const Control& control : controls)
        most = std::max(most, control.boxes.size());
    for (std::size_t depth = 0; depth < most; ++depth) {
        ForEachAlike(controls, name, [depth](const std::vector<Control*>& alike) {
            for (Control* control : alike) {
                if (depth < control->boxes.size() && control->boxes[depth] != control->label)
                    control->addition += ", " + control->boxes[depth];
            }
        });
    }
    ForEachAlike(controls, name, [](const std::vector<Control*>& alike) {
        for (std::size_t i = 1; i < alike.size(); ++i)
            alike[i]->addition += wxString::Format(", %zu", i + 1);
    });
    for (const Control& control : controls)
        Speak(*control.window, control.Name());
}

/// The page of the outermost notebook around a window; its dialog or frame where there is none.
wxWindow& PageOf(wxWindow& window)
{
    wxWindow* page = nullptr;
    wxWindow* at = &window;
    for (; at->GetParent() != nullptr && !at->IsTopLevel(); at = at->GetParent()) {
        if (dynamic_cast<wxBookCtrlBase*>(at->GetParent()) != nullptr)
            page = at;
    }
    return page != nullptr ? *page : *at;
}

/// Once for all names that are given in one go.
void QueueTellingApart(wxWindow& window)
{
    static std::vector<wxWeakRef<wxWindow>> queued;
    wxWindow& page = PageOf(window);
    std::erase_if(queued, [](const auto& each) { return !each; });
    if (std::ranges::any_of(queued, [&page](const auto& each) { return each.get() == &page; }))
        return;
    queued.emplace_back(&page);
    page.CallAfter([&page] {
        std::erase_if(queued, [&page](const auto& each) { return !each || each.get() == &page; });
        TellApart(page);
    });
}

}  // namespace

void SetName(wxWindow& window, const wxString& name)
{
    if (window.GetName() == name && !HasNameOfKind(window))
        return;
    window.SetName(name);
    Speak(window, name);
    QueueTellingApart(window);
}

wxString NameWithUnit(const wxString& label, const wxString& unit)
{
    const wxString inBrackets = "[" + unit + "]";
    return unit.empty() || label.EndsWith(inBrackets) ? label : label + " " + inBrackets;
}

}  // namespace accessibility
