// SPDX-License-Identifier: MIT
#include "projectbase/feed/compound.h"

#include "projectbase/feed/known_elements.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/// The element that a compound is found under unless its user says otherwise.
std::string DefaultBaseElement(const std::vector<CompoundElement>& elements)
{
    for (const CompoundElement& element : elements) {
        if (element.symbol != "H" && element.symbol != "O")
            return element.symbol;
    }
    return elements.empty() ? std::string() : elements.front().symbol;
}

const CompoundElement* Find(const std::vector<CompoundElement>& elements, const std::string& symbol)
{
    const auto found =
        std::find_if(elements.begin(), elements.end(),
                     [&symbol](const CompoundElement& element) { return element.symbol == symbol; });
    return found == elements.end() ? nullptr : &*found;
}

}  // namespace

Compound::Compound(const DBObjects::Compound& record)
    : id(record.id),
      name(record.name),
      category(record.category),
      acidBase(static_cast<AcidBase>(record.conjugate)),
      valency(record.valency),
      oxidationNrCommon(record.oxidationNrCommon),
      pKa(record.pKa)
{
    SetFormula(record.formula);
    // An element that the formula lacks is kept as it was stored.
    if (!record.baseElement.empty())
        m_baseElement = record.baseElement;
    SetIonicCharge(record.ionicCharge);
}

DBObjects::Compound Compound::ToRecord() const
{
    return {.id = id,
            .baseElement = m_baseElement,
            .name = name,
            .formula = m_formula,
            .pKa = pKa,
            .valency = valency,
            .oxidationNrCommon = oxidationNrCommon,
            .conjugate = static_cast<std::int32_t>(acidBase),
            .ionicCharge = m_charge,
            .category = category};
}

void Compound::SetFormula(const std::string& formula)
{
    const ChemicalFormulaParser& parser = FormulaParser();
    m_formula = formula;
    m_faults = parser.FindFaults(formula);
    try {
        m_elements = parser.Parse(formula);
    } catch (const std::out_of_range&) {
        m_elements.clear();  // the faults say so
    }
    if (Find(m_elements, m_baseElement) == nullptr)
        m_baseElement = DefaultBaseElement(m_elements);
}

void Compound::SetBaseElement(const std::string& symbol)
{
    if (Find(m_elements, symbol) != nullptr)
        m_baseElement = symbol;
}

void Compound::SetIonicCharge(std::int32_t charge)
{
    m_charge = charge;
    if (charge != 0)
        m_ionKind = charge > 0 ? IonKind::Cation : IonKind::Anion;
}

void Compound::SetIonKind(IonKind kind)
{
    const std::int32_t magnitude = m_charge == std::numeric_limits<std::int32_t>::min()
                                       ? std::numeric_limits<std::int32_t>::max()
                                       : std::abs(m_charge);
    m_ionKind = kind;
    m_charge = kind == IonKind::Anion ? -magnitude : magnitude;
}

double Compound::GetMolweight() const
{
    return m_faults.empty() ? formula::MolarMass(m_elements) : std::nan("");
}

double Compound::GetBaseElementPercent() const
{
    return m_faults.empty() ? formula::WeightPercent(m_elements, m_baseElement) : std::nan("");
}

std::string Compound::GetBaseOxidationNumbers() const
{
    const CompoundElement* element = Find(m_elements, m_baseElement);
    return element == nullptr ? std::string() : element->oxidationNumbers;
}

bool Compound::IsValid() const
{
    return !name.empty() && !m_formula.empty();
}

bool Compound::operator==(const Compound& other) const
{
    const bool samePka = pKa == other.pKa || (std::isnan(pKa) && std::isnan(other.pKa));
    return samePka && id == other.id && name == other.name && category == other.category &&
           acidBase == other.acidBase && valency == other.valency &&
           oxidationNrCommon == other.oxidationNrCommon && m_formula == other.m_formula &&
           m_baseElement == other.m_baseElement && m_charge == other.m_charge && m_ionKind == other.m_ionKind;
}
