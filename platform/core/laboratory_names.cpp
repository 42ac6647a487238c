// SPDX-License-Identifier: MIT
#include "core/laboratory_names.h"

#include "core/ion_table.h"
#include "core/laboratory_units.h"
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <utility>

namespace laboratory {
namespace {

/// A longer text is no name of a parameter.
constexpr std::size_t kLongestName = 200;
constexpr std::string_view kConductivity = "cond25.measured";
constexpr double kAcidLeftAtPh43 = 0.05;  // mmol/l

enum class Kind
{
    Amount,  ///< also with more words behind its name
    State,   ///< a temperature or a pH, otherwise like an amount
    Exact,   ///< an amount that one more word would make another one: hardness, carbonate hardness
    Text,
};

/// A property that is no ion, with its lower-case spellings, parted by "|".
struct Property
{
    std::string_view target;
    Kind kind;
    std::string_view spellings;
    double acidLeft = 0.0;  ///< as Parameter has it
};

constexpr std::array kProperties{
    Property{"ph", Kind::State, "ph|ph value|ph-value|ph-wert|ph wert"},
    Property{"temp", Kind::State, "temp|temp.|temperature|temperatur|water temperature|wassertemperatur|t"},
    Property{"alkalinity.m", Kind::Amount,
             "m-value|m value|m-wert|m alkalinity|m-alkalinity|alkalinity|total alkalinity|"
             "alkalinity, total|methyl orange alkalinity|alkalinit\u00e4t|gesamtalkalinit\u00e4t"},
    Property{"alkalinity.m", Kind::Amount,
             "ks4.3|ks4,3|ks 4.3|ks 4,3|acid capacity|acid capacity to ph 4.3|s\u00e4urekapazit\u00e4t|"
             "s\u00e4urekapazit\u00e4t ph 4,3|s\u00e4urekapazit\u00e4t bis ph 4,3|"
             "s\u00e4urekapazit\u00e4t bis ph 4.3",
             kAcidLeftAtPh43},
    Property{"alkalinity.p", Kind::Amount,
             "p-value|p value|p-wert|p alkalinity|p-alkalinity|alkalinity, phenolphthalein|"
             "phenolphthalein alkalinity|ks8.2|ks8,2|ks 8.2|ks 8,2|acid capacity to ph 8.2|"
             "s\u00e4urekapazit\u00e4t ph 8,2|s\u00e4urekapazit\u00e4t bis ph 8,2|"
             "s\u00e4urekapazit\u00e4t bis ph 8.2"},
    Property{"hardness.measured", Kind::Exact,
             "total hardness|hardness|hardness, total|hardness total|hardness (total)|th|"
             "gesamth\u00e4rte|h\u00e4rte|h\u00e4rte, gesamt|wasserh\u00e4rte|gh|summe erdalkalien"},
    Property{kConductivity, Kind::Exact,
             "conductivity|electrical conductivity|electric conductivity|elec. conductivity|"
             "el. conductivity|specific conductivity|specific conductance|conductivity, specific|"
             "conductivity, electrical|conductivity, field|conductivity, lab|cond|cond.|ec|lf|leitf.|"
             "leitf\u00e4higkeit|elektrische leitf\u00e4higkeit|elektr. leitf\u00e4higkeit|"
             "el. leitf\u00e4higkeit|leitf\u00e4higkeit, elektrische|spezifische leitf\u00e4higkeit|"
             "spez. leitf\u00e4higkeit|spezifische elektrische leitf\u00e4higkeit"},
    Property{"turbidity", Kind::Amount, "turbidity|tr\u00fcbung"},
    Property{"sdi", Kind::Amount, "sdi|sdi15|silt density index"},
    Property{"tss", Kind::Amount, "tss|suspended solids|total suspended solids|abfiltrierbare stoffe"},
    Property{"oil", Kind::Exact,
             "oil|oil and grease|oil & grease|oil, mineral|oil (mineral)|mineral "
             "oil|hydrocarbons|hydrocarbons, total|"
             "hydrocarbons c10-c40|hydrocarbons (c10-c40)|total hydrocarbons|total petroleum "
             "hydrocarbons|tph|\u00f6l|\u00f6l und fett|\u00f6le und fette|"
             "mineral\u00f6l|mineral\u00f6lkohlenwasserstoffe|mkw|kohlenwasserstoffe|"
             "kohlenwasserstoffe c10-c40|kohlenwasserstoffe (c10-c40)|kohlenwasserstoffe, "
             "gesamt|kohlenwasserstoff-index|kohlenwasserstoffindex|huile|huiles|"
             "huiles et graisses|huile min\u00e9rale|huiles min\u00e9rales|hydrocarbures|"
             "hydrocarbures totaux|indice hydrocarbure|indice hydrocarbures"},
    Property{"toc", Kind::Amount, "toc|total organic carbon|gesamter organischer kohlenstoff"},
    Property{"fe.total", Kind::Amount,
             "fe|fe total|total iron|iron|iron, total|eisen|eisen gesamt|gesamteisen"},
    Property{"cl.free", Kind::Amount, "free chlorine|chlorine, free|freies chlor"},
    Property{"h2s", Kind::Amount, "h2s|hydrogen sulfide|hydrogen sulphide|schwefelwasserstoff"},
    Property{"sample", Kind::Text,
             "sample|sample name|sample id|name|probe|probenname|probenbezeichnung|bezeichnung"},
    Property{"country", Kind::Text, "country|land"},
    Property{"place", Kind::Text, "place|location|ort|entnahmeort|probenahmeort"},
    Property{"water.source", Kind::Text, "water source|source of the water|herkunft"},
    Property{"x1.name", Kind::Text, "name of cation 1"},
    Property{"x2.name", Kind::Text, "name of cation 2"},
    Property{"y1.name", Kind::Text, "name of anion 1"},
    Property{"y2.name", Kind::Text, "name of anion 2"},
    Property{"comments", Kind::Text, "comments|comment|remarks|bemerkungen|bemerkung|kommentar"},
};

/// What a name in a file means.
struct Known
{
    std::string_view target;
    Kind kind = Kind::Amount;
    const ions::Ion* ion = nullptr;  ///< null for a property that is no ion
    double acidLeft = 0.0;
};

std::optional<Known> FindName(std::string_view spelling)
{
    if (spelling.empty())
        return std::nullopt;
    for (const ions::Ion& ion : ions::kIonTable)
        if (HasSpelling(ion.spellings, spelling))
            return Known{ion.key, Kind::Amount, &ion};
    for (const Property& property : kProperties)
        if (HasSpelling(property.spellings, spelling))
            return Known{property.target, property.kind, nullptr, property.acidLeft};
    return std::nullopt;
}

bool IsDigit(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

/// "ca2+", "so4--" and "na+" without their charge.
std::string WithoutCharge(const std::string& name)
{
    const std::size_t sign = name.find_last_not_of("+-");
    if (sign == std::string::npos || sign + 1 == name.size())
        return name;
    std::string plain = name.substr(0, sign + 1);
    // The digit of the charge; "so42-" keeps that of the formula.
    if (plain.size() > 1 && IsDigit(plain.back()) && !FindName(plain))
        plain.pop_back();
    return plain;
}

std::string Bracketed(const std::string& name)
{
    const std::size_t open = name.find('(');
    const std::size_t close = name.find(')');
    if (open == std::string::npos || close == std::string::npos || close < open)
        return {};
    return name.substr(open + 1, close - open - 1);
}

/// `name` in small letters.
std::optional<Known> FindLowerName(const std::string& name)
{
    if (const auto found = FindName(name))
        return found;
    if (const auto found = FindName(WithoutCharge(name)))
        return found;
    // "Carbonate hardness" and "calcium hardness" are neither carbonate nor calcium.
    const bool isHardness =
        name.find("hardness") != std::string::npos || name.find("h\u00e4rte") != std::string::npos;
    const auto inBrackets = FindName(WithoutCharge(Bracketed(name)));
    // "calcium, dissolved", "Calcium gelöst": the first word, and what stands in brackets behind a name.
    for (const char* end : {",", " (", " "}) {
        const std::size_t at = name.find(end);
        if (at == std::string::npos)
            continue;
        const auto found = FindName(WithoutCharge(name.substr(0, at)));
        const bool isLoose = found && (found->kind == Kind::Amount || found->kind == Kind::State);
        // "Alkalinity (KS4.3)": what stands in brackets says how it was found.
        if (isLoose && inBrackets && inBrackets->target == found->target && inBrackets->acidLeft > 0.0)
            return inBrackets;
        if ((isLoose && !isHardness) || (found && inBrackets && inBrackets->target == found->target))
            return found;
    }
    if (isHardness)
        return std::nullopt;
    return inBrackets && inBrackets->kind != Kind::Exact && inBrackets->kind != Kind::Text ? inBrackets
                                                                                           : std::nullopt;
}

/// A name and what was said with it.
struct Qualified
{
    std::string name;
    std::string said;
};

/// "alkalinity as caco3", "nitrate (as n)": the name and what it is expressed as.
Qualified SplitBasis(const std::string& name)
{
    for (const char* word : {" as ", " als ", "(as ", "(als "}) {
        const std::size_t at = name.find(word);
        if (at == std::string::npos)
            continue;
        const std::string rest = name.substr(at + std::string_view(word).size());
        const std::size_t end = std::min(rest.find_first_of(" ,;)"), rest.size());
        return {numbertext::Trim(name.substr(0, at)), rest.substr(0, end)};
    }
    return {name, {}};
}

/// "conductivity (20 °c)", "leitfähigkeit bei 25°c": the name and the number of degrees that it refers to.
Qualified SplitReference(const std::string& name)
{
    for (std::size_t at = name.find('c'); at != std::string::npos; at = name.find('c', at + 1)) {
        std::size_t end = at;
        const bool hasSign = end >= 2 && name.compare(end - 2, 2, "\u00b0") == 0;
        end -= hasSign ? 2 : 0;
        while (end > 0 && name[end - 1] == ' ')
            --end;
        std::size_t begin = end;
        while (begin > 0 && IsDigit(name[begin - 1]))
            --begin;
        const bool isWord =
            at + 1 < name.size() && std::isalnum(static_cast<unsigned char>(name[at + 1])) != 0;
        if (begin == end || begin == 0 || isWord)
            continue;
        std::string before = name.substr(0, name.find_last_not_of(" (@,", begin - 1) + 1);
        for (const char* word : {" at", " bei", " @", ","})
            if (before.ends_with(word))
                before.erase(before.size() - std::string_view(word).size());
        return {numbertext::Trim(before), name.substr(begin, end - begin)};
    }
    return {name, {}};
}

struct Title
{
    std::string name;
    std::string unit;
};

Title SplitTitle(const std::string& title)
{
    for (const auto& [open, close] : {std::pair('[', ']'), std::pair('(', ')')}) {
        const std::size_t from = title.rfind(open);
        const std::size_t to = title.rfind(close);
        if (from == std::string::npos || to == std::string::npos || to < from)
            continue;
        const std::string inside = numbertext::Trim(title.substr(from + 1, to - from - 1));
        const bool isUnit = open == '[' || inside.find('/') != std::string::npos || IsIonUnit(inside) ||
                            inside.starts_with("\u00b0");
        // What stands behind the unit still belongs to the name.
        if (isUnit)
            return {numbertext::Trim(title.substr(0, from) + title.substr(to + 1)), inside};
    }
    const std::size_t in = title.rfind(" in ");
    if (in != std::string::npos)
        return {numbertext::Trim(title.substr(0, in)), numbertext::Trim(title.substr(in + 4))};
    for (std::size_t at = title.find(' '); at != std::string::npos; at = title.find(' ', at + 1)) {
        const std::string unit = title.substr(at + 1);
        // "25 °C" is no unit.
        if (at > 0 && !IsDigit(title[at - 1]) && LooksLikeUnit(unit))
            return {numbertext::Trim(title.substr(0, at)), numbertext::Trim(unit)};
    }
    return {title, {}};
}

/// By what a conductivity at that temperature is multiplied to be that at 25 °C; nothing where that is not
/// known. ISO 7888:1985, table of natural waters.
std::optional<double> FactorTo25(const std::string& celsius)
{
    constexpr double kFrom20 = 1.116;
    if (celsius.empty() || celsius == "25")
        return 1.0;
    return celsius == "20" ? std::optional(kFrom20) : std::nullopt;
}

/// What a name means, with all that is said in it.
struct Meaning
{
    std::optional<Known> known;
    std::string basis;    ///< what the amount is expressed as, in small letters
    std::string celsius;  ///< the temperature to which a conductivity refers
};

Meaning MeaningOf(std::string_view text)
{
    if (text.size() > kLongestName)
        return {};
    const std::string name = Lower(numbertext::Trim(text));
    if (const auto found = FindName(name))
        return {found, {}, {}};
    const Qualified reference = SplitReference(name);
    if (!reference.said.empty()) {
        const auto found = FindLowerName(reference.name);
        if (found && found->target == kConductivity)
            return {found, {}, reference.said};
    }
    const Qualified basis = SplitBasis(name);
    return {FindLowerName(basis.name), basis.said, {}};
}

/// The unit of what is expressed as something else: as calcium carbonate there is one, but for what is
/// expressed as nitrogen there is none.
std::optional<std::string> UnitOnBasis(const Meaning& meaning, const std::string& unit)
{
    if (meaning.basis.empty())
        return unit;
    if (meaning.basis == "caco3") {
        const std::string spelling = Lower(unit);
        if (HasSpelling("|mg/l|ppm|g/m3|g/m\u00b3|mg l-1", spelling))
            return "mg/l caco3";
        const bool isDegree = spelling.starts_with("\u00b0");
        return isDegree || spelling.find("caco3") != std::string::npos ? std::optional(unit) : std::nullopt;
    }
    // What these are expressed as is no name of theirs.
    if ((meaning.known->target == "toc" && meaning.basis == "c") ||
        (meaning.known->target == "cl.free" && meaning.basis == "cl2"))
        return unit;
    const auto as = FindName(WithoutCharge(meaning.basis));
    return as && as->target == meaning.known->target ? std::optional(unit) : std::nullopt;
}

std::optional<UnitReading> ReadUnit(const Meaning& meaning, const std::string& stated)
{
    const Known& known = *meaning.known;
    const auto unit = UnitOnBasis(meaning, stated);
    if (!unit)
        return std::nullopt;
    if (known.target == kConductivity) {
        const Qualified reference = SplitReference(Lower(*unit));
        auto reading = ReadPropertyUnit(reference.name, known.target);
        const auto factor = FactorTo25(meaning.celsius.empty() ? reference.said : meaning.celsius);
        if (!reading || !factor)
            return std::nullopt;
        reading->factor *= *factor;
        return reading;
    }
    if (known.ion == nullptr)
        return ReadPropertyUnit(*unit, known.target);
    // Laboratories that state no unit mean mg/l.
    return ReadIonUnit(unit->empty() ? "mg/l" : *unit, *known.ion);
}

Parameter Interpret(const std::string& title, const std::string& name, const std::string& unit)
{
    Parameter parameter{.title = title};
    const Meaning meaning = MeaningOf(name);
    if (!meaning.known)
        return parameter;
    parameter.target = meaning.known->target;
    parameter.acidLeft = meaning.known->acidLeft;
    parameter.isText = meaning.known->kind == Kind::Text;
    parameter.isAmount = !parameter.isText && meaning.known->kind != Kind::State;
    if (parameter.isText)
        return parameter;
    if (const auto reading = ReadUnit(meaning, unit)) {
        parameter.unit = reading->unit;
        parameter.factor = reading->factor;
        return parameter;
    }
    parameter.unit = unit;
    parameter.unitIsKnown = false;
    return parameter;
}

}  // namespace

Parameter ReadHead(const std::string& title)
{
    if (title.size() > kLongestName)
        return {.title = title};
    const Title split = SplitTitle(title);
    return Interpret(title, split.name, split.unit);
}

Parameter ReadHead(const std::string& title, const std::string& unit)
{
    if (unit.empty())
        return ReadHead(title);
    const std::string own = title.size() > kLongestName ? title : SplitTitle(title).name;
    return Interpret(own == title ? title + " [" + unit + "]" : title, own, unit);
}

std::string TargetOfHead(const std::string& title)
{
    // Most cells are numbers.
    if (title.empty() || IsDigit(title.front()) || title.size() > kLongestName)
        return {};
    return FindTarget(SplitTitle(title).name);
}

std::string FindTarget(std::string_view name)
{
    const auto found = MeaningOf(name).known;
    return found ? std::string(found->target) : std::string();
}

bool LooksLikeUnit(std::string_view text)
{
    return text.size() <= kLongestName && (IsIonUnit(text) || IsPropertyUnit(text));
}

}  // namespace laboratory
