// SPDX-License-Identifier: MIT
#include "projectbase/feed/known_elements.h"

#include "dbinterfaces/master_database.h"

#include <cmath>

const std::vector<CompoundElement>& KnownElements()
{
    static const std::vector<CompoundElement> elements = [] {
        std::vector<CompoundElement> known;
        for (const DBObjects::Element& element : MasterDatabase::GetElementsFromPeriodicSystem())
            known.push_back({.symbol = element.symbol,
                             .name = element.name,
                             .atomicMass = element.atomicWeight,
                             .elementClass = element.elementClass,
                             .atomicNumber = element.id,
                             .electronConfiguration = element.electronConfiguration,
                             .group1 = element.group > 0 ? std::to_string(element.group) : std::string(),
                             .group2 = element.groupOld,
                             .period = element.period,
                             .state = element.state,
                             .oxidationNumbers = element.oxidationStates,
                             .oxidationNumber = {}});
        return known;
    }();
    return elements;
}

const ChemicalFormulaParser& FormulaParser()
{
    static const ChemicalFormulaParser parser(KnownElements());
    return parser;
}

double MolarMassOfFormula(const std::string& formula)
{
    const ChemicalFormulaParser& parser = FormulaParser();
    return parser.FindFaults(formula).empty() ? formula::MolarMass(parser.Parse(formula)) : std::nan("");
}
