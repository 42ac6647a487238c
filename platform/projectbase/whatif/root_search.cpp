// SPDX-License-Identifier: MIT
#include "projectbase/whatif/root_search.h"

#include <boost/math/tools/minima.hpp>
#include <boost/math/tools/toms748_solve.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace whatif {

namespace {

/// First step from the start, as a share of it.
constexpr double kFirstStep = 0.01;
/// The same where the start is zero, as a share of the range.
constexpr double kFirstStepFromZero = 1e-6;
/// How often a step is halved on the way to where the function is not defined.
constexpr int kMostHalvings = 50;
constexpr int kBits = 50;
constexpr std::uintmax_t kMostNarrowing = 120;
constexpr std::uintmax_t kMostTouching = 60;

struct OutOfCalls
{};
struct NotDefined
{};

/// One direction from the start.
struct Side
{
    double direction;
    double last;
    double step;
    bool isDefined;            ///< the function is, at the last argument
    double undefined = 0.0;    ///< while narrowing, where it is not
    bool isNarrowing = false;  ///< towards the place from which on the function is not defined
    int halvings = 0;
    bool hasEnded = false;
};

class Search
{
public:
    Search(const std::function<double(double)>& function, const SearchRange& range, double tolerance,
           int most)
        : m_function(function), m_range(range), m_tolerance(tolerance), m_most(most)
    {}

    void Run();
    const SearchResult& GetResult() const { return m_result; }

private:
    using Samples = std::map<double, double>;
    struct Bracket
    {
        double low;
        double high;
    };

    double Sample(double argument);
    double SampleDefined(double argument);
    double Admitted(double argument) const;
    bool IsDone() const { return m_result.isBracketed && m_result.remainder <= m_tolerance; }
    bool IsFlat() const;
    bool Expand();
    void StepOut(Side& side);
    void Leap(Side& side);
    bool Solve();
    std::optional<Bracket> NearestBracket() const;
    void Narrow(Bracket bracket);
    void Bisect(Bracket bracket);
    bool Touch();
    bool Refine();
    std::vector<double> PlacesBetween() const;

