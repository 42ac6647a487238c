// SPDX-License-Identifier: MIT
#include "core/laboratory_file.h"

#include "core/number_text.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace laboratory {
namespace {

using Table = std::vector<delimited::Row>;

/// Files begin with lines about the laboratory: the head stands among the first.
constexpr std::size_t kHeadLines = 50;
/// Of a file whose parameters stand one below the other.
constexpr std::size_t kMostParameters = 500;
constexpr std::size_t kNameColumns = 4;

bool IsBlank(const std::string& cell)
{
    return numbertext::Trim(cell).empty();
}

/// The line that names the most parameters.
struct Head
{
    std::size_t row = 0;
    std::size_t count = 0;
    /// It holds nothing but names, all different: no parameter with its value can look like that.
    bool isPure = false;

    bool IsBelow(const Head& other) const
    {
        return other.isPure != isPure ? other.isPure : other.count > count;
    }
};

Head HeadOfRow(const delimited::Row& row, std::size_t index)
{
    Head head{.row = index};
    // Another unit makes another column of the same parameter.
    std::set<std::tuple<std::string, std::string, double>> named;
    bool namesOnly = true;
    bool namesQuantity = false;
    for (const std::string& cell : row) {
        const std::string title = numbertext::Trim(cell);
        if (title.empty())
            continue;
        if (TargetOfHead(title).empty()) {
            namesOnly = false;
            continue;
        }
        ++head.count;
        const Parameter parameter = ReadHead(title);
        namesQuantity = namesQuantity || !parameter.isText;
        namesOnly = named.insert({parameter.target, parameter.unit, parameter.factor}).second && namesOnly;
    }
    head.isPure = namesOnly && namesQuantity && named.size() > 1;
    return head;
}

Head FindHead(const Table& table)
{
    Head best;
    for (std::size_t i = 0; i < std::min(table.size(), kHeadLines); ++i) {
        const Head head = HeadOfRow(table[i], i);
        if (best.IsBelow(head))
            best = head;
    }
    return best;
}

/// The column that names the most parameters, one below the other.
struct NameColumn
{
    std::size_t column = 0;
    std::size_t count = 0;
};

NameColumn FindNameColumn(const Table& table)
{
    NameColumn best;
    for (std::size_t column = 0; column < kNameColumns; ++column) {
        std::size_t count = 0;
        for (std::size_t i = 0; i < std::min(table.size(), kMostParameters); ++i)
            count += column < table[i].size() && !TargetOfHead(numbertext::Trim(table[i][column])).empty();
        if (count > best.count)
            best = {column, count};
    }
    return best;
}

/// Texts are kept as they are, numbers without the blanks around them.
std::string CellOf(const Parameter& parameter, std::string&& cell)
{
    return parameter.isText ? UnguardFormula(cell) : numbertext::Trim(cell);
}

void ReadAcross(File& file, Table& table, std::size_t head, const WorkWatch& watch)
{
    for (const std::string& cell : table[head])
        file.parameters.push_back(ReadHead(UnguardFormula(numbertext::Trim(cell))));
    for (std::size_t row = head + 1; row < table.size(); ++row) {
        auto sample = std::move(table[row]);
        if (std::ranges::all_of(sample, IsBlank))
            continue;
        sample.resize(file.parameters.size());
        for (std::size_t i = 0; i < sample.size(); ++i)
            sample[i] = CellOf(file.parameters[i], std::move(sample[i]));
        file.samples.push_back(std::move(sample));
        watch.Tell(1.0);
    }
}

/// The first column that holds a unit; `none` where there is no such column.
std::size_t FindUnitColumn(const Table& table, std::size_t names, std::size_t none)
{
    std::size_t found = none;
    for (std::size_t row = 0; row < std::min(table.size(), kMostParameters); ++row) {
        for (std::size_t column = 0; column < std::min(table[row].size(), found); ++column) {
            if (column != names && LooksLikeUnit(table[row][column]))
                found = column;
        }
    }
    return found;
}

void ReadDown(File& file, Table& table, std::size_t names)
{
    table.resize(std::min(table.size(), kMostParameters));
    // The column of units is the one that holds some; every other column behind the names is a sample.
    std::size_t columns = 0;
    for (const auto& row : table)
        columns = std::max(columns, row.size());
    const std::size_t units = FindUnitColumn(table, names, columns);
    std::vector<std::size_t> sampleColumns;
    for (std::size_t column = 0; column < columns; ++column)
        if (column != names && column != units)
            sampleColumns.push_back(column);
    file.samples.resize(sampleColumns.size());
    for (auto& row : table) {
        row.resize(columns);
        const std::string name = UnguardFormula(numbertext::Trim(row[names]));
        if (name.empty())
            continue;
        const Parameter& parameter = file.parameters.emplace_back(
            ReadHead(name, units < columns ? numbertext::Trim(row[units]) : std::string()));
        for (std::size_t i = 0; i < sampleColumns.size(); ++i)
            file.samples[i].push_back(CellOf(parameter, std::move(row[sampleColumns[i]])));
    }
}

bool IsQuantity(const Parameter& parameter)
{
    return !parameter.target.empty() && !parameter.isText;
}

/// The decimal sign, and whether there are limits of detection: both show in the numbers alone.
void LookAtNumbers(File& file, const WorkWatch& watch)
{
    DecimalSigns signs;
    const auto forEach = [&](auto visit) {
        for (std::size_t sample = 0; sample < file.samples.size(); ++sample) {
            watch.Tell(1.0);
            for (std::size_t i = 0; i < file.parameters.size(); ++i)
                if (IsQuantity(file.parameters[i]) && !file.samples[sample][i].empty())
                    visit(sample, i);
        }
    };
    forEach([&](std::size_t sample, std::size_t i) { signs.Count(file.samples[sample][i]); });
    file.decimalSign = signs.Find(file.separator);
    forEach([&](std::size_t sample, std::size_t i) {
        if (file.hasLimits)
            return;
        const auto number = file.GetNumber(sample, i);
        file.hasLimits = number && number->isLimit;
    });
}

}  // namespace

