// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_datepickerctrl.h"

#include "gui_base/input/events.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

namespace {

bool IsSameDay(const wxDateTime& a, const wxDateTime& b)
{
    if (!a.IsValid() || !b.IsValid())
        return a.IsValid() == b.IsValid();
    return a.IsSameDate(b);
}

}  // namespace

TvDatePickerCtrl::TvDatePickerCtrl(wxWindow* parent, int id, DetailData* detail, const wxPoint& pos,
                                   const wxSize& size, long style, const wxString& name)
    : wxDatePickerCtrl(parent, id, wxDefaultDateTime, pos, size, style | wxDP_ALLOWNONE, wxDefaultValidator,
                       name),
      m_detail(detail)
{
    TvDatePickerCtrl::TransferDetailToWindow();
    Bind(wxEVT_DATE_CHANGED, &TvDatePickerCtrl::OnDate, this);
}

void TvDatePickerCtrl::SetTranslatableToolTip(const wxString& tooltip)
{
    m_tooltip = tooltip;
    Localize(std::string());
}

void TvDatePickerCtrl::Localize(const std::string&)
{
    if (!m_tooltip.empty())
        SetToolTip(i18n::Translated(m_tooltip));
}

void TvDatePickerCtrl::TransferDetailToWindow()
{
    if (m_detail != nullptr && !IsSameDay(GetValue(), m_detail->GetDateValue()))
        SetValue(m_detail->GetDateValue());
}

void TvDatePickerCtrl::OnDate(wxDateEvent& event)
{
    event.Skip();
    if (m_detail == nullptr || IsSameDay(event.GetDate(), m_detail->GetDateValue()))
        return;
    m_detail->SetValue(event.GetDate());
    events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
}
