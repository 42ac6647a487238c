// SPDX-License-Identifier: MIT
#pragma once

/// Text fields that carry their own binding to one detail and their own validator, built from a plain record.
/// They tell their parent of a changed detail by a queued tvCHANGE_EVENT; an unchanged commit sends nothing.

#include "core/number_text.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_textctrl.h"

struct ValidatedDoubleTextCtrlConfig
{
    wxWindow* parent = nullptr;
    int id = -1;
    wxPoint pos = wxDefaultPosition;
    wxSize size = wxDefaultSize;
    long style = 0;
    wxString name = {};
    double minValue = 0.0;       ///< ISO units; used where the detail has no limit of its own
    double maxValue = 999999.0;  ///< ISO units
    TvTextCtrlFormat format = TvTextCtrlFormat::General;
    double undefValue = 0.0;  ///< stored for an empty field
    int precision = 6;
    int validatorFlags = 53;       ///< CheckMin + CheckMax + ClampToLimits + TrimZeros
    double defaultValue = 0.0;     ///< ISO units
    DetailData* detail = nullptr;  ///< not owned
    int transferFlags = 1;
    wxStatusBar* statusBar = nullptr;
    bool followUnitSystem = true;
};

struct ValidatedTextCtrlConfig
{
    wxWindow* parent = nullptr;
    int id = -1;
    wxPoint pos = wxDefaultPosition;
    wxSize size = wxDefaultSize;
    long style = 0;
    wxString name = {};
    wxString defaultText = {};
    DetailData* detail = nullptr;  ///< not owned
    int transferFlags = 1;
    wxStatusBar* statusBar = nullptr;
};

/// What both kinds of fields share: the edited variable, its binding and the transfers through both.
template <typename T>
class TvDetailTextCtrl : public TvTextCtrl, public DetailContainerWindow
{
public:
    bool TransferDataToWindow() override;
    bool TransferDataFromWindow() override;
    void TransferDetailToWindow() override { TransferDataToWindow(); }
    /// Hint and unit system; what was typed and not yet left stays as it is.
    void Localize(const std::string& unitSystem) override;
    void Localize(const wxString& unitSystem) { Localize(unitSystem.utf8_string()); }
    void Localize(const char* unitSystem) { Localize(std::string(unitSystem)); }
    void UpdateUnit(const std::string& unitSystem) override;
    /// Stores the configured default in the detail and shows it.
    void SetToDefault();

    DetailData* GetDetail() const { return m_detail; }

protected:
    /// Shows the detail at once.
    template <typename Config>
    TvDetailTextCtrl(const Config& config, const T& defaultValue);

    /// Takes the system that the field is to show.
    virtual void SetUnitSystem(const wxString& unitSystem) { m_unitSystem = unitSystem; }
    const wxString& GetUnitSystem() const { return m_unitSystem; }

private:
    DetailData* m_detail;
    T m_value{};
    T m_defaultValue;
    TransferDetailT<T> m_binding;
    wxString m_unitSystem;
};

extern template class GUI_BASE_EXPORT TvDetailTextCtrl<double>;
extern template class GUI_BASE_EXPORT TvDetailTextCtrl<wxString>;

class GUI_BASE_EXPORT TvValidatedDoubleTextCtrl : public TvDetailTextCtrl<double>
{
public:
    explicit TvValidatedDoubleTextCtrl(const ValidatedDoubleTextCtrlConfig& config);

    /// Converts the limits of the detail, or else those of the configuration, into `unitSystem`.
    void UpdateValidator(const wxString& unitSystem);

protected:
    /// For limits and value, or "iso" when the field does not follow it.
    void SetUnitSystem(const wxString& unitSystem) override;

private:
    double m_minValue;
    double m_maxValue;
    bool m_followUnitSystem;
};

class GUI_BASE_EXPORT TvValidatedTextCtrl : public TvDetailTextCtrl<wxString>
{
public:
    explicit TvValidatedTextCtrl(const ValidatedTextCtrlConfig& config);

    const wxString& GetUnit() const { return GetUnitSystem(); }
};
