// SPDX-License-Identifier: MIT
// How a project stores the composition of its feed.
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/feed/known_elements.h"
#include "projectbase/project/iex_project.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace iex {

namespace {

constexpr const char* kCompounds = "feedcompound";

constexpr const char* kAdjustPh = "feed/adjust.ph";
constexpr const char* kUseEffluent = "feed/use.effluent";
constexpr const char* kStatedPh = "feed/ph";

using Unit = FeedComposition::Unit;
using Entry = FeedComposition::CompoundEntry;

/// Reads a group; what it lacks reads as the catalogue's default.
class GroupReader
{
public:
    explicit GroupReader(const DetailGroup& group)
        : m_group(group), m_defaults(*CatalogueGroup(kCompounds, "BASE"))
    {}

    std::string Text(const char* name) const { return At(name).GetStdStringValue(); }
    double Number(const char* name) const { return At(name).GetDoubleValue(); }
    std::int32_t Integer(const char* name) const
    {
        const long value = At(name).GetLongValue();
        constexpr long kMost = std::numeric_limits<std::int32_t>::max();
        return static_cast<std::int32_t>(std::min(std::max(value, -kMost), kMost));
    }

private:
    const DetailData& At(const char* name) const
    {
        if (const DetailData* detail = FindDetail(m_group, name))
            return *detail;
        if (const DetailData* detail = FindDetail(m_defaults, name))
            return *detail;
        throw std::runtime_error(std::string("GroupReader::At: no detail '") + name + "'");
    }

    const DetailGroup& m_group;
    const std::vector<DetailData>& m_defaults;
};

Entry ReadEntry(const GroupReader& reader)
{
    Entry entry;
    entry.name = reader.Text("feedcompound/name");
    entry.formula = reader.Text("feedcompound/formula");
    entry.category = reader.Text("feedcompound/category");
    entry.acidBase = reader.Integer("feedcompound/acid_base");
    entry.ionicCharge = reader.Integer("feedcompound/ioniccharge");
    entry.oxidationNrCommon = reader.Integer("feedcompound/oxidationNrCommon");
    entry.valency = reader.Integer("feedcompound/valency");
    entry.pKa = reader.Number("feedcompound/pka");
    entry.molweight = MolarMassOfFormula(entry.formula);
    return entry;
}

DetailGroup WriteEntry(const Entry& entry)
{
    DetailGroup group = *CatalogueGroup(kCompounds, "BASE");
    const auto set = [&group](const char* name, const auto& value) {
        for (DetailData& detail : group) {
            if (detail.GetName() == name)
                detail.SetValue(value);
        }
    };
    set("feedcompound/name", entry.name);
    set("feedcompound/formula", entry.formula);
    set("feedcompound/category", entry.category);
    set("feedcompound/acid_base", entry.acidBase);
    set("feedcompound/ioniccharge", entry.ionicCharge);
    set("feedcompound/oxidationNrCommon", entry.oxidationNrCommon);
    set("feedcompound/valency", entry.valency);
    set("feedcompound/pka", entry.pKa);
    set("feedcompound/conc.meql", entry.feed[Unit::MeqPerLitre]);
    set("feedcompound/conc.effluent.meql", entry.effluent[Unit::MeqPerLitre]);
    return group;
}

void AddCompounds(const DetailGroupsPtr& groups, FeedComposition& composition)
{
    if (!groups)
        return;
    for (const DetailGroupPtr& group : *groups) {
        const GroupReader reader(*group);
        const std::size_t index = composition.GetEntries().size();
        composition.Add(ReadEntry(reader));
        composition.SetFeed(index, Unit::MeqPerLitre, reader.Number("feedcompound/conc.meql"));
        composition.SetEffluent(index, Unit::MeqPerLitre, reader.Number("feedcompound/conc.effluent.meql"));
    }
}

}  // namespace

FeedComposition IEXProject::LoadFeedCompositionFromDetails() const
{
    FeedComposition composition;
    {
        const FeedComposition::Batch batch(composition);
        composition.SetMedium(LoadFeedMediumFromDetails());
        composition.SetPhAdjusted(GetDetails().At(kAdjustPh).GetBoolValue());
        composition.SetUsesEffluent(GetDetails().At(kUseEffluent).GetBoolValue());
        composition.SetStatedPh(GetDetails().At(kStatedPh).GetDoubleValue());
        AddCompounds(GetDetailGroups(kCompounds), composition);
    }
    return composition;
}

void IEXProject::SaveFeedCompositionToDetails(const FeedComposition& composition)
{
    std::vector<DetailGroup> groups;
    for (const Entry& entry : composition.GetEntries())
        groups.push_back(WriteEntry(entry));
    SetDetailGroups(kCompounds, std::move(groups));
    SaveFeedMediumToDetails(composition.GetMedium());
    GetDetails().At(kAdjustPh).SetValue(composition.IsPhAdjusted());
    GetDetails().At(kUseEffluent).SetValue(composition.UsesEffluent());
    GetDetails().At(kStatedPh).SetValue(composition.GetStatedPh());
}

}  // namespace iex
