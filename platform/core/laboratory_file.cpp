// SPDX-License-Identifier: MIT
#include "core/laboratory_file.h"

#include "core/delimited_text.h"
#include "core/ion_table.h"
#include "core/ion_units.h"
#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <utility>

namespace laboratory {
namespace {

/// What a name in a file means.
struct Known
{
    std::string_view target;
    const ions::Ion* ion = nullptr;  ///< null for a property that is no ion
};

/// Properties that are no ions, with their lower-case spellings, parted by "|".
struct Property
{
    std::string_view target;
    std::string_view spellings;
};

constexpr std::array kProperties{
    Property{"ph", "ph|ph value|ph-value|ph-wert|ph wert"},
    Property{"temp", "temp|temp.|temperature|temperatur|water temperature|wassertemperatur|t"},
    Property{"alkalinity.m",
             "m-value|m value|m-wert|m alkalinity|m-alkalinity|alkalinity|total alkalinity|"
             "alkalinity, total|methyl orange alkalinity|ks4.3|ks4,3|ks 4.3|ks 4,3|acid capacity|"
             "acid capacity to ph 4.3|s\u00e4urekapazit\u00e4t|s\u00e4urekapazit\u00e4t ph 4,3|"
             "s\u00e4urekapazit\u00e4t bis ph 4,3|s\u00e4urekapazit\u00e4t bis ph 4.3|"
             "alkalinit\u00e4t|gesamtalkalinit\u00e4t"},
    Property{"alkalinity.p",
             "p-value|p value|p-wert|p alkalinity|p-alkalinity|alkalinity, phenolphthalein|"
             "phenolphthalein alkalinity|ks8.2|ks8,2|ks 8.2|ks 8,2|acid capacity to ph 8.2|"
             "s\u00e4urekapazit\u00e4t ph 8,2|s\u00e4urekapazit\u00e4t bis ph 8,2|"
             "s\u00e4urekapazit\u00e4t bis ph 8.2"},
    Property{"turbidity", "turbidity|trübung"},
    Property{"sdi", "sdi|sdi15|silt density index"},
    Property{"tss", "tss|suspended solids|total suspended solids|abfiltrierbare stoffe"},
    Property{"toc", "toc|total organic carbon|gesamter organischer kohlenstoff"},
    Property{"fe.total", "fe|fe total|total iron|iron|iron, total|eisen|eisen gesamt|gesamteisen"},
    Property{"cl.free", "free chlorine|chlorine, free|freies chlor"},
    Property{"h2s", "h2s|hydrogen sulfide|hydrogen sulphide|schwefelwasserstoff"},
};

/// The units of such properties in an analysis, with their spellings.
struct PropertyUnit
{
    std::string_view target;
    std::string_view unit;
    std::string_view spellings;
};

constexpr std::array kPropertyUnits{
    PropertyUnit{"ph", "", "|-|ph"},
    PropertyUnit{"temp", "\u00b0C", "|\u00b0c|c|degc|deg c|celsius"},
    PropertyUnit{"temp", "\u00b0F", "\u00b0f|f|degf|deg f|fahrenheit"},
    PropertyUnit{"temp", "K", "k|kelvin"},
    PropertyUnit{"alkalinity", "mmol/l", "mmol/l|meq/l|mval/l|mmol(eq)/l|mol/m3|mol/m\u00b3"},
    PropertyUnit{"alkalinity", "ppm CaCO3",
                 "ppm caco3|mg/l caco3|mg caco3/l|mgcaco3/l|mg/l as caco3|ppm as caco3"},
    PropertyUnit{"alkalinity", "\u00b0d", "\u00b0d|\u00b0dh|dh"},
    PropertyUnit{"alkalinity", "\u00b0f", "\u00b0f|\u00b0fh"},
    PropertyUnit{"alkalinity", "\u00b0e", "\u00b0e|\u00b0eh|\u00b0clark"},
    PropertyUnit{"turbidity", "NTU", "|ntu|fnu|fnu/ntu|tef"},
    PropertyUnit{"sdi", "", "|-|%/min"},
    PropertyUnit{"tss", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"toc", "mg/l", "|mg/l|mg/l c|ppm|g/m3"},
    PropertyUnit{"fe.total", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"cl.free", "mg/l", "|mg/l|ppm|g/m3"},
    PropertyUnit{"h2s", "mg/l", "|mg/l|ppm|g/m3"},
};

struct IonUnit
{
    std::string_view unit;
    double factor;
    std::string_view spellings;
};

constexpr std::array kIonUnits{
    IonUnit{"mg/l", 1.0, "mg/l|g/m3|g/m\u00b3|mg l-1"},
    IonUnit{"mg/l", 1000.0, "g/l"},
    IonUnit{"ppm", 1.0, "ppm|mg/kg"},
    IonUnit{"ppb", 1.0, "ppb|\u00b5g/l|\u03bcg/l|ug/l|mcg/l|\u00b5g/kg"},
    IonUnit{"meq/l", 1.0, "meq/l|mval/l|mmol(eq)/l|mmolc/l"},
    IonUnit{"meq/l", 0.001, "\u00b5eq/l|\u03bceq/l|ueq/l"},
    IonUnit{"ppm CaCO3", 1.0, "ppm caco3|mg/l caco3|mg caco3/l|mgcaco3/l|mg/l as caco3|ppm as caco3"},
    IonUnit{"\u00b0d", 1.0, "\u00b0d|\u00b0dh|dh"},
    IonUnit{"\u00b0f", 1.0, "\u00b0f|\u00b0fh"},
    IonUnit{"\u00b0a", 1.0, "\u00b0a"},
    IonUnit{"\u00b0e", 1.0, "\u00b0e|\u00b0eh|\u00b0clark"},
};

/// Amounts of substance, in mmol/l.
constexpr std::array<std::pair<std::string_view, double>, 2> kMolarUnits{
    {{"mmol/l|mol/m3|mol/m\u00b3", 1.0}, {"\u00b5mol/l|\u03bcmol/l|umol/l", 1e-3}}};

bool HasSpelling(std::string_view spellings, std::string_view text)
{
    for (std::size_t at = 0;;) {
        const std::size_t end = std::min(spellings.find('|', at), spellings.size());
        if (spellings.substr(at, end - at) == text)
            return true;
        if (end == spellings.size())
            return false;
        at = end + 1;
    }
}

/// Small letters, also of German umlauts.
std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto byte = static_cast<unsigned char>(lower[i]);
        if (byte < 0x80)
            lower[i] = static_cast<char>(std::tolower(byte));
        else if (byte == 0xc3 && i + 1 < lower.size()) {
            const auto next = static_cast<unsigned char>(lower[i + 1]);
            if (next >= 0x80 && next <= 0x9e)
                lower[i + 1] = static_cast<char>(next + 0x20);
            ++i;
        }
    }
    return lower;
}

