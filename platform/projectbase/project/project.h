// SPDX-License-Identifier: MIT
#pragma once

/// A project: its waters and its plant, the unit system on display and how far it is calculated. It knows no
/// file; project_file.h loads and saves it. One thread at a time.
///
/// The project tells, its observers follow: everything is written inside a ProjectEdit, whose end calculates
/// and tells once. See project_edit.h.

#include "projectbase/details/detail_groups.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/feed/feed_medium.h"
#include "projectbase/project/logger.h"
#include "projectbase/project/owner_node.h"
#include "projectbase/project/project_changes.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/liquid_data.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class ProjectJournal;
struct TypedInput;

/// How far a project has come; what each level means for the panels is theirs to say.
enum ProjectStatus : long
{
    StatusNew = 0,
    StatusWaters = 1,    ///< its waters are normalised
    StatusComplete = 2,  ///< the inputs of the design are complete
    StatusDesigned = 3,
    StatusCosts = 4
};

class PROJECTBASE_EXPORT Project
{
public:
    /// A project of a module type (for example "iex") with no water yet, shown in ISO units.
    explicit Project(std::string moduleType);
    virtual ~Project();
    Project& operator=(const Project&) = delete;

    const std::string& GetModuleType() const { return m_moduleType; }
    /// Names another type. What the new type needs and the old one had stays as it is.
    void SetModuleType(const std::string& type);

    /// Name of the displayed unit system; "iso" means ISO units.
    const std::string& GetUnitSystemDisplay() const { return m_unitSystem; }
    void SetUnitSystemDisplay(const std::string& unitSystem) { m_unitSystem = unitSystem; }

    /// Whether anything was written since the flag was cleared. What is unsaved, the document knows.
    bool IsChanged() const { return m_changed; }
    void SetChanged(bool changed) { m_changed = changed; }

    /// Level up to which the design is calculated; see ProjectStatus.
    long GetStatus() const { return m_status; }
    void ResetStatus(long level) { m_status = level; }
    /// Whether all inputs of a design are there: exchangers, a water or a feed, how much of it and for how
    /// long, resins and regenerant levels.
    virtual bool IsReadyToCalculate() const { return false; }

    /// The graphics that show the project: of each its type and what it depends on, here the kinds of the
    /// exchangers in flow order.
    using GraphicConfigTypes = std::vector<std::pair<std::string, std::vector<std::string>>>;
    virtual GraphicConfigTypes GetGraphicConfigTypes() const { return {}; }

    Logger& GetLogger() { return m_logger; }

    /// An independent project with the same values under the same addresses. Nobody observes it.
    virtual std::unique_ptr<Project> Clone() const;

    /// Observers are told in the order in which they came. Not owned; they leave before they go.
    void AddObserver(ProjectObserver& observer);
    void RemoveObserver(ProjectObserver& observer);

    /// Details of the project itself (title, customer, arrangement, ...).
    DetailList& GetDetails() { return *m_root.GetDetails(); }
    const DetailList& GetDetails() const { return *m_root.GetDetails(); }

    /// The project as the owner above all others.
    OwnerNode& GetRoot() { return m_root; }
    const OwnerNode& GetRoot() const { return m_root; }
    /// The owner of that identity, or null.
    OwnerNode* FindOwner(DetailOwner owner);
    const OwnerNode* FindOwner(DetailOwner owner) const;
    /// The owner of a written path ("water.1", "ex.2.comp.1.resin.1", "ex.2.seq.4", "" for the project), or
    /// null. Places count from 1.
    OwnerNode* FindOwner(std::string_view path);
    /// An input of the owner was typed, also where its value is what it was before: what follows from several
    /// inputs asks which of them was typed last. Within an edit.
    void NoteTyped(OwnerNode& owner, DetailData& detail);
    /// The path of an owner at its present place; empty for the project.
    std::string PathOf(DetailOwner owner) const;
    /// The detail at an address, or null; of a list's entry there is none.
    DetailData* FindDetail(const DetailAddress& address);
    /// Where a detail of the project lives; nothing for one that is none of its owners'.
    std::optional<DetailAddress> AddressOf(const DetailData& detail) const;

