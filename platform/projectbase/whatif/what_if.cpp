// SPDX-License-Identifier: MIT
#include "projectbase/whatif/what_if.h"

#include "projectbase/project/project_edit.h"
#include "projectbase/whatif/root_search.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kNothing = std::numeric_limits<double>::infinity();
/// Beyond what any value of a plant can be, where the catalogue gives no limit.
constexpr double kMostAmount = 1e12;

bool IsNumber(const DetailData& detail)
{
    return detail.GetType() == DetailType::Double || detail.GetType() == DetailType::Long;
}

/// NaN where it is not known.
double NumberOf(const DetailData& detail)
{
    return detail.GetType() == DetailType::Long ? static_cast<double>(detail.GetLongValue())
                                                : detail.GetDoubleValue();
}

void Write(DetailData& detail, double value)
{
    if (detail.GetType() == DetailType::Long)
        detail.SetValue(std::lround(value));
    else
        detail.SetValue(value);
}

double Low(const DetailData& detail)
{
    return detail.HasMinValue() ? detail.GetMinValue() : -kMostAmount;
}

double High(const DetailData& detail)
{
    return detail.HasMaxValue() ? detail.GetMaxValue() : kMostAmount;
}

bool MayBe(const DetailData& detail, double value)
{
    const bool isWhole = detail.GetType() != DetailType::Long || value == std::round(value);
    return std::isfinite(value) && isWhole &&
           (detail.IsDerived() || (value >= Low(detail) && value <= High(detail)));
}

/// With its sign; NaN where nothing was reached.
double Deviation(double reached, double entered)
{
    return entered == 0.0 ? reached : (reached - entered) / std::abs(entered);
}

/// What to begin with: the present value, or a middling one.
double StartOf(const DetailData& detail)
{
    const double low = Low(detail);
    const double high = High(detail);
    const double present = NumberOf(detail);
    if (std::isfinite(present))
        return std::clamp(present, low, high);
    constexpr double kLeastShare = 1e-6;
    return low >= 0.0 ? std::sqrt(std::max(low, high * kLeastShare) * high) : std::clamp(1.0, low, high);
}

}  // namespace

WhatIf::Answer WhatIf::Try(const Question& question, const DetailAddress& typed, double value)
{
    ++m_runs;
    const auto copy = m_project.Clone();
    Write(*copy->FindDetail(typed), value);
    return {NumberOf(*copy->FindDetail(question.toAdjust)), NumberOf(*copy->FindDetail(question.fixed))};
}

double WhatIf::Calculate(DetailData* toAdjust, DetailData* fixed, double entered, int iterations, bool& ok)
{
    ok = false;
    m_runs = 0;
    if (toAdjust == nullptr || fixed == nullptr || toAdjust == fixed || !IsNumber(*toAdjust) ||
        !IsNumber(*fixed) || !MayBe(*fixed, entered) || iterations < 1)
        return kNothing;
    const auto addressToAdjust = m_project.AddressOf(*toAdjust);
    const auto addressFixed = m_project.AddressOf(*fixed);
    if (!addressToAdjust || !addressFixed)
        return kNothing;
    const Question question{*addressToAdjust, *addressFixed, entered};
    double deviation = kNothing;
    if (!toAdjust->IsDerived())
        deviation = Adjust(question, *toAdjust, std::min(iterations, kMostRuns), ok);
    // Of values that belong together the one that was typed longest ago follows: it cannot be adjusted so
    // that another one follows from it, but it answers to that other one.
    if (!ok && !fixed->IsDerived() && m_runs < std::min(iterations, kMostRuns))
        deviation = Enter(question, *toAdjust, *fixed, ok);
    return deviation;
}

double WhatIf::Adjust(const Question& question, DetailData& toAdjust, int iterations, bool& ok)
{
    const whatif::SearchRange range{.start = StartOf(toAdjust),
                                    .low = Low(toAdjust),
                                    .high = High(toAdjust),
                                    .whole = toAdjust.GetType() == DetailType::Long};
    const whatif::SearchResult found = whatif::FindRoot(
        [&](double value) {
            return Deviation(Try(question, question.toAdjust, value).fixed, question.entered);
        },
        range, kTolerance, iterations);
    ok = found.isBracketed;
    if (!ok)
        return kNothing;
    if (found.remainder <= kTolerance) {
        const ProjectEdit edit(m_project, wxTRANSLATE("what-if analysis"));
        Write(toAdjust, found.argument);
    }
    return found.remainder;
}

double WhatIf::Enter(const Question& question, DetailData& toAdjust, DetailData& fixed, bool& ok)
{
    const Answer answer = Try(question, question.fixed, question.entered);
    const double deviation = std::abs(Deviation(answer.fixed, question.entered));
    const bool isAnswered = toAdjust.IsDerived() || answer.toAdjust != NumberOf(toAdjust);
    if (!isAnswered || !MayBe(toAdjust, answer.toAdjust) || !std::isfinite(deviation))
        return kNothing;
    ok = true;
    if (deviation <= kTolerance) {
        const ProjectEdit edit(m_project, wxTRANSLATE("what-if analysis"));
        Write(fixed, question.entered);
    }
    return deviation;
}
