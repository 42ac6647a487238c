// SPDX-License-Identifier: MIT
#include "projectbase/feed/compound_attributes.h"

#include "core/text_limits.h"
#include "projectbase/feed/compounds_importer.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <variant>

namespace compound_attributes {

namespace {

using DBObjects::Compound;

constexpr std::string_view kFormula = "formula";

/// The name of an attribute and the field that it holds.
struct Field
{
    std::string_view name;
    std::variant<std::string Compound::*, std::int32_t Compound::*, double Compound::*> member;
};
/// In the order in which they are written.
const std::array<Field, 9> kFields{{
    {"name", &Compound::name},
    {kFormula, &Compound::formula},
    {"baseElement", &Compound::baseElement},
    {"pka", &Compound::pKa},
    {"valency", &Compound::valency},
    {"oxidationNrCommon", &Compound::oxidationNrCommon},
    {"conjugate", &Compound::conjugate},
    {"ionicCharge", &Compound::ionicCharge},
    {"category", &Compound::category},
}};

/// An unknown number has this text, whatever its sign bit.
constexpr const char* kUnknownNumber = "nan";

std::string ToText(const std::string& text)
{
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20)
            throw std::invalid_argument(
                fmt::format("CompoundsImporter::Export: '{}' holds a control character", text));
    }
    return text;
}
std::string ToText(std::int32_t number)
{
    return fmt::format("{}", number);
}
std::string ToText(double number)
{
    return std::isnan(number) ? kUnknownNumber : fmt::format("{:.16e}", number);
}

template <typename Number>
bool ReadNumber(std::string_view text, Number& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool FromText(std::string_view text, std::string& field)
{
    field = text;
    return true;
}
bool FromText(std::string_view text, std::int32_t& field)
{
    return ReadNumber(text, field);
}
bool FromText(std::string_view text, double& field)
{
    if (text == kUnknownNumber) {
        field = std::nan("");
        return true;
    }
    return ReadNumber(text, field) && std::isfinite(field);
}

}  // namespace

const std::size_t kCount = kFields.size();

std::vector<std::pair<std::string, std::string>> Write(const Compound& compound)
{
    std::vector<std::pair<std::string, std::string>> attributes;
    for (const Field& field : kFields)
        attributes.emplace_back(
            field.name,
            std::visit([&compound](auto member) { return ToText(compound.*member); }, field.member));
    return attributes;
}

Compound Read(std::string_view element, std::span<const Attribute> attributes, std::size_t number)
{
    const auto fail = [number](const std::string& what) {
        throw CompoundFileError(fmt::format("compound {}: {}", number, what));
    };
    constexpr std::size_t kShown = 100;
    if (element != kElement)
        fail(fmt::format("'{}' is no compound", element.substr(0, kShown)));
    Compound compound;
    for (const Field& field : kFields) {
        const auto found = std::ranges::find(attributes, field.name, &Attribute::first);
        if (found == attributes.end())
            fail(fmt::format("the attribute '{}' is missing", field.name));
        const std::string_view text = found->second;
        const std::size_t most = field.name == kFormula ? text_limits::kFormula : text_limits::kName;
        if (text_limits::CountLetters(text) > most)
            fail(fmt::format("the attribute '{}' has more than {} letters", field.name, most));
        if (!std::visit([&](auto member) { return FromText(text, compound.*member); }, field.member))
            fail(fmt::format("the attribute '{}' cannot be read: '{}'", field.name, text.substr(0, kShown)));
    }
    if (attributes.size() != kFields.size())
        fail("an attribute occurs twice or is not known");
    if (compound.name.empty() || compound.formula.empty())
        fail("name or formula is empty");
    return compound;
}

}  // namespace compound_attributes
