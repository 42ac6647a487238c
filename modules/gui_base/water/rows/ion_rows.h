// SPDX-License-Identifier: MIT
#pragma once

/// The rows of a water analysis, one line each: the key says where the values live, the rest how they are
/// shown.

#include <wx/translation.h>

#include <array>

namespace wateranalysis {

enum class IonRowKind
{
    Ordinary,    ///< any concentration unit
    Named,       ///< the user gives the ion's name
    Equivalent,  ///< an equivalent amount only: the short list of units
};

struct IonRow
{
    const char* key;    ///< below "liquid/"
    const char* label;  ///< source text
    IonRowKind kind = IonRowKind::Ordinary;
};

inline constexpr std::array kCationRows{
    IonRow{"na", wxTRANSLATE("Sodium:")},
    IonRow{"ca", wxTRANSLATE("Calcium:")},
    IonRow{"mg", wxTRANSLATE("Magnesium:")},
    IonRow{"k", wxTRANSLATE("Potassium:")},
    IonRow{"sr", wxTRANSLATE("Strontium:")},
    IonRow{"ba", wxTRANSLATE("Barium:")},
    IonRow{"nh4", wxTRANSLATE("NH4:")},
    IonRow{"fe2", wxTRANSLATE("Fe(II):")},
    IonRow{"mn", wxTRANSLATE("Manganese:")},
    IonRow{"al", wxTRANSLATE("Aluminium:")},
    IonRow{"x1", wxTRANSLATE("Cation 1"), IonRowKind::Named},
    IonRow{"x2", wxTRANSLATE("Cation 2"), IonRowKind::Named},
    IonRow{"h.plus", wxTRANSLATE("H+"), IonRowKind::Equivalent},
};

inline constexpr std::array kAnionRows{
    IonRow{"cl", wxTRANSLATE("Chloride:")},
    IonRow{"so4", wxTRANSLATE("SO4:")},
    IonRow{"co3", wxTRANSLATE("CO3:")},
    IonRow{"hco3", wxTRANSLATE("HCO3:")},
    IonRow{"no3", wxTRANSLATE("NO3:")},
    IonRow{"f", wxTRANSLATE("Fluoride:")},
    IonRow{"sio2", wxTRANSLATE("SiO2:")},
    IonRow{"b", wxTRANSLATE("Boron:")},
    IonRow{"po4", wxTRANSLATE("PO4:")},
    IonRow{"br", wxTRANSLATE("Bromide:")},
    IonRow{"as3", wxTRANSLATE("As(III):")},
    IonRow{"as5", wxTRANSLATE("As(V):")},
    IonRow{"y1", wxTRANSLATE("Anion 1"), IonRowKind::Named},
    IonRow{"y2", wxTRANSLATE("Anion 2"), IonRowKind::Named},
    IonRow{"oh.minus", wxTRANSLATE("OH-"), IonRowKind::Equivalent},
};

/// A line below a grid with one value in meq/l.
struct TotalRow
{
    const char* key;
    const char* label;
};

inline constexpr std::array kCationTotals{
    TotalRow{"liquid/sum.c.meql", wxTRANSLATE("Sum C")},
    TotalRow{"liquid/na.plus.meql", wxTRANSLATE("+ Na:")},
};

inline constexpr std::array kAnionTotals{
    TotalRow{"liquid/sum.a.meql", wxTRANSLATE("Sum A")},
    TotalRow{"liquid/cl.plus.meql", wxTRANSLATE("+ Cl:")},
};

}  // namespace wateranalysis
