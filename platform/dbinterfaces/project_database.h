// SPDX-License-Identifier: MIT
#pragma once

/// The user's own data: an SQLite file in the user's data folder, or a PostgreSQL database that a team
/// shares.
///
/// The database that was opened last is used by the whole process; without an Open, the first call opens the
/// default one. All calls may come from any thread and throw DatabaseError, whose text names the method and
/// the cause. Several programs may use the same database: a call waits for others up to the busy timeout. A
/// server that does not answer ends a call (TimedOut) after 10 s, or after the tcp_user_timeout of the
/// connection text; the next call connects again. A file that was removed while it was in use is reported by
/// the next call; the one after that makes a new one.

#include "dbinterfaces/db_objects.h"
#include "dbinterfaces/dbinterfaces_export.h"
#include "dbinterfaces/wait_indicator.h"

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <vector>

class DBINTERFACES_EXPORT ProjectDatabase
{
public:
    ProjectDatabase() = delete;

    /// Opens "sqlite3://PATH", an absolute path, "postgresql://dbname=... host=..." or a PostgreSQL URI; an
    /// empty text means the default file. Missing tables are created, older ones migrated. When this fails,
    /// the database that was open stays open.
    static void Open(const std::string& connectionText);
    /// Opens the database that the local parameter "/Settings/database.connection" names.
    static void OpenConfigured();
    static void Close();
    static bool IsOpen();

    /// How long a database that somebody else has locked is waited for; holds for the next Open. 5 s by
    /// default.
    static void SetBusyTimeout(std::chrono::milliseconds timeout);

    /// What is shown while a call of this thread waits for a server; nothing is without it.
    static void SetWaitIndicator(MakeWaitIndicator make);

    /// Value of a user parameter, or `defaultValue` where there is none. In a shared database a user's own
    /// value comes before the one that serves everybody.
    static std::string GetUserParameter(const std::string& key, const std::string& defaultValue = {});
    static std::string GetUserParameter(const std::string& key, const char* defaultValue);
    /// The same for "true" and "false"; any other text counts as missing.
    static bool GetUserParameter(const std::string& key, bool defaultValue);

    /// Stores a parameter of this user.
    static void SetUserParameter(const std::string& key, const std::string& value);
    static void SetUserParameter(const std::string& key, const char* value);
    static void SetUserParameter(const std::string& key, bool value);
    /// Parameters that stay on this machine, whichever database is open: they are kept in the default file.
    static std::string GetLocalParameter(const std::string& key, const std::string& defaultValue = {});
    static void SetLocalParameter(const std::string& key, const std::string& value);

    /// What is written during its life is written as a whole or, without a Commit, not at all. Other threads
    /// wait for its end, and so do other programs that begin one of their own: what it reads stays true until
    /// then. A Transaction inside another one is part of it. A connection that is lost meanwhile ends it; the
    /// calls then throw.
    class DBINTERFACES_EXPORT Transaction
    {
    public:
        Transaction();
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void Commit();

    private:
        std::unique_lock<std::recursive_mutex> m_lock;
        bool m_outermost = false;
        bool m_open = true;
    };

    // Texts of more letters than core/text_limits.h allows are refused (TooLong); nothing is stored then.

    // Conversion rates: how many units of a currency, by its code of ISO 4217, one euro is worth. Everybody
    // who uses the database shares them. The rate of EUR is 1 and is always there. What is no rate
    // (core/conversion_rate.h) is refused (OutOfRange) and changes nothing.

    /// NaN where none is known.
    static double GetConversionRate(const std::string& currency);
    /// All that are known, by code.
    static std::vector<DBObjects::ConversionRate> GetConversionRates();
    /// A rate that somebody typed.
    static void SetConversionRate(const std::string& currency, double rate);
    /// Puts the rates of a service in the place of all former ones, or nothing. Typed rates of currencies
    /// that the service does not have stay. EUR must be among them.
    static void SetConversionRates(const std::map<std::string, double>& rates);

    // Chemical compounds. A new database begins with those that the program supplies.

    /// All compounds by name.
    static std::vector<DBObjects::Compound> GetCompounds();
    /// The compounds whose formula holds that element, of that category, whose name or formula contains
    /// `search`, in whatever case of its letters, by name. An empty text does not filter.
    static std::vector<DBObjects::Compound> GetCompounds(const std::string& element,
                                                         const std::string& category,
                                                         const std::string& search);
    /// The compound with that identifier; identifier -1 where there is none.
    static DBObjects::Compound GetCompound(int id);
    /// The categories in use, in their order.
    static std::vector<std::string> GetCompoundCategories();
    /// Stores a compound under its identifier, or under a new one where that is negative; returns it.
    static int InsertOrReplaceCompound(const DBObjects::Compound& compound);
    /// The same for many, all or none; returns their identifiers.
    static std::vector<int> InsertOrReplaceCompounds(const std::vector<DBObjects::Compound>& compounds);
    /// Whether there was such a compound.
    static bool DeleteCompound(int id);

    // The library of waters. Countries are named in English, in whatever language they are shown.

    static std::vector<DBObjects::WaterLibCategory> WaterLib_GetUserCategories();
    static std::vector<DBObjects::WaterLibCountry> WaterLib_GetUserCountries(int categoryId);
    /// The waters of all those countries and of all countries of those categories, each once, by country,
    /// place and source.
    static std::vector<DBObjects::WaterLibWater> WaterLib_GetUserWatersByCriteria(
        const std::vector<int>& nodeIds);
    /// The stored values of a water by key; empty for a water that is not there. A value of 0 is not stored:
    /// apply them to a water whose values were cleared. An empty text means that a number is not known, which
    /// is neither 0 nor the default.
    static std::vector<DBObjects::WaterLibAttr> WaterLib_GetUserAnalysisById(int waterId);

    /// The country of that name; identifier -1 where there is none.
    static DBObjects::WaterLibCountry WaterLib_GetUserCountry(const std::string& name);
    /// Waters of exactly that place and source, other than the water `exceptId` (-1: all), by identifier.
    static std::vector<DBObjects::WaterLibWater> WaterLib_GetUserWatersByValues(int countryId,
                                                                                const std::string& place,
                                                                                const std::string& source,
                                                                                int exceptId);

    /// An identifier that no other call gets, whoever makes it. Those of countries are also no category's.
    static int GetNextWaterLibCountryId();
    static int GetNextWaterLibWatersId();

    /// Stores a country or renames the one of that identifier; false when another one has the name already.
    static bool WaterLib_SaveUserCountry(int id, const std::string& name);
    /// Stores a water or moves the one of that identifier; false when there is no such country.
    static bool WaterLib_SaveUserWater(int id, int countryId, const std::string& place,
                                       const std::string& source);
    /// Stores one value, in the place of the one with that key; false when there is no such water. `group` is
    /// that of the catalogue.
    static bool WaterLib_SaveUserLiquidDetail(int waterId, const std::string& key, const std::string& value,
                                              const std::string& unit, const std::string& label,
                                              const std::string& group);
    /// Removes all values of a water, which stays.
    static void WaterLib_DeleteUserLiquidDetails(int waterId);
    /// Removes a water with its values, or a country with its waters; false when it is not there.
    static bool WaterLib_DeleteUserWater(int id);
    static bool WaterLib_DeleteUserCountry(int id);
};