std::optional<Known> FindName(std::string_view spelling)
{
    if (spelling.empty())
        return std::nullopt;
    for (const ions::Ion& ion : ions::kIonTable)
        if (HasSpelling(ion.spellings, spelling))
            return Known{ion.key, &ion};
    for (const Property& property : kProperties)
        if (HasSpelling(property.spellings, spelling))
            return Known{property.target};
    return std::nullopt;
}

/// "ca2+", "so4--" and "na+" without their charge.
std::string WithoutCharge(const std::string& name)
{
    const std::size_t sign = name.find_last_not_of("+-");
    if (sign == std::string::npos || sign + 1 == name.size())
        return name;
    std::string plain = name.substr(0, sign + 1);
    // The digit of the charge; "so42-" keeps that of the formula.
    if (plain.size() > 1 && std::isdigit(static_cast<unsigned char>(plain.back())) != 0 && !FindName(plain))
        plain.pop_back();
    return plain;
}

std::optional<Known> NameOf(std::string_view text)
{
    const std::string name = Lower(numbertext::Trim(text));
    if (const auto found = FindName(name))
        return found;
    if (const auto found = FindName(WithoutCharge(name)))
        return found;
    // "calcium, dissolved", "Calcium gelöst": the first word, and what stands in brackets behind a name.
    for (const char* end : {",", " (", " "}) {
        const std::size_t at = name.find(end);
        if (at == std::string::npos)
            continue;
        if (const auto found = FindName(WithoutCharge(name.substr(0, at))))
            return found;
    }
    const std::size_t open = name.find('(');
    const std::size_t close = name.find(')');
    if (open != std::string::npos && close != std::string::npos && close > open)
        return FindName(WithoutCharge(name.substr(open + 1, close - open - 1)));
    return std::nullopt;
}

/// A unit in the spelling of the analysis, with the factor that a number of the file takes.
struct UnitReading
{
    std::string unit;
    double factor = 1.0;
};

/// The unit of that ion's concentration; nothing where the text is no such unit.
std::optional<UnitReading> ReadIonUnit(std::string_view text, const ions::Ion& ion)
{
    const std::string spelling = Lower(numbertext::Trim(text));
    for (const IonUnit& unit : kIonUnits)
        if (HasSpelling(unit.spellings, spelling))
            return UnitReading{std::string(unit.unit), unit.factor};
    for (const auto& [spellings, millimoles] : kMolarUnits) {
        if (!HasSpelling(spellings, spelling))
            continue;
        // What carries no charge has no equivalents: its amount is given as a mass.
        if (ion.charge == 0)
            return UnitReading{std::string(ions::kMgPerLitre), millimoles * ion.molarMass};
        return UnitReading{std::string(ions::kMeqPerLitre), millimoles * std::abs(ion.charge)};
    }
    return std::nullopt;
}