    const std::function<double(double)>& m_function;
    SearchRange m_range;
    double m_tolerance;
    int m_most;
    Samples m_samples;
    std::set<double> m_jumps;  ///< lower ends of brackets that cannot be narrowed down any more
    SearchResult m_result;
};

double Search::Admitted(double argument) const
{
    argument = std::clamp(argument, m_range.low, m_range.high);
    return m_range.whole ? std::clamp(std::round(argument), std::ceil(m_range.low), std::floor(m_range.high))
                         : argument;
}

double Search::Sample(double argument)
{
    argument = Admitted(argument);
    if (const auto known = m_samples.find(argument); known != m_samples.end())
        return known->second;
    if (m_result.calls >= m_most)
        throw OutOfCalls{};
    ++m_result.calls;
    const double value = m_function(argument);
    m_samples.emplace(argument, value);
    // What is not a number is not less than anything.
    if (std::abs(value) < m_result.remainder) {
        m_result.remainder = std::abs(value);
        m_result.argument = argument;
    }
    m_result.isBracketed = m_result.isBracketed || value == 0.0;
    return value;
}

double Search::SampleDefined(double argument)
{
    const double value = Sample(argument);
    if (!std::isfinite(value))
        throw NotDefined{};
    return value;
}

void Search::Run()
{
    Sample(m_range.start);
    if (m_result.remainder == 0.0 || Expand() || IsFlat())
        return;
    if (!m_result.isBracketed && Touch())
        return;
    while (Refine()) {
        if (Solve())
            return;
    }
}

/// Whether it says nothing to look further: no value, or one and the same everywhere.
bool Search::IsFlat() const
{
    std::optional<double> first;
    for (const auto& [argument, value] : m_samples) {
        if (!std::isfinite(value))
            continue;
        if (first && *first != value)
            return false;
        first = value;
    }
    return true;
}

bool Search::Expand()
{
    const double start = Admitted(m_range.start);
    double step =
        start != 0.0 ? std::abs(start) * kFirstStep : (m_range.high - m_range.low) * kFirstStepFromZero;
    if (m_range.whole)
        step = std::max(1.0, std::round(step));
    const bool isDefined = std::isfinite(m_samples.at(start));
    std::array sides{Side{1.0, start, step, isDefined}, Side{-1.0, start, step, isDefined}};
    while (!(sides[0].hasEnded && sides[1].hasEnded)) {
        for (Side& side : sides) {
            if (side.hasEnded)
                continue;
            StepOut(side);
            if (Solve())
                return true;
        }
    }
    return false;
}

void Search::StepOut(Side& side)
{
    const double argument = Admitted(side.last + side.direction * side.step);
    const bool isAtLimit = argument == Admitted(side.direction > 0.0 ? m_range.high : m_range.low);
    if (argument == side.last) {
        // At the limit, or at the last whole number before the function ends.
        side.hasEnded = !side.isNarrowing;
        if (side.isNarrowing)
            Leap(side);
        return;
    }
    const bool isDefined = std::isfinite(Sample(argument));
    if (!isDefined && side.isDefined) {
        side.isNarrowing = true;
        side.undefined = argument;
    } else {
        side.last = argument;
        side.isDefined = isDefined;
        side.hasEnded = isAtLimit;
    }
    side.step *= side.isNarrowing ? 0.5 : 2.0;
    if (side.isNarrowing && ++side.halvings > kMostHalvings)
        Leap(side);
}

/// Goes on beyond the place where the function is not defined.
void Search::Leap(Side& side)
{
    side.last = side.undefined;
    side.isDefined = false;
    side.isNarrowing = false;
    side.halvings = 0;
    side.step =
        std::max(std::abs(side.undefined - Admitted(m_range.start)), std::abs(side.undefined) * kFirstStep);
}

/// Works on the brackets that are known, the nearest first; true when a zero was found.
bool Search::Solve()
{
    while (const auto bracket = NearestBracket()) {
        m_result.isBracketed = true;
        if (m_range.whole)
            Bisect(*bracket);
        else
            Narrow(*bracket);
        if (IsDone())
            return true;
    }
    return false;
}

std::optional<Search::Bracket> Search::NearestBracket() const
{
    std::optional<Bracket> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (auto low = m_samples.begin(), high = std::next(low); high != m_samples.end(); low = high++) {
        const bool isBracket = std::isfinite(low->second) && std::isfinite(high->second) &&
                               std::signbit(low->second) != std::signbit(high->second);
        const double distance =
            std::min(std::abs(low->first - m_range.start), std::abs(high->first - m_range.start));
        if (!isBracket || distance >= least || m_jumps.contains(low->first))
            continue;
        least = distance;
        nearest = Bracket{low->first, high->first};
    }
    return nearest;
}

void Search::Narrow(Bracket bracket)
{
    try {
        std::uintmax_t steps = kMostNarrowing;
        const auto [low, high] = boost::math::tools::toms748_solve(
            [this](double argument) { return SampleDefined(argument); }, bracket.low, bracket.high,
            m_samples.at(bracket.low), m_samples.at(bracket.high),
            boost::math::tools::eps_tolerance<double>(kBits), steps);
        m_jumps.insert(low);
    } catch (const NotDefined&) {
        // The point stands in the middle of the bracket now, which is none any more.
    }
}

void Search::Bisect(Bracket bracket)
{
    const bool isNegative = std::signbit(m_samples.at(bracket.low));
    while (bracket.high - bracket.low > 1.0) {
        const double middle = Admitted(bracket.low + std::floor((bracket.high - bracket.low) / 2.0));
        const double value = Sample(middle);
        if (!std::isfinite(value) || value == 0.0)
            return;
        (std::signbit(value) == isNegative ? bracket.low : bracket.high) = middle;
    }
    m_jumps.insert(bracket.low);
}

/// A function that does not change its sign may touch zero, about where it came nearest.
bool Search::Touch()
{
    const auto best = m_samples.find(m_result.argument);
    if (best == m_samples.end() || m_range.whole)
        return false;
    const double low = best == m_samples.begin() ? best->first : std::prev(best)->first;
    const double high = std::next(best) == m_samples.end() ? best->first : std::next(best)->first;
    try {
        std::uintmax_t steps = kMostTouching;
        boost::math::tools::brent_find_minima(
            [this](double argument) { return std::abs(SampleDefined(argument)); }, low, high, kBits / 2,
            steps);
    } catch (const NotDefined&) {
        // What lies on the other side is looked at later.
    }
    m_result.isBracketed = m_result.isBracketed || m_result.remainder <= m_tolerance;
    return Solve() || IsDone();
}

/// Looks halfway between all points that are known; false when there is nothing between them.
bool Search::Refine()
{
    const std::vector<double> places = PlacesBetween();
    for (const double place : places)
        Sample(place);
    return !places.empty();
}

std::vector<double> Search::PlacesBetween() const
{
    std::vector<double> places;
    for (auto low = m_samples.begin(), high = std::next(low); high != m_samples.end(); low = high++) {
        const bool isUnknown = !std::isfinite(low->second) && !std::isfinite(high->second);
        const double middle = Admitted(low->first + (high->first - low->first) / 2.0);
        const double least = 1e-9 * std::max(std::abs(low->first), std::abs(high->first));
        const bool isNarrow = high->first - low->first <= least;
        if (!isUnknown && !isNarrow && middle > low->first && middle < high->first)
            places.push_back(middle);
    }
    return places;
}

}  // namespace

SearchResult FindRoot(const std::function<double(double)>& function, const SearchRange& range,
                      double tolerance, int most)
{
    Search search(function, range, tolerance, most);
    try {
        search.Run();
    } catch (const OutOfCalls&) {
        // What was found until then counts.
    }
    return search.GetResult();
}

}  // namespace whatif
