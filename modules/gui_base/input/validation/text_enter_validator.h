// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/validation/validator.h"

#include <wx/string.h>

/// Validator of a plain text: every key is allowed, an edit is committed like that of a number.
class GUI_BASE_EXPORT TextEnterValidator : public Validator
{
public:
    /// `text` is not owned and may be null.
    explicit TextEnterValidator(wxString* text) : Validator(0), m_text(text) {}
    TextEnterValidator(const TextEnterValidator& other) = default;
    TextEnterValidator& operator=(const TextEnterValidator& other)
    {
        Validator::operator=(other);
        m_text = other.m_text;
        return *this;
    }

protected:
    TextEnterValidator* DoClone() const override { return new TextEnterValidator(*this); }
    void DoTransferFromWindow() override
    {
        if (m_text != nullptr)
            *m_text = GetControlValue();
    }
    void DoTransferToWindow() override
    {
        if (m_text != nullptr)
            SetControlValue(*m_text);
    }
    bool IsAllowedKey(int) const override { return true; }

private:
    wxString* m_text;
};
