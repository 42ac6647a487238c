// SPDX-License-Identifier: MIT
#pragma once

/// The project of an ion-exchange plant: its exchangers in flow order, each with compartments, their resins
/// and the rows of its regeneration sequence, as owners of details.

#include "dbinterfaces/db_objects.h"
#include "projectbase/feed/feed_composition.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/sequence/reg_seq_data.h"

namespace iex {

class PROJECTBASE_EXPORT IEXProject : public Project
{
public:
    /// A project with one water, named "Feed water", at the defaults of the catalogue, and the exchangers
    /// that its type of plant cannot do without. "iex" has waters and feeds only. Throws
    /// std::invalid_argument for a type that the master database does not hold.
    explicit IEXProject(std::string type = "iex");

    /// The type of that name; nothing where there is none.
    static std::optional<DBObjects::PlantType> FindType(const std::string& type);
    /// Whether the type names this plant or a variant of it: "MBX" is a "MB".
    bool IsOfType(std::string_view type) const { return GetModuleType().starts_with(type); }

    std::unique_ptr<Project> Clone() const override;
    bool IsReadyToCalculate() const override;
    GraphicConfigTypes GetGraphicConfigTypes() const override;

    /// The exchangers of a line in flow order, here called steps of the treatment.
    std::size_t NumberSteps() const { return GetRoot().GetChildren(OwnerKind::Exchanger).size(); }
    /// Throws std::out_of_range.
    OwnerNode& GetStep(std::size_t index);
    const OwnerNode& GetStep(std::size_t index) const;
    /// The water that feeds the plant; null for a column, which takes the feed, and where there is no such
    /// water.
    const LiquidData* FeedingWater() const;
    /// Adds an exchanger ("SAC_H", ...) with its compartments, each with a resin, a regenerant, its level and
    /// dilution that are usual for its kind in a plant of this type.
    OwnerNode& AddStep(const std::string& kind, std::size_t position);
    /// Gives an exchanger the parts that are usual for its kind, instead of those that it has.
    void FillStep(OwnerNode& step);
    /// Makes it a plant of that type with exchangers of these kinds, as one edit. Of the exchangers that are
    /// there those stay, with all that was typed, whose kinds come in the same order; the others go, and new
    /// ones are as AddStep makes them. Throws std::invalid_argument where the type does not exist or cannot
    /// have those exchangers.
    void SetPlant(const std::string& type, const std::vector<std::string>& kinds);
    /// The exchangers that would go.
    std::vector<const OwnerNode*> LostBy(const std::vector<std::string>& kinds) const;
    /// A resin of a compartment beside those that it has: an inert layer, to begin with. At the front it is
    /// an under-layer, at the end a float.
    OwnerNode& AddResin(OwnerNode& compartment, std::size_t position);

    /// The regeneration sequence of an exchanger; see sequence/sequence_rows.h. Throw std::out_of_range.
    RegSeqData GetRegSeqData(std::size_t step) const;
    void SaveRegSeqData(std::size_t step, const RegSeqData& data);
    /// How much of each medium a regeneration of the exchanger needs.
    MediumSumsData GetRegSeqSums(std::size_t step) const;
    /// Whether an exchanger is conditioned after its regeneration: those of food columns, and those with a
    /// compartment that has a chemical for it. Throws std::out_of_range.
    bool HasConditioning(std::size_t step) const;
    /// Whether a row of its sequence carries that chemical.
    bool StepHasConditioning(std::size_t step, const RegSeqStep& row) const;

    /// The compounds of the feed as the project stores them: the details of the group "feedcompound", one
    /// group for each: meq/l, and what was typed beside it; the molar mass follows from the formula. Throws
    /// DatabaseError when the elements cannot be read.
    FeedComposition LoadFeedCompositionFromDetails() const;
    /// Its parts apart from the medium: how pH and effluent are treated, and its compounds, which are added.
    void LoadCompositionBaseFromDetails(FeedComposition& composition) const;
    void LoadFeedCompoundsFromDetails(FeedComposition& composition) const;
    /// Stores entries, medium, density, flags and the stated pH in one edit. Equal compositions leave equal
    /// bytes.
    void SaveFeedCompositionToDetails(const FeedComposition& composition);

protected:
    IEXProject(const IEXProject&) = default;
    void CalculatePlant() override;
    long ReachedStatus() const override;

private:
    bool IsFeedKnown() const;
};

/// The project as a plant; null where it has no exchangers.
PROJECTBASE_EXPORT const IEXProject* PlantOf(const Project& project);

}  // namespace iex
