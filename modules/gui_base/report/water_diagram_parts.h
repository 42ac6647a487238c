// SPDX-License-Identifier: MIT
#pragma once

/// What the diagrams of waters have in common, and how each is made. Internal to the library.

#include "chartdir/palette.h"
#include "gui_base/report/water_diagram.h"

#include <string>

namespace water_diagram {

inline constexpr int kWidth = 720;
inline constexpr int kHeight = 480;

inline constexpr const char* kCalcium = "Ca\u00b2\u207a";
inline constexpr const char* kMagnesium = "Mg\u00b2\u207a";
inline constexpr const char* kSodium = "Na\u207a";
inline constexpr const char* kPotassium = "K\u207a";
inline constexpr const char* kAmmonium = "NH\u2084\u207a";
inline constexpr const char* kIron = "Fe\u00b2\u207a";
inline constexpr const char* kManganese = "Mn\u00b2\u207a";
inline constexpr const char* kAlkalis = "Na\u207a+K\u207a";
inline constexpr const char* kBicarbonate = "HCO\u2083\u207b+CO\u2083\u00b2\u207b";
inline constexpr const char* kSulfate = "SO\u2084\u00b2\u207b";
inline constexpr const char* kChloride = "Cl\u207b";
inline constexpr const char* kNitrate = "NO\u2083\u207b";

/// "0.22 meq/l".
std::string AmountText(double meq, const ReportContext& context);
/// A share (0 to 1) as "57.1 %".
std::string ShareText(double share, const ReportContext& context);
/// "Well: HCO3-", "5.556 meq/l", "57.1 % of the anions": what a place of a diagram tells, a line each.
std::string Tip(const Water& water, const std::string& ion, double meq, bool isCation,
                const ReportContext& context);

std::shared_ptr<chartdir::BaseChart> MakeBars(const Contents& contents, const ReportContext& context);
std::shared_ptr<chartdir::BaseChart> MakeStiff(const Contents& contents, const ReportContext& context);
std::shared_ptr<chartdir::BaseChart> MakePiper(const Contents& contents, const ReportContext& context);
std::shared_ptr<chartdir::BaseChart> MakeSchoeller(const Contents& contents, const ReportContext& context);

}  // namespace water_diagram