std::optional<Number> File::GetNumber(std::size_t sample, std::size_t parameter) const
{
    const Parameter& read = parameters.at(parameter);
    auto number = ReadNumber(samples.at(sample).at(parameter), decimalSign);
    if (number && number->isLimit && !read.isAmount)
        return std::nullopt;
    if (number)
        number->value *= read.factor;
    return number;
}

std::string File::GetSampleName(std::size_t sample) const
{
    const auto named = std::ranges::find(parameters, "sample", &Parameter::target);
    return named == parameters.end()
               ? std::string()
               : samples.at(sample).at(static_cast<std::size_t>(named - parameters.begin()));
}

File Read(std::string_view bytes, const WorkWatch& watch)
{
    File file;
    Table table;
    {
        const std::string text = DecodeText(bytes);
        file.separator = delimited::FindSeparator(text);
        table = delimited::Parse(text, file.separator, kBounds, watch);
    }
    const Head head = FindHead(table);
    const NameColumn names = FindNameColumn(table);
    if (head.count == 0 && names.count == 0)
        return file;
    if (head.isPure || head.count >= names.count)
        ReadAcross(file, table, head.row, watch);
    else
        ReadDown(file, table, names.column);
    if (std::ranges::none_of(file.parameters, IsQuantity))
        return {.separator = file.separator};
    LookAtNumbers(file, watch);
    return file;
}

std::string Write(const std::vector<std::vector<TitledText>>& samples)
{
    constexpr char kSeparator = ',';
    delimited::Row titles;
    for (const auto& sample : samples)
        for (const auto& [title, text] : sample)
            if (std::ranges::find(titles, title) == titles.end())
                titles.push_back(title);
    Table table{titles};
    for (const auto& sample : samples) {
        delimited::Row& row = table.emplace_back(titles.size());
        for (const auto& [title, text] : sample)
            row[static_cast<std::size_t>(std::ranges::find(titles, title) - titles.begin())] =
                GuardFormula(text);
    }
    // The mark tells spreadsheets that the text is UTF-8.
    return "\xef\xbb\xbf" + delimited::Write(table, kSeparator);
}

}  // namespace laboratory
