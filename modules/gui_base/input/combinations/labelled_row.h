// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: a label and one control that is bound to one detail.
///
/// The controls belong to the parent window and may go before the combination; the detail outlives both. A
/// change by the user is told to the parent by one queued tvCHANGE_EVENT with the control's id.

#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/events.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <string>

template <typename Control>
class LabelledRow : public DataBaseCombination
{
public:
    LabelledRow(const LabelledRow&) = delete;
    LabelledRow& operator=(const LabelledRow&) = delete;

    void Localize(const std::string& unitSystem)
    {
        if (m_label)
            m_label->Localize(unitSystem);
        if (!m_control)
            return;
        DoLocalize(unitSystem);
        accessibility::SetName(*m_control, i18n::Translated(m_labelText));
    }

    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }
    int GetControlId() const override { return m_control ? m_control->GetId() : wxID_ANY; }

    wxSizer* GetSizer() const { return m_sizer; }
    TvStaticText* GetLabel() const { return m_label.get(); }

protected:
    static constexpr int kGap = 3;

    /// Creates the label; AddControl follows. Without a `sizer` the row makes a horizontal one, which the
    /// caller adds to its own.
    LabelledRow(wxWindow* parent, const wxString& label, const wxString& suffix, wxSizer* sizer)
        : m_parent(parent),
          m_sizer(sizer != nullptr ? sizer : new wxBoxSizer(wxHORIZONTAL)),
          m_labelText(label),
          m_label(new TvStaticText(parent, wxID_ANY, label, suffix))
    {
        m_sizer->Add(m_label.get(), wxSizerFlags().Border(wxRIGHT | wxBOTTOM, kGap).CenterVertical());
    }

    void AddControl(Control* control)
    {
        m_control = control;
        m_sizer->Add(control, wxSizerFlags().Border(wxBOTTOM, kGap).CenterVertical());
        accessibility::SetName(*control, i18n::Translated(m_labelText));
    }

    /// Shows the control's own texts in the present language.
    virtual void DoLocalize(const std::string& unitSystem) = 0;

    void SendChange(const wxString& text)
    {
        events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, text);
    }

    /// Null once the parent destroyed it.
    Control* GetControl() const { return m_control.get(); }

private:
    wxWindow* m_parent;
    wxSizer* m_sizer;
    wxString m_labelText;
    wxWeakRef<TvStaticText> m_label;
    wxWeakRef<Control> m_control;
};
