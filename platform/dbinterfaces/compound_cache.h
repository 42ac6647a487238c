// SPDX-License-Identifier: MIT
#pragma once

/// All compounds of the user database as they were at one of its changes, ready to be filtered at every key.
/// Immutable. Internal to this library.

#include "dbinterfaces/db_objects.h"

#include <string>
#include <vector>

class CompoundCache
{
public:
    /// `change` is the number of the last change that they contain; they are in the order in which they are
    /// shown.
    CompoundCache(int change, std::vector<DBObjects::Compound> compounds);

    int GetChange() const { return m_change; }
    /// See ProjectDatabase::GetCompounds.
    std::vector<DBObjects::Compound> Filter(const std::string& element, const std::string& category,
                                            const std::string& search) const;

private:
    int m_change;
    std::vector<DBObjects::Compound> m_compounds;
    std::vector<std::string> m_texts;  ///< name, formula and names in other languages, in lower case
};
