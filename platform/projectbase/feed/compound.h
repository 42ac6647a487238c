// SPDX-License-Identifier: MIT
#pragma once

/// One compound as its user edits it: what is stated, and what follows from it. GUI-free; a value type.

#include "core/chemical_formula_parser.h"
#include "dbinterfaces/db_objects.h"
#include "projectbase/feed/acid_base.h"
#include "projectbase/projectbase_export.h"

#include <cstdint>
#include <string>
#include <vector>

class PROJECTBASE_EXPORT Compound
{
public:
    using CompoundElement = ::CompoundElement;

    /// Which sign the ionic charge has; a compound without one counts as a cation.
    enum class IonKind
    {
        Cation = 0,
        Anion = 1
    };

    Compound() = default;
    /// Throws DatabaseError when the elements cannot be read.
    explicit Compound(const DBObjects::Compound& record);
    /// The record with the identifier that it had (-1: a new one).
    DBObjects::Compound ToRecord() const;

    std::int32_t id = -1;
    std::string name;
    std::string category;
    AcidBase acidBase = AcidBase::Neutral;
    std::int32_t valency = 0;            ///< eq/mol
    std::int32_t oxidationNrCommon = 0;  ///< of the base element
    double pKa = std::numeric_limits<double>::quiet_NaN();

    const std::string& GetFormula() const { return m_formula; }
    /// The elements follow, and the base element where the formula no longer holds it: it then is the first
    /// that is neither hydrogen nor oxygen, else the first.
    void SetFormula(const std::string& formula);
    /// Parts of the formula that cannot be read.
    const std::vector<FormulaFault>& GetFormulaFaults() const { return m_faults; }
    const std::vector<CompoundElement>& GetElements() const { return m_elements; }

    const std::string& GetBaseElement() const { return m_baseElement; }
    /// Ignored when the formula lacks it.
    void SetBaseElement(const std::string& symbol);

    /// Signed.
    std::int32_t GetIonicCharge() const { return m_charge; }
    void SetIonicCharge(std::int32_t charge);
    IonKind GetIonKind() const { return m_ionKind; }
    /// Turns the charge's sign where it has another one.
    void SetIonKind(IonKind kind);

    /// g/mol; NaN while the formula cannot be read as a whole.
    double GetMolweight() const;
    /// Percent of the molar mass; NaN as above.
    double GetBaseElementPercent() const;
    formula::AcidConstants GetAcidConstants() const { return formula::ConstantsOfPka(pKa); }
    /// Common oxidation numbers of the base element, separated by blanks.
    std::string GetBaseOxidationNumbers() const;

    /// Whether it can be stored: it has a name and a formula, of which parts may be unreadable.
    bool IsValid() const;

    bool operator==(const Compound& other) const;

private:
    std::string m_formula;
    std::string m_baseElement;
    std::int32_t m_charge = 0;
    IonKind m_ionKind = IonKind::Cation;
    std::vector<CompoundElement> m_elements;
    std::vector<FormulaFault> m_faults;
};
