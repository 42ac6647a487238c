// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_datepickerctrl.h"

#include "gui_base/input/events.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"
#include "projectbase/details/date_text.h"

#include <wx/textctrl.h>
#include <wx/valtext.h>

#include <optional>

namespace {

/// In DIP: the button of a date and the margins of its text.
constexpr int kButton = 44;

/// No valid date in an empty text, nothing at all in one that is no date.
std::optional<wxDateTime> DateIn(const wxString& text)
{
    if (text.empty())
        return wxDateTime();
    for (const char* form : {"%Y-%m-%d", "%x", "%d.%m.%Y", "%m/%d/%Y"}) {
        wxDateTime date;
        wxString::const_iterator end;
        if (date.ParseFormat(text, form, &end) && end == text.end())
            return date;
    }
    return std::nullopt;
}

bool IsSameDay(const wxDateTime& a, const wxDateTime& b)
{
    if (!a.IsValid() || !b.IsValid())
        return a.IsValid() == b.IsValid();
    return a.IsSameDate(b);
}

}  // namespace

TvDatePickerCtrl::TvDatePickerCtrl(wxWindow* parent, int id, DetailData* detail, const wxPoint& pos,
                                   const wxSize& size, long style, const wxString& name)
    : wxDatePickerCtrl(parent, id, wxDefaultDateTime, pos, size, style | wxDP_ALLOWNONE | wxDP_SHOWCENTURY,
                       wxDefaultValidator, name),
      m_detail(detail)
{
    for (wxWindow* child : GetChildren()) {
        if (auto* combo = dynamic_cast<wxComboCtrl*>(child);
            combo != nullptr && combo->GetTextCtrl() != nullptr)
            m_text = combo;
    }
    if (m_text != nullptr) {
        // The toolkit takes the signs of the locale's dates alone.
        wxTextValidator signs(wxFILTER_INCLUDE_CHAR_LIST);
        signs.SetCharIncludes("0123456789-./");
        m_text->SetValidator(signs);
        m_text->GetTextCtrl()->Bind(wxEVT_KILL_FOCUS, &TvDatePickerCtrl::OnLeft, this);
    }
    // The toolkit measures the date that it has, which may be none, as the locale writes it.
    SetMinSize(wxSize(GetTextExtent("0000-00-00").x + FromDIP(kButton), -1));
    TvDatePickerCtrl::TransferDetailToWindow();
    Bind(wxEVT_DATE_CHANGED, &TvDatePickerCtrl::OnDate, this);
}

TvDatePickerCtrl::~TvDatePickerCtrl()
{
    // The field tells of a lost focus while it goes, when nothing of this object is left.
    if (m_text != nullptr)
        m_text->GetTextCtrl()->Unbind(wxEVT_KILL_FOCUS, &TvDatePickerCtrl::OnLeft, this);
}

void TvDatePickerCtrl::SetValue(const wxDateTime& date)
{
    wxDatePickerCtrl::SetValue(date);
    ShowText();
}

/// The toolkit writes dates by the locale, and reads them so.
void TvDatePickerCtrl::ShowText()
{
    if (m_text != nullptr)
        m_text->SetText(DateText(GetValue()));
}

void TvDatePickerCtrl::CommitText()
{
    if (m_text == nullptr)
        return;
    if (const std::optional<wxDateTime> date = DateIn(m_text->GetValue())) {
        wxDatePickerCtrl::SetValue(*date);
        Store(*date);
    }
}

void TvDatePickerCtrl::OnLeft(wxFocusEvent& event)
{
    // The toolkit reads the text next.
    event.Skip();
    // A window that goes loses the focus when its detail may have gone already.
    if (IsBeingDeleted())
        return;
    CommitText();
    // It empties a field whose text is no date.
    CallAfter([this] {
        TransferDetailToWindow();
        ShowText();
    });
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
    // A date is typed before it is chosen: "3/4/20" is not the one of "3/4/2017".
    if (m_text != nullptr && m_text->GetTextCtrl()->HasFocus() && !m_text->IsPopupShown())
        return;
    Store(event.GetDate());
    CallAfter(&TvDatePickerCtrl::ShowText);
}

void TvDatePickerCtrl::Store(const wxDateTime& date)
{
    if (m_detail == nullptr || IsSameDay(date, m_detail->GetDateValue()))
        return;
    m_detail->SetValue(date);
    events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
}