    /// Adds an owner of a kind that its parent can have, at a place (at the end when there are fewer).
    OwnerNode& AddOwner(OwnerNode& parent, std::shared_ptr<OwnerNode> node, std::size_t position);
    OwnerNode& AddOwner(OwnerNode& parent, OwnerKind kind, const std::string& name = {});
    void RemoveOwner(OwnerNode& node);
    void MoveOwner(OwnerNode& node, std::size_t position);
    /// A blend goes on using a water under its new name.
    void RenameOwner(OwnerNode& node, const std::string& name);

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

    std::size_t GetLiquidCount() const { return m_root.GetChildren(OwnerKind::Water).size(); }
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
    /// Whether UpdateBlend mixes that water: a recipe whose waters are not there leaves an ordinary water.
    bool IsMixed(const LiquidData& liquid) const;
    /// Blends, normalises and alkalises one water, whether or not it is out of date.
    void CalculateLiquid(std::size_t liquid);
    /// Recalculates whatever an input was changed of since it was calculated, and what follows from that.
    /// Runs by itself at the end of an edit.
    virtual void CalculateDesign();

protected:
    Project(const Project& other);
    /// Designs the plant from its waters, which are up to date; runs within the edit when an input of
    /// anything changed, and nothing of what it writes counts as typed.
    virtual void CalculatePlant() {}
    /// How far the project has come by what is known of it.
    virtual long ReachedStatus() const;
    /// What typed inputs bring about in others; runs before anything is calculated from them.
    virtual void ApplyRules(const std::vector<TypedInput>& typed);

private:
    friend class OwnerNode;
    friend class ProjectEdit;

    void BeginEdit(EditKind kind, std::string name);
    void EndEdit() noexcept;
    void FinishEdit();
    void ApplyPendingRules();
    void Tell(const ProjectChanges& changes);
    /// Takes a node and all below it into the project, or out of it.
    void Register(OwnerNode& node);
    void Unregister(OwnerNode& node);
    /// What a water is mixed of stands before it under the name of its recipe: blends come to life, to rest
    /// or to other sources when waters come, go, move or are renamed.
    /// Blends, normalises and alkalises one water; the blends of it are not told.
    void CalculateOne(std::size_t liquid);
    /// For each water the places of the blends that are made of it.
    std::vector<std::vector<std::size_t>> BlendsOfWaters() const;
    /// Where the waters of a blend stand; empty where one is not among those before it.
    static std::vector<std::size_t> PlacesOf(const LiquidData& blend,
                                             const std::unordered_map<std::string_view, std::size_t>& before);
    /// The water that the plant takes, where owners of that kind are about to change otherwise than back or
    /// forth in the history, which knows it.
    const OwnerNode* FeedOf(OwnerKind changed) const;
    /// The plant keeps its water, whichever place that has in the list now.
    void KeepFeed(const OwnerNode* feed);
    void PutBlendsOutOfDate(OwnerKind changed);
    /// Whether a change lets a design be out of date.
    bool CountsForDesign(const StackElement& element);
    void NoteStructure(StructureChange change);
    /// Whether an input changed, of whatever owner, since the plant was designed.
    bool IsPlantOutOfDate();
    void UpdateStatus(bool changed);
    /// The waters of a blend, as its recipe names them; none where one of them does not stand before it.
    std::vector<const LiquidData*> WatersOf(const LiquidData& blend) const;

    std::string m_moduleType;
    std::string m_unitSystem = "iso";
    bool m_changed = false;
    long m_status = 0;
    Logger m_logger;
    OwnerNode m_root{OwnerKind::Project};
    std::unordered_map<std::uint32_t, OwnerNode*> m_owners;
    std::uint32_t m_lastOwner = 0;
    std::map<std::string, DetailGroupsPtr> m_groups;  ///< by kind; no empty ones
    std::unique_ptr<ProjectJournal> m_journal;
    std::vector<ProjectObserver*> m_observers;
};
