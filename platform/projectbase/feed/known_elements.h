// SPDX-License-Identifier: MIT
#pragma once

/// The elements of the master database as formulas need them. Read once; may be called from any thread.

#include "core/chemical_formula_parser.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <vector>

/// By atomic number. Throws DatabaseError.
PROJECTBASE_EXPORT const std::vector<CompoundElement>& KnownElements();
/// A parser that knows them.
PROJECTBASE_EXPORT const ChemicalFormulaParser& FormulaParser();
/// g/mol; NaN for a formula that cannot be read as a whole.
PROJECTBASE_EXPORT double MolarMassOfFormula(const std::string& formula);
