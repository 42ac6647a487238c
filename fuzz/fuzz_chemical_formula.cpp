// SPDX-License-Identifier: MIT
// What is typed as a formula.
#include "core/chemical_formula_parser.h"

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <string_view>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

const ChemicalFormulaParser& Parser()
{
    static const ChemicalFormulaParser parser = [] {
        std::vector<CompoundElement> elements;
        for (const char* symbol : {"H", "C", "O", "Na", "S", "Cu"}) {
            elements.emplace_back();
            elements.back().symbol = symbol;
            elements.back().atomicMass = 1.0;
        }
        return ChemicalFormulaParser(elements);
    }();
    return parser;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view formula(reinterpret_cast<const char*>(data), size);
    const auto faults = Parser().FindFaults(formula);
    std::size_t behind = 0;
    for (const FormulaFault& fault : faults) {
        Require(fault.position >= behind || fault.kind == FormulaFault::Kind::Count);
        Require(fault.length > 0 && fault.position + fault.length <= formula.size());
        behind = fault.position;
    }
    try {
        const auto elements = Parser().Parse(formula);
        for (const CompoundElement& element : elements)
            Require(element.count > 0 || (element.count == 0 && !faults.empty()));
        // A formula without faults has a mass.
        Require(!faults.empty() || elements.empty() || formula::MolarMass(elements) > 0.0);
    } catch (const std::out_of_range&) {
        Require(!faults.empty());
    }
    return 0;
}
