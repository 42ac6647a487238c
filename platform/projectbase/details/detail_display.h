// SPDX-License-Identifier: MIT
#pragma once

/// Conversion between a detail and what a table or grid shows of it, apart from the number format. Both
/// helpers are built with the ISO units that are shown as they are in every unit system; by default there are
/// none.

#include "projectbase/details/detail_data.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <vector>

/// What the user calls a value of the list: a row that the user names has that name, others their label.
PROJECTBASE_EXPORT std::string CalledName(const DetailList& details, const DetailData& detail);

class PROJECTBASE_EXPORT DisplayFromDetail
{
public:
    explicit DisplayFromDetail(std::vector<std::string> fixedUnits = {}) : m_fixedUnits(std::move(fixedUnits))
    {}

    /// The number in the unit of `unitSystem`; NaN where it is not known, 0 for a date.
    double GetValue(const DetailData& detail, const std::string& unitSystem) const;
    /// Six significant digits with a decimal point; whole numbers, texts, dates and bools as they are. Empty
    /// where nothing is known.
    wxString GetValueAsString(const DetailData& detail, const std::string& unitSystem) const;
    /// Unit of GetValue in its typographic form.
    wxString GetUnitLabel(const DetailData& detail, const std::string& unitSystem) const;

private:
    std::vector<std::string> m_fixedUnits;
};

class PROJECTBASE_EXPORT SetDetailFromDisplay
{
public:
    explicit SetDetailFromDisplay(std::vector<std::string> fixedUnits = {})
        : m_fixedUnits(std::move(fixedUnits))
    {}

    /// Stores a number given in the unit of `unitSystem`.
    void SetValue(DetailData& detail, double value, const std::string& unitSystem) const;
    /// Stores a text; that of a number is read with a decimal point, an empty one means not known. Returns
    /// whether the detail could hold it; otherwise it is left as it was.
    bool SetValue(DetailData& detail, const wxString& text, const std::string& unitSystem) const;

private:
    std::vector<std::string> m_fixedUnits;
};
