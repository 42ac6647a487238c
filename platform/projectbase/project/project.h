// SPDX-License-Identifier: MIT
#pragma once

/// A project: its waters, the unit system on display, how far it is calculated and whether it has unsaved
/// changes. It knows no file; project_file.h loads and saves it. One thread at a time.

#include "projectbase/details/detail_groups.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/feed/feed_medium.h"
#include "projectbase/project/logger.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/liquid_data.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class PROJECTBASE_EXPORT Project
{
public:
    /// A project of a module type (for example "iex") with no water yet, shown in ISO units.
    explicit Project(std::string moduleType);
    virtual ~Project();
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    const std::string& GetModuleType() const { return m_moduleType; }

    /// Name of the displayed unit system; "iso" means ISO units.
    const std::string& GetUnitSystemDisplay() const { return m_unitSystem; }
    void SetUnitSystemDisplay(const std::string& unitSystem) { m_unitSystem = unitSystem; }

    bool IsChanged() const { return m_changed; }
    void SetChanged(bool changed) { m_changed = changed; }

    /// Level up to which the design is calculated.
    long GetStatus() const { return m_status; }
    void ResetStatus(long level) { m_status = level; }

    Logger& GetLogger() { return m_logger; }

    /// Details of the project itself (title, customer, arrangement, ...).
    DetailList& GetDetails() { return m_details; }
    const DetailList& GetDetails() const { return m_details; }

    /// Details that occur many times, each time as a group: kind "feedcompound" and the like. Null where
    /// there are none.
    DetailGroupsPtr GetDetailGroups(const std::string& kind) const;
    const std::map<std::string, DetailGroupsPtr>& GetAllDetailGroups() const { return m_groups; }
    /// Replaces all groups of a kind. Groups that are equal to former ones are shared with them.
    void SetDetailGroups(const std::string& kind, std::vector<DetailGroup> groups);
    /// Brings back what GetDetailGroups gave.
    void RestoreDetailGroups(const std::string& kind, const DetailGroupsPtr& groups);

    /// The medium that feed and organics are dissolved in; its temperature in °C.
    FeedMedium::Data LoadFeedMediumFromDetails() const;
    /// Takes the temperature in whatever unit it has.
    void SaveFeedMediumToDetails(const FeedMedium::Data& medium);

    std::size_t GetLiquidCount() const { return m_liquids.size(); }
    /// The water with that index; throws std::out_of_range. Its address is stable until it is removed.
    LiquidData& GetLiquid(std::size_t index);
    const LiquidData& GetLiquid(std::size_t index) const;
    LiquidData& AddLiquid(const std::string& name);
    void RemoveLiquid(std::size_t index);

    /// See water/normalization.h.
    void NormalizeIon(std::size_t liquid, const std::string& ion, bool checkName);
    /// Every ion of a water; with `derived`, also its sums and derived values.
    void NormalizeIons(std::size_t liquid, bool derived);
    void NormalizeLiquid(std::size_t liquid) { NormalizeIons(liquid, true); }

    /// Alkalises a normalised water while an agent is chosen for it; see water/alkalization.h.
    water::AlkalizationResult CalculateAlkalization(std::size_t liquid);
    /// Mixes a water that is a blend anew; false when it is none, or when its waters are no longer there or
    /// stand behind it (it then stays as it is). See water/blend.h.
    bool UpdateBlend(std::size_t liquid);
    /// Blends, normalises and alkalises one water.
    void CalculateLiquid(std::size_t liquid);
    /// Recalculates whatever depends on the inputs of the project.
    virtual void CalculateDesign();

private:
    std::string m_moduleType;
    std::string m_unitSystem = "iso";
    bool m_changed = false;
    long m_status = 0;
    Logger m_logger;
    DetailList m_details;
    std::map<std::string, DetailGroupsPtr> m_groups;  ///< by kind; no empty ones
    std::vector<std::unique_ptr<LiquidData>> m_liquids;
};
