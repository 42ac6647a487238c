// SPDX-License-Identifier: MIT
#pragma once

/// Bindings between a variable that a control edits and one detail of the project.
///
/// A binding converts between the detail's ISO unit and the displayed unit system, scales currencies, and
/// tells whether the stored value changed. It owns nothing: variable, window and detail outlive it. Values
/// move all at once, when a panel is shown or committed, never while the user types.

#include "gui_base/gui_base_export.h"
#include "projectbase/details/detail_data.h"

#include <wx/datetime.h>
#include <wx/string.h>
#include <wx/window.h>

#include <memory>
#include <new>
#include <vector>

/// Bits of a binding's flags.
enum TransferFlag : int
{
    TransferToDetail = 1,        ///< window to detail is enabled
    TransferCountsAsChange = 2,  ///< a change counts into the caller's `changed`
    TransferInIsoUnits = 4,      ///< the control shows ISO units whatever the project displays
};

/// Root of all bindings. It has no virtual destructor: bindings hold nothing that wants cleaning up, so that
/// releasing one through this class releases its storage, which the operator below makes a defined operation.
class GUI_BASE_EXPORT TransferDetailBase
{
public:
    /// Stores the variable in the detail. Returns whether the stored value changed; with
    /// TransferCountsAsChange that is also ORed into `changed`. `currencyFactor` is how much of the displayed
    /// currency one euro is.
    virtual bool TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor) = 0;
    /// Stores the detail in the variable; showing it is the control's part.
    virtual void TransferToWindow(const wxString& unitSystem, double currencyFactor) = 0;
    /// Hands the range flag of the window's validator to a numeric detail.
    virtual void TransferRangeFlags() = 0;

    static void operator delete(TransferDetailBase* binding, std::destroying_delete_t)
    {
        ::operator delete(binding);
    }

protected:
    TransferDetailBase() = default;
    TransferDetailBase(const TransferDetailBase&) = default;
    TransferDetailBase& operator=(const TransferDetailBase&) = default;
    ~TransferDetailBase() = default;
};

/// Binding of a variable whose type is known where it is made: double, long, bool, wxDateTime or wxString.
template <typename T>
class TransferDetailT final : public TransferDetailBase
{
public:
    TransferDetailT(int flags, T* value, wxWindow* window, DetailData* detail)
        : m_flags(flags), m_value(value), m_window(window), m_detail(detail)
    {}

    bool TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor) override;
    void TransferToWindow(const wxString& unitSystem, double currencyFactor) override;
    void TransferRangeFlags() override;

    DetailData* GetDetail() const { return m_detail; }
    void SetDetail(DetailData* detail) { m_detail = detail; }

private:
    int m_flags;
    T* m_value;
    wxWindow* m_window;
    DetailData* m_detail;
};

extern template class GUI_BASE_EXPORT TransferDetailT<double>;
extern template class GUI_BASE_EXPORT TransferDetailT<long>;
extern template class GUI_BASE_EXPORT TransferDetailT<bool>;
extern template class GUI_BASE_EXPORT TransferDetailT<wxDateTime>;
extern template class GUI_BASE_EXPORT TransferDetailT<wxString>;

/// The older, untyped binding: the type name of its detail decides how the variable is read. A null detail
/// throws std::runtime_error.
class GUI_BASE_EXPORT TransferDetail : public TransferDetailBase
{
public:
    TransferDetail(int flags, void* value, wxWindow* window, DetailData* detail);
    TransferDetail(const TransferDetail& other) = default;
    TransferDetail& operator=(const TransferDetail& other) = default;

    bool TransferFromWindow(const wxString& unitSystem, bool& changed, double currencyFactor) override;
    void TransferToWindow(const wxString& unitSystem, double currencyFactor) override;
    void TransferRangeFlags() override;
    virtual ~TransferDetail();
    static void operator delete(TransferDetail* binding, std::destroying_delete_t);

    using List = std::vector<std::unique_ptr<TransferDetail>>;
    /// The operations of TransferContainer over a list of untyped bindings.
    static bool TransferFromWindow(const List& list, const wxString& unitSystem, bool& changed,
                                   double currencyFactor);
    static void TransferToWindow(const List& list, const wxString& unitSystem, double currencyFactor);
    static void TransferRangeFlags(const List& list);

    wxWindow* GetWindow() const { return m_window; }
    DetailData* GetDetail() const { return m_detail; }

private:
    int m_flags;
    void* m_value;
    wxWindow* m_window;
    DetailData* m_detail;
};
