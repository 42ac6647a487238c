// SPDX-License-Identifier: MIT
#pragma once

#include "tncommon/tncommon_export.h"

#include <wx/string.h>

/// The value that a graphic shows in place of one of its texts.
class TNCOMMON_EXPORT TextReplaceMapping
{
public:
    TextReplaceMapping() = default;
    TextReplaceMapping(const TextReplaceMapping&) = delete;
    TextReplaceMapping& operator=(const TextReplaceMapping&) = delete;
    virtual ~TextReplaceMapping();

    /// Identifier of the text that is replaced.
    virtual wxString GetId() const = 0;
    /// The bound value in that unit system as it is shown, with its unit where the mapping shows one.
    virtual wxString GetText(const wxString& unitsystem) const = 0;
};
