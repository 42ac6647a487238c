// SPDX-License-Identifier: MIT
#pragma once

/// The rows of a water analysis, as the ion table has them: the key says where the values live, the rest how
/// they are shown.

#include "core/ion_table.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cstddef>

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

/// The rows of these ions.
template <std::size_t Count>
consteval auto RowsOf(const std::array<const ions::Ion*, Count>& selected)
{
    using ions::IonKind;
    std::array<IonRow, Count> rows{};
    std::ranges::transform(selected, rows.begin(), [](const ions::Ion* ion) {
        const bool isEquivalent =
            ion->kind == IonKind::EquivalentCation || ion->kind == IonKind::EquivalentAnion;
        return IonRow{ion->key.data(), ion->label,
                      ions::IsNamed(*ion) ? IonRowKind::Named
                      : isEquivalent      ? IonRowKind::Equivalent
                                          : IonRowKind::Ordinary};
    });
    return rows;
}

inline constexpr auto kCationRows = RowsOf(ions::kCations);
inline constexpr auto kAnionRows = RowsOf(ions::kAnions);

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
