// SPDX-License-Identifier: MIT
// How a project stores the composition of its feed.
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/feed/known_elements.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"

#include <algorithm>
#include <cmath>
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

/// What was typed beside the equivalents; not known where they were typed themselves.
double TypedAmount(const FeedComposition::Concentration& block)
{
    return block.typed == Unit::MeqPerLitre ? std::numeric_limits<double>::quiet_NaN() : block[block.typed];
}

std::string TypedUnit(const FeedComposition::Concentration& block)
{
    return block.typed == Unit::MeqPerLitre
               ? std::string()
               : FeedComposition::kUnitTexts[static_cast<std::size_t>(block.typed)];
}

/// Brings a concentration back: the equivalents first, which know what a compound without a molar mass has,
/// then what was typed.
template <typename Set>
void ReadConcentration(const GroupReader& reader, const std::string& key, Set set)
{
    set(Unit::MeqPerLitre, reader.Number((key + ".meql").c_str()));
    const std::string unit = reader.Text((key + ".unit").c_str());
    const auto known = std::ranges::find(FeedComposition::kUnitTexts, unit);
    const double amount = reader.Number((key + ".typed").c_str());
    if (known != FeedComposition::kUnitTexts.end() && std::isfinite(amount))
        set(static_cast<Unit>(known - FeedComposition::kUnitTexts.begin()), amount);
}

/// Every stored value of an entry with the name of its detail.
template <typename Visit>
void ForEachValue(const Entry& entry, Visit visit)
{
    visit("feedcompound/name", entry.name);
    visit("feedcompound/formula", entry.formula);
    visit("feedcompound/category", entry.category);
    visit("feedcompound/acid_base", entry.acidBase);
    visit("feedcompound/ioniccharge", entry.ionicCharge);
    visit("feedcompound/oxidationNrCommon", entry.oxidationNrCommon);
    visit("feedcompound/valency", entry.valency);
    visit("feedcompound/pka", entry.pKa);
    visit("feedcompound/conc.meql", entry.feed[Unit::MeqPerLitre]);
    visit("feedcompound/conc.effluent.meql", entry.effluent[Unit::MeqPerLitre]);
    visit("feedcompound/conc.typed", TypedAmount(entry.feed));
    visit("feedcompound/conc.unit", TypedUnit(entry.feed));
    visit("feedcompound/conc.effluent.typed", TypedAmount(entry.effluent));
    visit("feedcompound/conc.effluent.unit", TypedUnit(entry.effluent));
}

DetailGroup WriteEntry(const Entry& entry)
{
    DetailGroup group = *CatalogueGroup(kCompounds, "BASE");
    ForEachValue(entry, [&group](const char* name, const auto& value) {
        for (DetailData& detail : group) {
            if (detail.GetName() == name)
                detail.SetValue(value);
        }
    });
    return group;
}

bool Holds(const DetailData& detail, const std::string& value)
{
    return detail.GetStdStringValue() == value;
}

bool Holds(const DetailData& detail, std::int32_t value)
{
    return detail.GetLongValue() == value;
}

bool Holds(const DetailData& detail, double value)
{
    // Bit by bit, so that an unknown value is equal to an unknown one and -0 is not taken for 0.
    return SameDetailValue(detail.GetStoredValue(), DetailData::Value(value));
}

/// Whether the group is what WriteEntry would make of the entry, without making it: of a thousand compounds
/// an edit changes one.
bool IsUpToDate(const DetailGroup& group, const Entry& entry)
{
    bool same = true;
    std::size_t known = 0;
    ForEachValue(entry, [&](const char* name, const auto& value) {
        const DetailData* detail = same ? FindDetail(group, name) : nullptr;
        same = detail != nullptr && Holds(*detail, value);
        ++known;
    });
    return same && group.size() == known;
}

}  // namespace

void IEXProject::LoadCompositionBaseFromDetails(FeedComposition& composition) const
{
    composition.SetPhAdjusted(GetDetails().At(kAdjustPh).GetBoolValue());
    composition.SetUsesEffluent(GetDetails().At(kUseEffluent).GetBoolValue());
    composition.SetStatedPh(GetDetails().At(kStatedPh).GetDoubleValue());
}

void IEXProject::LoadFeedCompoundsFromDetails(FeedComposition& composition) const
{
    const DetailGroupsPtr groups = GetDetailGroups(kCompounds);
    if (!groups)
        return;
    for (const DetailGroupPtr& group : *groups) {
        const GroupReader reader(*group);
        const std::size_t index = composition.GetEntries().size();
        composition.Add(ReadEntry(reader));
        ReadConcentration(reader, "feedcompound/conc",
                          [&](Unit unit, double value) { composition.SetFeed(index, unit, value); });
        ReadConcentration(reader, "feedcompound/conc.effluent",
                          [&](Unit unit, double value) { composition.SetEffluent(index, unit, value); });
    }
}

FeedComposition IEXProject::LoadFeedCompositionFromDetails() const
{
    FeedComposition composition;
    {
        const FeedComposition::Batch batch(composition);
        LoadCompositionBaseFromDetails(composition);
        composition.SetMedium(LoadFeedMediumFromDetails());
        LoadFeedCompoundsFromDetails(composition);
    }
    return composition;
}

void IEXProject::SaveFeedCompositionToDetails(const FeedComposition& composition)
{
    const ProjectEdit edit(*this);
    static const DetailGroups kNone;
    const DetailGroupsPtr former = GetDetailGroups(kCompounds);
    const DetailGroups& old = former ? *former : kNone;
    const std::vector<Entry>& entries = composition.GetEntries();
    // What stands before and behind the entries that changed, came or went is shared with the former state.
    const std::size_t most = std::min(old.size(), entries.size());
    std::size_t front = 0;
    while (front < most && IsUpToDate(*old[front], entries[front]))
        ++front;
    std::size_t back = 0;
    while (back < most - front && IsUpToDate(*old[old.size() - 1 - back], entries[entries.size() - 1 - back]))
        ++back;
    if (front != old.size() || front != entries.size()) {
        auto groups =
            std::make_shared<DetailGroups>(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(front));
        for (std::size_t i = front; i < entries.size() - back; ++i)
            groups->push_back(std::make_shared<const DetailGroup>(WriteEntry(entries[i])));
        groups->insert(groups->end(), old.end() - static_cast<std::ptrdiff_t>(back), old.end());
        RestoreDetailGroups(kCompounds, groups);
    }
    SaveFeedMediumToDetails(composition.GetMedium());
    GetDetails().At(kAdjustPh).SetValue(composition.IsPhAdjusted());
    GetDetails().At(kUseEffluent).SetValue(composition.UsesEffluent());
    GetDetails().At(kStatedPh).SetValue(composition.GetStatedPh());
}

}  // namespace iex
