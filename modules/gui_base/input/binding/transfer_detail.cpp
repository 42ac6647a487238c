// SPDX-License-Identifier: MIT
#include "gui_base/input/binding/transfer_detail.h"

#include "gui_base/input/binding/transfer_sequence.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "projectbase/costs/currency.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/datectrl.h>

#include <cmath>
#include <stdexcept>
#include <type_traits>

namespace {

/// Differences up to this are what converting a value to the display and back leaves.
constexpr double kTolerance = 1e-8;

std::string EffectiveUnitSystem(int flags, const wxString& unitSystem)
{
    return (flags & TransferInIsoUnits) != 0 ? "iso" : unitSystem.utf8_string();
}

template <typename T>
T Read(const DetailData& detail)
{
    if constexpr (std::is_same_v<T, double>)
        return detail.GetDoubleValue();
    else if constexpr (std::is_same_v<T, long>)
        return detail.GetLongValue();
    else if constexpr (std::is_same_v<T, bool>)
        return detail.GetBoolValue();
    else if constexpr (std::is_same_v<T, wxDateTime>)
        return detail.GetDateValue();
    else
        return detail.GetStringValue();
}

bool Differs(double a, double b)
{
    // A value that was unknown and still is has not changed.
    return std::isnan(a) != std::isnan(b) || std::fabs(a - b) > kTolerance;
}

template <typename T>
bool Differs(const T& a, const T& b)
{
    return !(a == b);
}

/// Detail to window, for both families of bindings.
template <typename T>
T Display(int flags, const DetailData& detail, const wxString& unitSystem, double currencyFactor)
{
    T value = Read<T>(detail);
    if constexpr (std::is_same_v<T, double>) {
        value = UnitSystemManager::FromISO(detail.GetUnit(), EffectiveUnitSystem(flags, unitSystem), value);
        if (costs::IsMoney(detail.GetUnit()))
            value *= currencyFactor;
    }
    return value;
}

/// Window to detail, for both families of bindings.
template <typename T>
bool Store(int flags, T value, DetailData& detail, const wxString& unitSystem, bool& changed,
           double currencyFactor)
{
    if ((flags & TransferToDetail) == 0)
        return false;
    if constexpr (std::is_same_v<T, double>) {
        // A value that nobody touched keeps every digit, whatever the displayed unit made of it.
        if (const T shown = Display<T>(flags, detail, unitSystem, currencyFactor);
            shown == value || (std::isnan(shown) && std::isnan(value))) {
            detail.changed = false;
            return false;
        }
        if (costs::IsMoney(detail.GetUnit()))
            value /= currencyFactor;
        value = UnitSystemManager::ToISO(detail.GetUnit(), EffectiveUnitSystem(flags, unitSystem), value);
    }
    detail.changed = Differs(value, Read<T>(detail));
    if ((flags & TransferCountsAsChange) != 0)
        changed = changed || detail.changed;
    detail.SetValue(value);
    return detail.changed;
}

void HandOverRangeFlag(wxWindow* window, DetailData& detail)
{
    if (window == nullptr)
        return;
    if (const auto* validator = dynamic_cast<const NumericValidator*>(window->GetValidator()))
        detail.SetRangeFlag(validator->GetRangeFlag());
}

/// Calls `visit` with a variable of the type that the detail's type name states.
template <typename Visit>
void WithTypedValue(const DetailData& detail, void* value, Visit&& visit)
{
    switch (detail.GetType()) {
        case DetailType::Double:
            visit(*static_cast<double*>(value));
            break;
        case DetailType::Long:
            visit(*static_cast<long*>(value));
            break;
        case DetailType::Bool:
            visit(*static_cast<bool*>(value));
            break;
        case DetailType::Date:
            visit(*static_cast<wxDateTime*>(value));
            break;
        case DetailType::String:
            visit(*static_cast<wxString*>(value));
            break;
    }
}

void RequireDetail(const DetailData* detail, const char* operation)
{
    if (detail == nullptr)
        throw std::runtime_error(std::string("TransferDetail::") + operation +
                                 ": TransferDetail doesn't exist");
}

constexpr const char* kToDisplay = "ConvertDetailToDisplay";
constexpr const char* kFromDisplay = "ConvertDetailFromDisplay";

}  // namespace

template <typename T>
bool TransferDetailT<T>::TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor)
{
    return Store(m_flags, *m_value, *m_detail, unitSystem, changed, currencyFactor);
}

template <typename T>
void TransferDetailT<T>::TransferToWindow(const wxString& unitSystem, double currencyFactor)
{
    *m_value = Display<T>(m_flags, *m_detail, unitSystem, currencyFactor);
}

template <typename T>
void TransferDetailT<T>::TransferRangeFlags()
{
    if constexpr (std::is_same_v<T, double> || std::is_same_v<T, long>)
        HandOverRangeFlag(m_window, *m_detail);
}

template class TransferDetailT<double>;
template class TransferDetailT<long>;
template class TransferDetailT<bool>;
template class TransferDetailT<wxDateTime>;
template class TransferDetailT<wxString>;

TransferDetail::TransferDetail(int flags, void* value, wxWindow* window, DetailData* detail)
    : m_flags(flags), m_value(value), m_window(window), m_detail(detail)
{}

TransferDetail::~TransferDetail() = default;

void TransferDetail::operator delete(TransferDetail* binding, std::destroying_delete_t)
{
    binding->~TransferDetail();
    ::operator delete(binding);
}

bool TransferDetail::TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor)
{
    RequireDetail(m_detail, kFromDisplay);
    bool result = false;
    WithTypedValue(*m_detail, m_value, [&](auto& value) {
        result = Store(m_flags, value, *m_detail, unitSystem, changed, currencyFactor);
    });
    return result;
}

void TransferDetail::TransferToWindow(const wxString& unitSystem, double currencyFactor)
{
    RequireDetail(m_detail, kToDisplay);
    WithTypedValue(*m_detail, m_value, [&](auto& value) {
        using T = std::decay_t<decltype(value)>;
        value = Display<T>(m_flags, *m_detail, unitSystem, currencyFactor);
        if constexpr (std::is_same_v<T, wxDateTime>) {
            if (auto* picker = dynamic_cast<wxDatePickerCtrl*>(m_window))
                picker->SetValue(value);
        }
    });
}

void TransferDetail::TransferRangeFlags()
{
    RequireDetail(m_detail, kFromDisplay);
    if (m_detail->GetType() == DetailType::Double || m_detail->GetType() == DetailType::Long)
        HandOverRangeFlag(m_window, *m_detail);
}

bool TransferDetail::TransferFromWindow(const List& list, const wxString& unitSystem, bool& changed,
                                        double currencyFactor)
{
    return transfer::FromWindow(list, unitSystem, changed, currencyFactor);
}

void TransferDetail::TransferToWindow(const List& list, const wxString& unitSystem, double currencyFactor)
{
    transfer::ToWindow(list, unitSystem, currencyFactor);
}

void TransferDetail::TransferRangeFlags(const List& list)
{
    transfer::RangeFlags(list);
}
