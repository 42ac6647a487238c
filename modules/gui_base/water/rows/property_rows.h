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
    PropertyRow{"liquid/oil", wxTRANSLATE("Oil"), "mg/l"},
    PropertyRow{"liquid/toc", wxTRANSLATE("TOC"), "mg/l"},
    PropertyRow{"liquid/fe.total", wxTRANSLATE("Fe (total)"), "mg/l"},
    PropertyRow{"liquid/cl.free", wxTRANSLATE("Free chlorine"), "mg/l"},
    PropertyRow{"liquid/h2s", wxTRANSLATE("H2S"), "mg/l"},
};

/// Alkalinities as laboratories report them, in place of bicarbonate and carbonate.
struct AlkalinityRow
{
    const char* key;
    const char* unitKey;
    const char* label;  ///< source text
};

inline constexpr std::array kAlkalinityRows{
    AlkalinityRow{"liquid/alkalinity.m.orig", "liquid/alkalinity.m.unit", wxTRANSLATE("m-value")},
    AlkalinityRow{"liquid/alkalinity.p.orig", "liquid/alkalinity.p.unit", wxTRANSLATE("p-value")},
};

/// What laboratories measure although it follows from the ions.
struct MeasuredRow
{
    const char* name;   ///< of its details, behind "liquid/" and before ".orig" and ".unit"
    const char* label;  ///< source text
};

inline constexpr std::array kMeasuredRows{
    MeasuredRow{"hardness.measured", wxTRANSLATE("Measured hardness")},
    MeasuredRow{"cond25.measured", wxTRANSLATE("Measured conductivity")},
};

/// How far the sums of cations and anions differ; read-only, %.
inline constexpr PropertyRow kBalanceError{"liquid/balance.error", wxTRANSLATE("Balance error"), "%"};

/// Equivalents that follow from the analysis, meq/l; read-only.
struct EquivalentRow
{
    const char* key;
    const char* label;  ///< source text
    const char* unit;
    bool isHardness = false;  ///< of divalent ions
};

inline constexpr std::array kEquivalentRows{
    EquivalentRow{"liquid/hardness.total", wxTRANSLATE("Total hardness"), "meq/l", true},
    EquivalentRow{"liquid/hardness.carbonate", wxTRANSLATE("Carbonate hardness"), "meq/l", true},
    EquivalentRow{"liquid/alkalinity.m", wxTRANSLATE("Alkalinity (m-value)"), "mmol/l"},
    EquivalentRow{"liquid/alkalinity.p", wxTRANSLATE("Alkalinity (p-value)"), "mmol/l"},
    EquivalentRow{"liquid/ema", wxTRANSLATE("Equivalent mineral acidity"), "meq/l"},
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
    SummaryRow{"liquid/residue", wxTRANSLATE("Dry residue"), " @ 180 \u00b0C:", "mg/l", false, 6},
    SummaryRow{"liquid/cond", wxTRANSLATE("Conductivity"), ":", "uS/cm", false},
    SummaryRow{"liquid/cond25", wxTRANSLATE("Conductivity"), " @ 25 \u00b0C:", "uS/cm", false},
    SummaryRow{"liquid/p.osmotic", wxTRANSLATE("Osmotic pressure"), ":", "bar", true},
    SummaryRow{"liquid/ionic.strength", wxTRANSLATE("Ionic strength"), ":", "mol/l", false, 6},
};

}  // namespace wateranalysis
