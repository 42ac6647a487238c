// SPDX-License-Identifier: MIT
#pragma once

/// The read-only master data that come with the program: the catalogue of details, ions, elements, countries,
/// currencies and a library of waters. The file is opened on first use. All calls may come from any thread;
/// they throw DatabaseError when the file is missing, damaged or of another schema.

#include "dbinterfaces/db_objects.h"
#include "dbinterfaces/dbinterfaces_export.h"

#include <filesystem>
#include <string>
#include <vector>

class DBINTERFACES_EXPORT MasterDatabase
{
public:
    MasterDatabase() = delete;

    /// The file in use: "master.db" in the data folder unless another one was set.
    static std::filesystem::path GetPath();
    /// Uses another file from the next call on; an empty path goes back to the installed one.
    static void SetPath(const std::filesystem::path& path);

    /// Details of a catalogue group in the order of their names; empty when there is no such group.
    static std::vector<DBObjects::DetailDefinition> GetDetailDefinitions(const std::string& group,
                                                                         const std::string& variant);

    /// Ions in the order of the analysis. `key` is an ion key or "%" for all; `kind` and `symbol` are
    /// patterns in which
    /// "%" stands for any text.
    static std::vector<DBObjects::Ion> GetIons(const std::string& key, const std::string& kind,
                                               const std::string& symbol);

    /// All elements by atomic number.
    static std::vector<DBObjects::Element> GetElementsFromPeriodicSystem();

    /// All countries with their names in `language` ("de", "pt_BR"), or in English where it has none.
    /// The order is that of the codes: sorting by name needs the user's locale.
    static std::vector<DBObjects::Country> GetCountries(const std::string& language = {});
    /// Name of the country with that two-letter code; empty when there is none.
    static std::string GetCountry(const std::string& code, const std::string& language = {});

    /// All currencies with their names in `language`, or in English where it has none, in the order of their
    /// codes.
    static std::vector<DBObjects::Currency> GetCurrencies(const std::string& language = {});

    /// The bases that a water can be alkalised with, in the order in which they are offered.
    static std::vector<DBObjects::AlkalizingAgent> GetAlkalizingAgents();

    /// The compounds that a new user database begins with, by identifier.
    static std::vector<DBObjects::Compound> GetSuppliedCompounds();
    /// What they are called in other languages than English.
    static std::vector<DBObjects::CompoundName> GetCompoundNames();

    /// The feed mediums that a module ("iex") offers for a usage ("INPUT_FEED", "INPUT_ORGANICS"), in the
    /// order in which they are offered.
    static std::vector<DBObjects::FeedMedium> GetFeedMediums(const std::string& module,
                                                             const std::string& usage);
    /// The feed medium with that identifier; identifier -1 where there is none.
    static DBObjects::FeedMedium GetFeedMedium(int id);

    /// The types of plants in the order in which they are offered.
    static std::vector<DBObjects::PlantType> GetPlantTypes();

    /// What exchangers are regenerated with, in the order in which it is offered.
    static std::vector<DBObjects::Regenerant> GetRegenerants();

    /// What flows in the rows of regeneration sequences, and what these can be, in the order in which it is
    /// offered; and the rows that each kind of exchanger begins with, in their order.
    static std::vector<DBObjects::SequenceMedium> GetSequenceMedia();
    static std::vector<DBObjects::SequenceType> GetSequenceTypes();
    static std::vector<DBObjects::SequenceDefault> GetSequenceDefaults();

    /// The resins with how they are regenerated, in the order in which they are offered.
    static std::vector<DBObjects::Resin> GetResins();
    /// How exchangers begin: what is for one type of plant only comes first.
    static std::vector<DBObjects::ExchangerDefault> GetExchangerDefaults();

    /// The pairs of values that a what-if analysis of a type of plant offers, in their order; none for a type
    /// that there is not.
    static std::vector<DBObjects::WhatIfPair> GetWhatIfTable(const std::string& type);

    /// The graphic of that type ("LINE") for the exchangers of a plant of that type, in flow order;
    /// identifier -1 where there is none.
    static DBObjects::GraphicInfo GetGraphicInfo(const std::string& moduleType,
                                                 const std::string& graphicType,
                                                 const std::vector<std::string>& keys);

    /// What the organic load of a water can consist of, by a pattern of the key in which "%" stands for any
    /// text; "none" is first.
    static std::vector<DBObjects::Organic> GetOrganics(const std::string& pattern = "%");

    /// The kinds of waters in the order in which they are offered.
    static std::vector<DBObjects::WaterType> GetWaterTypes();
    /// Description of the water type with that code; empty when there is none.
    static std::string GetWaterTypeDescription(const std::string& code);

    /// Categories in their order, countries of a category by name.
    static std::vector<DBObjects::WaterLibCategory> WaterLib_GetCategories();
    static std::vector<DBObjects::WaterLibCountry> WaterLib_GetCountries(int categoryId);
    /// The waters of all those countries and of all countries of those categories, each once, by country,
    /// place and source.
    static std::vector<DBObjects::WaterLibWater> WaterLib_GetWatersByCriteria(
        const std::vector<int>& nodeIds);
    /// The values of a water by key; see ProjectDatabase::WaterLib_GetUserAnalysisById.
    static std::vector<DBObjects::WaterLibAttr> WaterLib_GetAnalysisById(int waterId);
};