bool IsIonUnit(std::string_view text)
{
    return ReadIonUnit(text, ions::kIonTable.front()).has_value();
}

struct Title
{
    std::string name;
    std::string unit;
};

/// "Ca [mg/l]", "Ca (mg/l)", "Ca in mg/l", "Ca mg/l".
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
        if (isUnit)
            return {numbertext::Trim(title.substr(0, from)), inside};
    }
    const std::size_t in = title.rfind(" in ");
    if (in != std::string::npos)
        return {numbertext::Trim(title.substr(0, in)), numbertext::Trim(title.substr(in + 4))};
    const std::size_t blank = title.find(' ');
    if (blank != std::string::npos && IsIonUnit(title.substr(blank + 1)))
        return {title.substr(0, blank), numbertext::Trim(title.substr(blank + 1))};
    return {title, {}};
}

/// Sets target and unit; a name that is not known leaves both empty.
void Interpret(Parameter& parameter, const std::string& name, const std::string& unit)
{
    const auto known = NameOf(name);
    if (!known)
        return;
    parameter.target = known->target;
    const std::string spelling = Lower(unit);
    for (const PropertyUnit& property : kPropertyUnits) {
        // The m- and the p-value share their units.
        const std::string_view target = known->target.substr(0, known->target.find('.'));
        if ((property.target == known->target || property.target == target) &&
            HasSpelling(property.spellings, spelling)) {
            parameter.unit = property.unit;
            return;
        }
    }
    if (known->ion != nullptr) {
        // Laboratories that state no unit mean mg/l.
        if (const auto reading = ReadIonUnit(unit.empty() ? "mg/l" : unit, *known->ion)) {
            parameter.unit = reading->unit;
            parameter.factor = reading->factor;
            return;
        }
    }
    parameter.unit = unit;
    parameter.unitIsKnown = false;
}

char FindSeparator(std::string_view text)
{
    // The one that splits the first lines into the most columns, the same number in each as far as possible.
    constexpr std::size_t kLooked = 20;
    char best = ',';
    std::size_t most = 0;
    for (const char separator : {';', '\t', ',', '|'}) {
        std::size_t end = 0;
        for (std::size_t line = 0; line < kLooked && end != std::string_view::npos; ++line)
            end = text.find('\n', end + (end > 0 ? 1 : 0));
        const auto rows = delimited::Parse(text.substr(0, end), separator);
        std::size_t columns = 0;
        std::size_t agreeing = 0;
        for (const auto& row : rows)
            columns = std::max(columns, row.size());
        for (const auto& row : rows)
            agreeing += row.size() == columns ? 1 : 0;
        const std::size_t score = columns > 1 ? columns * agreeing : 0;
        if (score > most) {
            most = score;
            best = separator;
        }
    }
    return best;
}

char FindDecimalSign(const std::vector<std::vector<std::string>>& samples, char separator)
{
    std::size_t points = 0;
    std::size_t commas = 0;
    for (const auto& sample : samples) {
        for (const std::string& cell : sample) {
            if (cell.find_first_not_of("0123456789.,+-eE ") != std::string::npos)
                continue;
            const std::size_t point = cell.rfind('.');
            const std::size_t comma = cell.rfind(',');
            if (point == std::string::npos && comma == std::string::npos)
                continue;
            const bool byComma = point == std::string::npos || (comma != std::string::npos && comma > point);
            ++(byComma ? commas : points);
        }
    }
    return separator != ',' && commas > points ? ',' : '.';
}

bool NamesParameter(const std::string& cell)
{
    return NameOf(SplitTitle(cell).name).has_value();
}

std::size_t CountParameters(const std::vector<std::string>& cells)
{
    return static_cast<std::size_t>(std::count_if(cells.begin(), cells.end(), NamesParameter));
}

using Table = std::vector<delimited::Row>;

std::vector<std::string> FirstColumn(const Table& table, std::size_t column)
{
    std::vector<std::string> cells;
    for (const auto& row : table)
        cells.push_back(column < row.size() ? row[column] : std::string());
    return cells;
}

