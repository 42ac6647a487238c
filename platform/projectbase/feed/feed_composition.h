// SPDX-License-Identifier: MIT
#pragma once

/// The compounds that a feed, and on request the treated effluent, contain.
///
/// A concentration can be given in any of seven units; the other six follow from the molar mass, the valency
/// and the density of the solution. After every change the totals are those of the new entries. A value that
/// is not known is not a number, and so is every sum that it is part of. A value type; one thread at a time.

#include "dbinterfaces/db_objects.h"
#include "projectbase/feed/acid_base.h"
#include "projectbase/feed/feed_medium.h"
#include "projectbase/projectbase_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

class PROJECTBASE_EXPORT FeedComposition
{
public:
    /// In the order of the columns of the grids.
    enum class Unit : std::size_t
    {
        MgPerLitre,
        MmolPerLitre,
        MeqPerLitre,
        MgPerKg,
        MicroEqPerLitre,
        Ppb,
        Ppt
    };
    static constexpr std::size_t kUnitCount = 7;
    /// UTF-8, by Unit.
    static constexpr std::array<const char*, kUnitCount> kUnitTexts{"mg/l",  "mmol/l", "meq/l", "mg/kg",
                                                                    "µeq/l", "ppb",    "ppt"};

    /// One concentration in all units.
    struct Concentration
    {
        std::array<double, kUnitCount> values{};
        /// Of a solution of this compound alone; NaN where there is none (an ion alone is no solution).
        double pH = std::numeric_limits<double>::quiet_NaN();
        /// The unit that was typed last; its value brings back what equivalents alone cannot hold. Never one
        /// per mass of solution, which the density changes.
        Unit typed = Unit::MeqPerLitre;

        double operator[](Unit unit) const { return values[static_cast<std::size_t>(unit)]; }
        double& operator[](Unit unit) { return values[static_cast<std::size_t>(unit)]; }
    };

    struct CompoundEntry
    {
        std::string name;
        std::string formula;
        std::int32_t acidBase = 0;  ///< see AcidBase
        std::int32_t ionicCharge = 0;
        std::int32_t valency = 0;  ///< eq/mol
        double molweight = 0.0;    ///< g/mol
        double pKa = std::numeric_limits<double>::quiet_NaN();
        std::int32_t oxidationNrCommon = 0;
        std::string category;
        Concentration feed;
        Concentration effluent;

        /// The record of a database that this entry came from or could become; its identifier is -1.
        DBObjects::Compound ToRecord() const;
    };

    /// What all entries of one side amount to.
    struct Totals
    {
        std::array<double, kUnitCount> values{};
        double cations = 0.0;  ///< meq/l of the entries with a positive charge
        double anions = 0.0;   ///< meq/l of those with a negative one
        /// Of the solution that the entries make; NaN where their charges cannot be balanced between pH -1
        /// and 15, where a pKa is missing or the medium is not liquid.
        double pH = std::numeric_limits<double>::quiet_NaN();
        /// Strong base (positive) or acid (negative), meq/l, that brings the feed to the pH it is adjusted
        /// to.
        double adjustment = std::numeric_limits<double>::quiet_NaN();

        double operator[](Unit unit) const { return values[static_cast<std::size_t>(unit)]; }
    };

    /// Adds an entry with concentrations 0 at the end; its molar mass follows from the formula.
    void Add(const DBObjects::Compound& compound);
    /// Adds an entry as it is.
    void Add(CompoundEntry entry);
    /// Throws std::out_of_range, as do all that name an entry.
    void Remove(std::size_t index);
    void Clear();
    const std::vector<CompoundEntry>& GetEntries() const { return m_entries; }

    /// The user states a concentration of the feed: the others of its block follow. A molar mass that is not
    /// positive cannot lead from mass to amount, a valency that is not positive not from equivalents to
    /// amount: the amount then keeps its former value. An effluent that would now exceed its feed is lowered.
    void SetFeed(std::size_t index, Unit unit, double value);
    /// The same for the effluent, whose base value (mg/l, mmol/l or meq/l) is brought into the range from 0
    /// to the feed's.
    void SetEffluent(std::size_t index, Unit unit, double value);

    const Totals& GetFeedTotals() const { return m_feedTotals; }
    const Totals& GetEffluentTotals() const { return m_effluentTotals; }

    /// Solution density, kg/l. The contents per mass follow.
    double GetDensity() const { return m_medium.density; }
    void SetDensity(double kgPerLitre);
    const FeedMedium::Data& GetMedium() const { return m_medium; }
    /// Takes identifier, temperature and density.
    void SetMedium(const FeedMedium::Data& medium);

    /// Whether the user states the total pH, to which strong acid or base then brings the feed.
    bool IsPhAdjusted() const { return m_adjustPh; }
    void SetPhAdjusted(bool adjusted);
    /// The pH that the user stated while it is adjusted, else that of the feed's totals.
    double GetTotalPh() const { return m_adjustPh ? m_statedPh : m_feedTotals.pH; }
    /// The stated pH, whether or not it counts.
    double GetStatedPh() const { return m_statedPh; }
    void SetStatedPh(double pH);

    bool UsesEffluent() const { return m_useEffluent; }
    void SetUsesEffluent(bool uses) { m_useEffluent = uses; }

    /// For many changes in a row: the totals and the pH of the entries follow only at the end of its life.
    /// The composition must not be copied or moved meanwhile.
    class PROJECTBASE_EXPORT Batch
    {
    public:
        explicit Batch(FeedComposition& composition);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        FeedComposition& m_composition;
    };

private:
    void UpdateTotals();
    void UpdatePhOf(CompoundEntry& entry) const;

    std::vector<CompoundEntry> m_entries;
    Totals m_feedTotals;
    Totals m_effluentTotals;
    FeedMedium::Data m_medium{.temperature = {20.0, TemperatureUnit::Celsius}};
    double m_statedPh = std::numeric_limits<double>::quiet_NaN();
    bool m_adjustPh = false;
    bool m_useEffluent = false;
    int m_batches = 0;
};
