// SPDX-License-Identifier: MIT
#pragma once

/// The properties of a water beside its ions, one line each.

#include "gui_base/core/number_text.h"

#include <wx/translation.h>

#include <array>

namespace wateranalysis {

struct Limits
{
    double min = 0.0;
    double max = 0.0;
};

struct PropertyRow
{
    const char* key;
    const char* label;  ///< source text
    const char* unit;   ///< ISO unit text, empty for a plain number
    Limits limits;      ///< in the ISO unit; equal limits mean that none is checked
    int precision = 4;  ///< significant digits
};

/// Inputs that most analyses state.
inline constexpr std::array kMainProperties{
    PropertyRow{"liquid/ph", wxTRANSLATE("pH"), "", {0.0, 14.0}},
};

/// Suspended and organic matter, oxidants and gases: folded away until they are wanted.
inline constexpr std::array kFurtherProperties{
    PropertyRow{"liquid/turbidity", wxTRANSLATE("Turbidity"), "NTU", {0.0, 10000.0}},
    PropertyRow{"liquid/sdi", wxTRANSLATE("SDI"), "", {0.0, 20.0}},
    PropertyRow{"liquid/tss", wxTRANSLATE("TSS"), "mg/l", {0.0, 100000.0}},
    PropertyRow{"liquid/toc", wxTRANSLATE("TOC"), "mg/l", {0.0, 10000.0}},
    PropertyRow{"liquid/fe.total", wxTRANSLATE("Fe (total)"), "mg/l", {0.0, 1000.0}},
    PropertyRow{"liquid/cl.free", wxTRANSLATE("Free chlorine"), "mg/l", {0.0, 1000.0}},
    PropertyRow{"liquid/h2s", wxTRANSLATE("H2S"), "mg/l", {0.0, 1000.0}},
};

/// What follows from the analysis; read-only.
struct SummaryRow
{
    const char* key;
    const char* label;
    const char* labelSuffix;  ///< not translated
    const char* unit;
    bool convertUnit;  ///< whether the unit follows the unit system
};

inline constexpr std::array kSummaryRows{
    SummaryRow{"liquid/tds", wxTRANSLATE("TDS"), ":", "mg/l", false},
    SummaryRow{"liquid/cond", wxTRANSLATE("Conductivity"), ":", "uS/cm", false},
    SummaryRow{"liquid/cond25", wxTRANSLATE("Conductivity"), " @ 25 \u00b0C:", "uS/cm", false},
    SummaryRow{"liquid/p.osmotic", wxTRANSLATE("Osmotic pressure"), ":", "bar", true},
    SummaryRow{"liquid/ionic.strength", wxTRANSLATE("Ionic strength"), ":", "mol/l", false},
};

}  // namespace wateranalysis
