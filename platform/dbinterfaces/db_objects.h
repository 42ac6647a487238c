// SPDX-License-Identifier: MIT
#pragma once

/// Records that the database facades hand out by value. Texts are UTF-8; identifiers are -1 where nothing was
/// found.

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace DBObjects {

/// One detail of a catalogue group.
struct DetailDefinition
{
    std::string name;
    bool derived = false;  ///< computed by the project from other details
    std::string type;      ///< "double", "long", "bool", "date" or "string"
    std::string unit;      ///< ISO unit
    std::optional<double> min;
    std::optional<double> max;
    std::string limitUnit;
    std::string defaultValue;               ///< empty: nothing is known yet
    std::string label;                      ///< what the user calls it, as source text
    std::vector<std::string> choices = {};  ///< what a text or whole number may be; empty: anything
};

/// An ion of the water analysis.
struct Ion
{
    int id = -1;
    std::string key;     ///< for example "na"; the details of the ion are named "liquid/na.…"
    std::string symbol;  ///< for example "Na"
    std::string name;    ///< English display name; empty for an ion that the user names
    int charge = 0;      ///< 0 for weakly dissociated species that are counted by mass only
    std::string
        kind;  ///< "cation" or "anion", after "named " or "equivalent " where only those rows are meant
};

/// An element of the periodic system. The identifier is its atomic number.
struct Element
{
    int id = -1;
    std::string symbol;
    std::string name;           ///< English
    double atomicWeight = 0.0;  ///< g/mol; without stable isotopes, the mass number of the longest-lived one
    int group = -1;             ///< 1 to 18, -1 for lanthanides and actinides
    std::string groupOld;       ///< "IA" to "VIIIA"
    int period = 0;
    std::string block;
    std::string state;  ///< at 25 °C
    std::string electronConfiguration;
    std::string oxidationStates;  ///< separated by blanks
    std::string elementClass;     ///< for example "alkali metal"
};

/// The identifier is the ISO 3166 number.
struct Country
{
    int id = -1;
    std::string code;  ///< two letters
    std::string name;
};

/// The identifier is the ISO 4217 number.
struct Currency
{
    int id = -1;
    std::string code;  ///< three letters
    std::string name;
};

/// How many units of a currency one euro is worth.
struct ConversionRate
{
    std::string currency;  ///< code of ISO 4217
    double rate = std::numeric_limits<double>::quiet_NaN();
    bool isTyped = false;  ///< by somebody; else it came from a service
    std::string day;  ///< on which it was stored, "2026-01-31" by UTC; empty for what a database begins with
};

/// A base that raises the pH of a water.
struct AlkalizingAgent
{
    int id = -1;
    std::string key;  ///< for example "naoh"
    std::string name;
    std::string formula;
    double molarMass = 0.0;          ///< g/mol
    int valency = 0;                 ///< eq/mol of a strong base; 0 for a weak one
    int carbon = 0;                  ///< mol of carbonate in a mol
    std::string ion;                 ///< key of the ion that it leaves in the water; empty for an amine
    double cationMass = 0.0;         ///< g/mol of that ion
    std::optional<double> pKa;       ///< of the acid of a weak base, 25 °C
    std::optional<double> enthalpy;  ///< of its dissociation, kJ/mol
};

/// A chemical compound or an ion.
struct Compound
{
    std::int32_t id = -1;
    std::string baseElement;  ///< symbol of the element under which it is found
    std::string name;
    std::string formula;  ///< without its charge: "SO4"
    double pKa =
        std::numeric_limits<double>::quiet_NaN();  ///< of a base, that of its conjugate acid; NaN: unknown
    std::int32_t valency = 0;                      ///< eq/mol
    std::int32_t oxidationNrCommon = 0;            ///< of the base element
    std::int32_t conjugate = 0;  ///< 0 neutral, 1 strong acid, 2 weak acid, 3 strong base, 4 weak base
    std::int32_t ionicCharge = 0;
    std::string category;
};

/// What a supplied compound is called in another language than English.
struct CompoundName
{
    std::string name;  ///< English
    std::string formula;
    std::string language;  ///< "de"
    std::string translation;
};

/// What compounds are dissolved in.
struct FeedMedium
{
    int id = -1;
    std::string name;      ///< English
    double density = 0.0;  ///< kg/l at 20 °C
};

/// A place in the line of a plant.
struct PlantExchanger
{
    std::string kind;       ///< "SAC_NA", "SAC_H", "WAC_H", "WBA", "SBA", "MB" or "DEGAS"
    bool optional = false;  ///< may be left out
};

/// A type of plant that a project can be.
struct PlantType
{
    std::string type;                        ///< "iex", "SOFT", "DEMI", ...
    std::string name;                        ///< English
    std::vector<PlantExchanger> exchangers;  ///< in flow order
};

/// The density of a solution at 20 °C.
struct SolutionDensity
{
    double percent = 0.0;  ///< by mass
    double density = 0.0;  ///< kg/l
};

/// A chemical that exchangers are regenerated with.
struct Regenerant
{
    int id = -1;
    std::string key;   ///< for example "HCL"
    std::string name;  ///< English
    std::string formula;
    std::string kind;                        ///< "acid", "base" or "salt"
    double equivalentMass = 0.0;             ///< g/eq
    std::vector<SolutionDensity> densities;  ///< by rising content, from water on
};

/// What flows in a row of a regeneration sequence.
struct SequenceMedium
{
    std::string key;       ///< for example "REGSEQ_TAP_WATER"
    std::string label;     ///< English
    std::string kind;      ///< "water", "product" (a water that the plant makes), "chemical" or "air"
    std::string chemical;  ///< key of the regenerant, else empty
};

/// How a row of a regeneration sequence begins: its direction, and what is given of its flow and of its
/// amount, without the beginning "regseqstep/" of the keys; empty where nothing is.
struct SequenceFigures
{
    std::string direction;  ///< "UP" or "DOWN"
    std::string flow;       ///< "v", "q" or "q.bv"
    double flowValue = 0.0;
    std::string amount;  ///< "t", "vol" or "vol.bv"
    double amountValue = 0.0;
};

/// What a row of a regeneration sequence can be.
struct SequenceType
{
    std::string key;        ///< for example "REGSEQ_BW"
    std::string label;      ///< English
    std::string rowClass;   ///< "flow", "still" (nothing flows), "chemical" or "air"
    SequenceFigures usual;  ///< where the kind of exchanger says nothing else
};

/// A row of the sequence that an exchanger begins with.
struct SequenceDefault
{
    std::string kind;  ///< of the exchanger
    std::string type;
    std::string medium;
    SequenceFigures figures;
};

/// How a resin is regenerated with a chemical. The operating capacity at the level g (kg of the pure chemical
/// per m³ of resin) is q (1 - exp(-k g)) where there is a curve. NaN where nothing is known.
struct ResinRegeneration
{
    static constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

    std::string chemical;           ///< key of the regenerant
    std::string mode;               ///< "CO", "COUNTER", "MB" (in a mixed bed); empty: whatever it is
    double capacityMax = kUnknown;  ///< q, eq/l
    double k = kUnknown;            ///< m³/kg
    double levelMin = kUnknown;     ///< usual levels, kg/m³
    double levelMax = kUnknown;
    double ratioMin = kUnknown;  ///< usual share of the load, %
    double ratioMax = kUnknown;
};

/// A kind of resin with figures that are typical for it.
struct Resin
{
    int id = -1;
    std::string key;                                                ///< for example "sac_gel"
    std::string name;                                               ///< English
    std::string kind;                                               ///< "SAC", "WAC", "WBA", "SBA" or "inert"
    double totalCapacity = 0.0;                                     ///< eq/l
    double capacity = 0.0;                                          ///< typical operating capacity, eq/l
    double bead = 0.0;                                              ///< harmonic mean diameter, mm
    double density = 0.0;                                           ///< of the wet beads, exhausted, kg/m³
    double bulkDensity = std::numeric_limits<double>::quiet_NaN();  ///< as shipped, kg/m³
    double voidFraction = 0.0;                                      ///< of the settled bed
    double swelling = 0.0;                                          ///< from one form to the other, %
    double maxVelocity = 0.0;                                       ///< m/h
    double maxTemperature = 0.0;                                    ///< °C
    std::vector<ResinRegeneration> regenerations;
};

/// How a compartment of a new exchanger begins.
struct ExchangerDefault
{
    std::string plant;  ///< beginning of the types that it is for; empty: any
    std::string kind;   ///< of the exchanger
    int compartment = 1;
    std::string mode;
    double maxVelocity = 0.0;  ///< m/h
    std::string resin;
    std::string chemical;
    double level = 0.0;        ///< kg/m³
    double supply = 0.0;       ///< %
    double dilution = 0.0;     ///< %
    double temperature = 0.0;  ///< °C
};

/// Two values of a plant of which one is sought so that the other becomes what the user wants. Labels are
/// source texts.
struct WhatIfPair
{
    std::string step;   ///< kind of the rows of a sequence that have the pair; empty: it is the plant's
    std::string first;  ///< key of the value that is sought unless the user turns the pair round
    std::string firstLabel;
    std::string second;
    std::string secondLabel;
};

/// A value in a graphic.
struct GraphicPlaceholder
{
    std::string id;     ///< of the text that it stands for
    std::string owner;  ///< a path ("ex.1.comp.1"; empty for the project), or "water" for the plant's water
    std::string key;
    bool withUnit = false;
    int digits = 4;  ///< significant ones
};

/// A graphic of an arrangement of exchangers.
struct GraphicInfo
{
    int id = -1;
    std::string entry;  ///< in the archive of the graphics
    std::vector<GraphicPlaceholder> placeholders;
};

/// What the organic load of a water consists of. Typical figures of aquatic humic substances, Thurman 1985,
/// Organic Geochemistry of Natural Waters.
struct Organic
{
    int id = -1;
    std::string key;       ///< for example "fulvic"
    std::string label;     ///< English
    double acidity = 0.0;  ///< meq of carboxyl groups per g of substance
    double carbon = 0.0;   ///< g of carbon per g of substance
};

/// What a water is: the code is stored with it, the description (English) is shown.
struct WaterType
{
    int id = -1;
    std::string code;
    std::string description;
};

/// A node of the water library. Categories and countries of one database take their identifiers from one row
/// of numbers, so that a query can name nodes of either kind by number alone.
struct WaterLibCategory
{
    int id = -1;
    std::string name;  ///< English
    int position = 0;  ///< its place among the categories
};

struct WaterLibCountry
{
    int id = -1;
    int categoryId = -1;
    std::string name;    ///< English; empty for waters whose country is not stated
    int waterCount = 0;  ///< how many waters it holds
};

struct WaterLibWater
{
    int id = -1;
    int countryId = -1;
    std::string country;
    std::string place;
    std::string source;
    int user = 0;  ///< 1: it comes from the user's database
};

/// One stored value of a water.
struct WaterLibAttr
{
    std::string key;    ///< of the detail
    std::string value;  ///< as DetailData writes it; empty where the value is not known
    std::string unit;   ///< in which it was typed
};

}  // namespace DBObjects
