// SPDX-License-Identifier: MIT
#pragma once

/// Diagrams of waters as windows and reports show them alike: ion bars, Stiff, Piper and Schoeller, in meq/l,
/// in the language and with the numbers of their context.

#include "chartdir/base_chart.h"
#include "chartdir/palette.h"
#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"
#include "projectbase/water/diagrams/water_ions.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class Project;

namespace water_diagram {

enum class Kind
{
    Bars,
    Stiff,
    Piper,
    Schoeller
};
inline constexpr std::array kKinds{Kind::Bars, Kind::Stiff, Kind::Piper, Kind::Schoeller};

struct Options
{
    bool minorAnionsInPiper = false;  ///< nitrate, fluoride and bromide count as chloride
    bool sizeByDissolved = false;     ///< the area of Piper's markers follows what is dissolved
    bool fourthRowInStiff = false;    ///< iron and nitrate
    bool nitrateInSchoeller = false;
    bool operator==(const Options&) const = default;
};
/// One of them as the user chooses it.
struct OptionRow
{
    const char* setting;  ///< its name among the user's settings
    const char* label;    ///< source text
    bool Options::*option;
};
inline constexpr std::size_t kOptionCount = 4;
GUI_BASE_REPORT_EXPORT const std::array<OptionRow, kOptionCount>& OptionRows();
/// What the user's settings say: pages, panes and reports draw by it.
GUI_BASE_REPORT_EXPORT Options ChosenOptions();

struct Water
{
    std::string name;  ///< as it is shown
    diagrams::WaterIons ions;
    std::size_t place = 0;  ///< settles its colour and marker
    bool operator==(const Water&) const = default;
};

struct Contents
{
    Kind kind = Kind::Bars;
    std::vector<Water> waters{};
    Options options{};
    bool hasTitle = true;
};

/// "Piper diagram" and the like, as a source text.
GUI_BASE_REPORT_EXPORT const char* NameOf(Kind kind);

/// All waters of a project, in their order.
GUI_BASE_REPORT_EXPORT std::vector<Water> WatersOf(const Project& project, const ReportContext& context);

/// The diagram. A water without the ions that it takes has no place in it.
GUI_BASE_REPORT_EXPORT std::shared_ptr<chartdir::BaseChart> Make(const Contents& contents,
                                                                 const ReportContext& context);

/// A part of a bar, for pictures that are too small for any text.
struct BarPiece
{
    chartdir::Colour colour;
    double meq = 0.0;
};
struct BarPieces
{
    std::vector<BarPiece> cations;
    std::vector<BarPiece> anions;
};
/// The bars of a water in the colours of its diagram.
GUI_BASE_REPORT_EXPORT BarPieces PiecesOf(const diagrams::WaterIons& ions);

}  // namespace water_diagram
