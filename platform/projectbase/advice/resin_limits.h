// SPDX-License-Identifier: MIT
#pragma once

/// What water may hold ahead of ion exchange resins: limits of practice for iron, manganese, chlorine,
/// turbidity, oil and organic matter, by the kind of plant. They are settings of the user, "limit.ID.note"
/// and "limit.ID.warn"; an empty one is none.

#include "projectbase/projectbase_export.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

class LiquidData;
class Project;

namespace advice {

enum class Column
{
    Softening,         ///< also where nothing is known of the plant: the mildest of all
    Demineralisation,  ///< and dealkalisation
    Polishing          ///< mixed beds, condensate polishers, and plants with a packed bed
};
/// What is known of a plant that a water feeds.
struct PlantKind
{
    Column column = Column::Softening;
    bool hasGelCation = false;  ///< strong-acid resin of the gel type
    bool hasWeak = false;       ///< weak-base or weak-acid resin
    bool hasGelAnion = false;   ///< styrenic strong-base resin of the gel type
    bool hasAnion = false;      ///< any anion resin
};
/// Of the project's plant if that water feeds it, else nothing special.
PROJECTBASE_EXPORT PlantKind KindOfPlant(const Project& project, const LiquidData& water);

struct LimitRow
{
    const char* id;        ///< "fe.soft"
    const char* label;     ///< what is limited; source text
    const char* ahead;     ///< of what; source text
    const char* key;       ///< detail of the water that a value is typed in
    const char* sentence;  ///< source text with value and limit
    const char* reason;    ///< source text
    const char* source;    ///< source text
    bool (*isFor)(const PlantKind& plant);
    double (*value)(const LiquidData& water);  ///< not a number where nothing was typed
    bool isAtLimit = false;                    ///< the figure itself is too much already
    /// Of the note, where `sentence` and `source` are those of the warning alone; source texts.
    const char* noteSentence = nullptr;
    const char* noteSource = nullptr;
};

/// All rows; of one quantity the first that is for a plant counts.
PROJECTBASE_EXPORT std::span<const LimitRow> LimitRows();

/// The detail of a water in which the value of a row is typed.
PROJECTBASE_EXPORT std::string KeyOf(const LimitRow& row, const LiquidData& water);

/// A metal, and where its amount is typed.
struct Metal
{
    const char* label;  ///< source text
    std::string key;
    std::string_view rows;  ///< beginning of the identifiers of its own limits, "fe."
};
/// Iron where no manganese was found, manganese where no iron was; nothing where there are both or neither.
/// The limits of their sum then concern that metal alone.
PROJECTBASE_EXPORT std::optional<Metal> LoneMetal(const LiquidData& water);

/// The limits of a row as the user has them; not a number where there is none.
struct Limits
{
    double note;
    double warn;
};
PROJECTBASE_EXPORT Limits LimitsOf(const LimitRow& row);
/// The limits that the program comes with.
PROJECTBASE_EXPORT Limits UsualLimitsOf(const LimitRow& row);
PROJECTBASE_EXPORT bool IsSameLimit(double limit, double other);
/// Whether a note begins no higher than the warning; where one of them is missing, it does.
PROJECTBASE_EXPORT bool IsInOrder(const Limits& limits);
/// Names of the settings.
PROJECTBASE_EXPORT std::string NoteSetting(const LimitRow& row);
PROJECTBASE_EXPORT std::string WarnSetting(const LimitRow& row);

}  // namespace advice
