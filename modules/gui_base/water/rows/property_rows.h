// SPDX-License-Identifier: MIT
#pragma once

/// The properties of a water beside its ions, one line each.

#include "core/number_text.h"

#include <wx/translation.h>

#include <array>

namespace wateranalysis {

struct PropertyRow
{
    const char* key;
    const char* label;  ///< source text
    const char* unit;   ///< ISO unit text, empty for a plain number
    int precision = 4;  ///< significant digits
};

/// Inputs that most analyses state.
inline constexpr std::array kMainProperties{
    PropertyRow{"liquid/ph", wxTRANSLATE("pH"), ""},
};

/// Suspended and organic matter, oxidants and gases: folded away until they are wanted.
inline constexpr std::array kFurtherProperties{
    PropertyRow{"liquid/turbidity", wxTRANSLATE("Turbidity"), "NTU"},
    PropertyRow{"liquid/sdi", wxTRANSLATE("SDI"), ""},
    PropertyRow{"liquid/tss", wxTRANSLATE("TSS"), "mg/l"},
    PropertyRow{"liquid/toc", wxTRANSLATE("TOC"), "mg/l"},
    PropertyRow{"liquid/fe.total", wxTRANSLATE("Fe (total)"), "mg/l"},
    PropertyRow{"liquid/cl.free", wxTRANSLATE("Free chlorine"), "mg/l"},
    PropertyRow{"liquid/h2s", wxTRANSLATE("H2S"), "mg/l"},
};

/// What follows from the analysis; read-only.
struct SummaryRow
{
    const char* key;
    const char* label;
    const char* labelSuffix;  ///< not translated
    const char* unit;
    bool convertUnit;  ///< whether the unit follows the unit system
    int precision = 5;
};

inline constexpr std::array kSummaryRows{
    SummaryRow{"liquid/tds", wxTRANSLATE("TDS"), ":", "mg/l", false, 6},
    SummaryRow{"liquid/cond", wxTRANSLATE("Conductivity"), ":", "uS/cm", false},
    SummaryRow{"liquid/cond25", wxTRANSLATE("Conductivity"), " @ 25 \u00b0C:", "uS/cm", false},
    SummaryRow{"liquid/p.osmotic", wxTRANSLATE("Osmotic pressure"), ":", "bar", true},
    SummaryRow{"liquid/ionic.strength", wxTRANSLATE("Ionic strength"), ":", "mol/l", false, 6},
};

}  // namespace wateranalysis
