// SPDX-License-Identifier: MIT
// The room of a panel: what stands where at which width, and how it scrolls.
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"

#include <wx/bookctrl.h>
#include <wx/datectrl.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <algorithm>

namespace {

void ForgetBestSizes(wxWindow& window)
{
    // The size of a field has nothing to do with its text, and the toolkit measures one that is shown
    // otherwise than one that is not.
    if (dynamic_cast<const wxTextCtrl*>(&window) != nullptr ||
        dynamic_cast<const wxDatePickerCtrl*>(&window) != nullptr)
        return;
    for (wxWindow* child : window.GetChildren())
        ForgetBestSizes(*child);
    window.InvalidateBestSize();
}

constexpr int kWheelStep = 60;

}  // namespace

void ModulePanelBase::ScrollWindow(int dx, int dy, const wxRect* rect)
{
    wxScrolled<wxPanel>::ScrollWindow(dx, dy, rect);
#ifdef __WXGTK3__
    CallAfter([this] { gtk_widget_queue_resize(m_wxwindow); });
#endif
}

void ModulePanelBase::OnInternalIdle()
{
    wxScrolled<wxPanel>::OnInternalIdle();
    if (GetSizer() != nullptr && GetSizer()->GetSize().x != GetVirtualSize().x && IsBookPage() &&
        IsShownOnScreen())
        Layout();
}

bool ModulePanelBase::Layout()
{
    if (!wxScrolled<wxPanel>::Layout())
        return false;
    // The toolkit measures texts of another size, and bold ones, anew some time after they are shown: a panel
    // on a page, which was made as large as what it holds, grows with them.
    if (!m_isBeingMade && GetSizer() != nullptr && GetMinSize().x > 0 && OuterPanel() != nullptr &&
        ClientToWindowSize(GetSizer()->GetMinSize()).x > GetMinSize().x)
        CallAfter(&ModulePanelBase::FitAndLayout);
    return true;
}

int ModulePanelBase::WidthToArrange() const
{
    // Beside a bar there is less room, and whether there is one hangs on how high the contents are: what is
    // arranged for the room beside it stands the same way with it and without.
    if (!IsBookPage())
        return GetClientSize().x;
    return GetSize().x - std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this), 0);
}

void ModulePanelBase::DoArrange(int width)
{
    if (GetSizer() != nullptr)
        FlowSizer::GiveRoom(*GetSizer(), width);
}

void ModulePanelBase::FitAndLayout()
{
    if (m_isBeingMade)
        return;
    // Texts and units may have become shorter, which the toolkit does not ask about again.
    ForgetBestSizes(*this);
    DoArrange(WidthToArrange());
    // A page of a notebook keeps the place that it is given, and scrolls; any other one has room for all.
    if (GetSizer() != nullptr && !IsBookPage())
        GetSizer()->SetSizeHints(this);
    // The room first: the layout takes all that there is to scroll over.
    if (GetSizer() != nullptr)
        FitInside();
    Layout();
    // What is around a panel on a page grows with it, as far as the page that scrolls.
    const ModulePanelBase* whole = this;
    for (wxWindow* around = GetParent(); around != nullptr; around = around->GetParent()) {
        if (auto* const page = dynamic_cast<ModulePanelBase*>(around)) {
            page->FitInside();
            whole = page;
        }
        around->Layout();
        if (whole->IsBookPage() || around->IsTopLevel())
            break;
    }
}

bool ModulePanelBase::IsBookPage() const
{
    // A panel on a page is none itself; a page may stand in a place holder that its book knows instead.
    if (OuterPanel() != nullptr)
        return false;
    const wxWindow* parent = GetParent();
    return dynamic_cast<const wxBookCtrlBase*>(parent) != nullptr ||
           (parent != nullptr && dynamic_cast<const wxBookCtrlBase*>(parent->GetParent()) != nullptr);
}

ModulePanelBase* ModulePanelBase::OuterPanel() const
{
    wxWindow* window = GetParent();
    while (window != nullptr && dynamic_cast<ModulePanelBase*>(window) == nullptr)
        window = window->GetParent();
    return dynamic_cast<ModulePanelBase*>(window);
}

void ModulePanelBase::OnWheel(wxMouseEvent& event)
{
    auto* window = dynamic_cast<wxWindow*>(event.GetEventObject());
    const bool scrollsItself = window != nullptr && window != this && window->HasScrollbar(wxVERTICAL);
    if (scrollsItself || event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() == 0) {
        event.Skip();
        return;
    }
    if (ModulePanelBase* outer = OuterPanel(); outer != nullptr && !HasScrollbar(wxVERTICAL))
        return outer->OnWheel(event);
    // The scroll unit is one pixel, which is no step for a wheel. Fine wheels turn by parts of a step.
    m_wheelTurn += event.GetWheelRotation();
    const int steps = m_wheelTurn / event.GetWheelDelta();
    m_wheelTurn -= steps * event.GetWheelDelta();
    Scroll(wxDefaultCoord, std::max(0, GetViewStart().y - steps * FromDIP(kWheelStep)));
}
