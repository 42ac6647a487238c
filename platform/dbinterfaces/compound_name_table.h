// SPDX-License-Identifier: MIT
#pragma once

/// The names of the supplied compounds in all languages, for searches. Internal to this library.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class CompoundNameTable
{
public:
    /// The order in which names are listed: by bytes, except for the case of ASCII letters.
    static bool IsBefore(std::string_view a, std::string_view b);

    /// The one of the master database; an empty one where it cannot be read.
    static std::shared_ptr<const CompoundNameTable> Get();
    /// Another master database is in use from now on.
    static void Forget();

    /// Language and name, those of a compound; nothing for one that is not supplied. The case of ASCII
    /// letters in the English name does not matter.
    using Translations = std::vector<std::pair<std::string, std::string>>;
    const Translations* Find(std::string_view name, std::string_view formula) const;
    /// The English name of the compound that is called so in that language, or nothing.
    const std::string* FindFiled(std::string_view shown, std::string_view formula,
                                 std::string_view language) const;
    /// The English names of all compounds of which a name in another language contains that text, whatever
    /// its case.
    std::vector<std::string> FiledUnder(const std::string& part) const;

private:
    struct Names
    {
        std::string filed;
        std::string formula;
        Translations others;
    };
    std::vector<Names> m_compounds;
    std::unordered_map<std::uint64_t, std::size_t> m_places;  ///< by the hash of name and formula
};
