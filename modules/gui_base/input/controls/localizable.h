// SPDX-License-Identifier: MIT
#pragma once

/// What a panel keeps of the controls whose texts follow the language and the unit system.
///
/// A control stores its texts in the source language and shows their translations in `Localize`. The holder
/// does not own the control; a window that was destroyed in between is skipped.

#include <wx/weakref.h>

#include <memory>
#include <string>
#include <type_traits>

class LocalizableControl
{
public:
    virtual void Localize(const std::string& unitSystem) = 0;

protected:
    LocalizableControl() = default;
    LocalizableControl(const LocalizableControl&) = default;
    LocalizableControl& operator=(const LocalizableControl&) = default;
    ~LocalizableControl() = default;
};

/// Shared holder of any control with a `Localize(const std::string&)`.
template <typename Control>
class LocalizableControlHolder final : public LocalizableControl
{
public:
    explicit LocalizableControlHolder(Control* control) : m_control(control) {}

    void Localize(const std::string& unitSystem) override
    {
        if (Control* control = Get())
            control->Localize(unitSystem);
    }

private:
    static constexpr bool kTrackable = std::is_base_of_v<wxTrackable, Control>;

    Control* Get() const
    {
        if constexpr (kTrackable)
            return m_control.get();
        else
            return m_control;
    }

    std::conditional_t<kTrackable, wxWeakRef<Control>, Control*> m_control;
};

template <typename Control>
std::shared_ptr<LocalizableControl> MakeLocalizable(Control* control)
{
    return std::make_shared<LocalizableControlHolder<Control>>(control);
}
