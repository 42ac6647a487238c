// SPDX-License-Identifier: MIT
#pragma once

/// What a bed lets through. It depends on more than a design knows, so it is told as a range and never enters
/// a load.

#include "projectbase/design/stream.h"
#include "projectbase/projectbase_export.h"

#include <vector>

namespace design {

struct Leakage
{
    const char* name = "";  ///< source text
    double low = 0.0;
    double high = 0.0;
    const char* unit = "";
};

/// Typical leakages of an exchanger with what flows to it; the sodium that it lets through is kept for those
/// that follow. Kunin 1958, Ion Exchange Resins, and makers' manuals: sodium 0.5 to 5 % of what comes with
/// co-current regeneration, 10 to 50 µg/l with counter-current; silica 0.02 to 0.1 mg/l with co-current;
/// behind a strong base 10.8 µS/cm for each mg/l of sodium (as NaOH at 25 °C); mixed beds 0.06 to 0.1 µS/cm
/// and less than 20 µg/l of silica. Nothing is told of what no figure is known for.
class PROJECTBASE_EXPORT LeakageOfLine
{
public:
    /// `inlet` is the stream before the exchanger.
    std::vector<Leakage> Pass(ExchangerKind kind, bool isCounterCurrent, const Stream& inlet);

private:
    bool m_isKnown = false;
    double m_sodiumLow = 0.0;  ///< mg/l
    double m_sodiumHigh = 0.0;
};

}  // namespace design