void ReadAcross(File& file, const Table& table, std::size_t head)
{
    for (const std::string& cell : table[head]) {
        Parameter& parameter = file.parameters.emplace_back();
        parameter.title = numbertext::Trim(cell);
        const Title title = SplitTitle(parameter.title);
        Interpret(parameter, title.name, title.unit);
    }
    for (std::size_t i = head + 1; i < table.size(); ++i) {
        auto sample = table[i];
        if (std::all_of(sample.begin(), sample.end(),
                        [](const std::string& cell) { return numbertext::Trim(cell).empty(); }))
            continue;
        sample.resize(file.parameters.size());
        for (std::string& cell : sample)
            cell = numbertext::Trim(cell);
        file.samples.push_back(std::move(sample));
    }
}

bool LooksLikeUnit(const std::string& text)
{
    return IsIonUnit(text) || Lower(text) == "ntu" || text.starts_with("\u00b0");
}

void ReadDown(File& file, const Table& table, std::size_t names)
{
    // The column of units is the one that holds some; every other column behind the names is a sample.
    std::size_t columns = 0;
    for (const auto& row : table)
        columns = std::max(columns, row.size());
    std::size_t units = columns;
    for (std::size_t column = 0; column < columns && units == columns; ++column) {
        const auto cells = FirstColumn(table, column);
        if (column != names && std::any_of(cells.begin(), cells.end(), LooksLikeUnit))
            units = column;
    }
    std::vector<std::size_t> sampleColumns;
    for (std::size_t column = 0; column < columns; ++column)
        if (column != names && column != units)
            sampleColumns.push_back(column);
    file.samples.resize(sampleColumns.size());
    for (const auto& row : table) {
        const std::string name = names < row.size() ? numbertext::Trim(row[names]) : std::string();
        if (name.empty())
            continue;
        const Title title = SplitTitle(name);
        const std::string unit = units < row.size() ? numbertext::Trim(row[units]) : title.unit;
        Parameter& parameter = file.parameters.emplace_back();
        parameter.title = unit.empty() || !title.unit.empty() ? name : name + " [" + unit + "]";
        Interpret(parameter, title.name, unit);
        for (std::size_t i = 0; i < sampleColumns.size(); ++i)
            file.samples[i].push_back(sampleColumns[i] < row.size() ? numbertext::Trim(row[sampleColumns[i]])
                                                                    : std::string());
    }
}

}  // namespace

std::string FindTarget(std::string_view name)
{
    const auto found = NameOf(name);
    return found ? std::string(found->target) : std::string();
}

std::optional<double> File::GetNumber(std::size_t sample, std::size_t parameter) const
{
    const std::string& cell = samples.at(sample).at(parameter);
    const auto separators =
        decimalSign == ',' ? numbertext::Separators{",", "."} : numbertext::Separators{".", ","};
    auto number = numbertext::Parse(cell, separators);
    if (number)
        *number *= parameters[parameter].factor;
    return number;
}

File Read(std::string_view bytes)
{
    const std::string text = DecodeText(bytes);
    File file;
    file.separator = FindSeparator(text);
    const Table table = delimited::Parse(text, file.separator);
    // Files begin with lines about the laboratory: the head is the line that names the most parameters.
    constexpr std::size_t kHeadLines = 50;
    std::size_t head = 0;
    std::size_t across = 0;
    for (std::size_t i = 0; i < std::min(table.size(), kHeadLines); ++i) {
        const std::size_t count = CountParameters(table[i]);
        if (count > across) {
            across = count;
            head = i;
        }
    }
    std::size_t names = 0;
    std::size_t down = 0;
    const Table top(table.begin(),
                    table.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(table.size(), 500)));
    for (std::size_t column = 0; column < 4; ++column) {
        const std::size_t count = CountParameters(FirstColumn(top, column));
        if (count > down) {
            down = count;
            names = column;
        }
    }
    if (across == 0 && down == 0)
        return file;
    if (across >= down)
        ReadAcross(file, table, head);
    else
        ReadDown(file, top, names);
    file.decimalSign = FindDecimalSign(file.samples, file.separator);
    return file;
}

std::string Write(const std::vector<std::pair<std::string, std::string>>& values)
{
    const auto quoted = [](const std::string& text) {
        if (text.find_first_of(",\"\r\n") == std::string::npos)
            return text;
        std::string cell = "\"";
        for (const char c : text)
            cell += c == '"' ? std::string("\"\"") : std::string(1, c);
        return cell + '"';
    };
    // The mark tells spreadsheets that the text is UTF-8.
    std::string titles = "\xef\xbb\xbf";
    std::string numbers;
    for (std::size_t i = 0; i < values.size(); ++i) {
        titles += (i > 0 ? "," : "") + quoted(values[i].first);
        numbers += (i > 0 ? "," : "") + quoted(values[i].second);
    }
    return titles + "\r\n" + numbers + "\r\n";
}

}  // namespace laboratory
