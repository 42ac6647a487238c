// SPDX-License-Identifier: MIT
#pragma once

/// Edits of every kind that the program makes, drawn at random: typed values of all owners, waters and parts
/// of a plant that come, go, move and are renamed, blends, the feed and its medium, waters pasted as a whole.

#include "core/ion_units.h"
#include "projectbase/project/iex_project.h"

#include <cstdint>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace support {

class RandomEdits
{
public:
    RandomEdits(iex::IEXProject& project, std::uint32_t seed) : m_project(project), m_random(seed) {}

    /// Writes once, or several times in one scope.
    void Edit()
    {
        if (OneIn(3)) {
            Write();
            return;
        }
        const ProjectEdit edit(m_project, {}, OneIn(4) ? EditKind::Copied : EditKind::Typed);
        for (std::size_t writes = 1 + Pick(4); writes > 0; --writes)
            Write();
    }

    std::size_t Pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    bool OneIn(std::size_t count) { return Pick(count) == 0; }

private:
    using Texts = std::vector<std::string>;

    void Write()
    {
        switch (Pick(16)) {
            case 0:
                WriteWaters();
                break;
            case 1:
                WritePlant();
                break;
            case 2:
                WriteFeed();
                break;
            case 3:
                WriteBlend();
                break;
            case 4:
                WriteMedium();
                break;
            case 5:
                WriteSwitch();
                break;
            default:
                WriteDetail(AnyOwner());
                break;
        }
    }

    LiquidData& AnyWater() { return m_project.GetLiquid(Pick(m_project.GetLiquidCount())); }
    std::string AnyName()
    {
        static const Texts kNames{"Feed water", "Well", "River", "Brunnen \u00e4", ""};
        return kNames[Pick(kNames.size())];
    }
    OwnerNode& AnyOwner()
    {
        if (OneIn(2))
            return AnyWater();
        std::vector<OwnerNode*> owners{&m_project.GetRoot()};
        for (std::size_t i = 0; i < owners.size(); ++i) {
            for (std::size_t kind = 0; kind < kOwnerKinds; ++kind) {
                for (const auto& child : owners[i]->GetChildren(static_cast<OwnerKind>(kind)))
                    owners.push_back(child.get());
            }
        }
        return *owners[Pick(owners.size())];
    }

    void WriteWaters()
    {
        switch (Pick(4)) {
            case 0:
                m_project.AddLiquid(AnyName());
                break;
            case 1:
                if (m_project.GetLiquidCount() > 1)
                    m_project.RemoveLiquid(Pick(m_project.GetLiquidCount()));
                break;
            case 2:
                m_project.MoveOwner(AnyWater(), Pick(4));
                break;
            default:
                AnyWater().SetName(AnyName());
                break;
        }
    }

    void WritePlant()
    {
        OwnerNode& owner = AnyOwner();
        switch (owner.GetKind()) {
            case OwnerKind::Exchanger:
                m_project.AddOwner(owner, OneIn(3) ? OwnerKind::Compartment : OwnerKind::SequenceRow);
                break;
            case OwnerKind::Compartment:
                m_project.AddOwner(owner, OwnerKind::Resin);
                break;
            case OwnerKind::Resin:
            case OwnerKind::SequenceRow:
                OneIn(2) ? m_project.RemoveOwner(owner) : m_project.MoveOwner(owner, Pick(3));
                break;
            default:
                WriteLine();
                break;
        }
    }

    void WriteLine()
    {
        const std::size_t steps = m_project.NumberSteps();
        if (steps == 0 || (steps < 4 && OneIn(2)))
            m_project.AddStep(Any({"SAC_H", "MB", "DEGAS"}), Pick(steps + 1));
        else if (OneIn(8))
            OneIn(2) ? m_project.SetPlant("DEMI", {"SAC_H", "DEGAS", "SBA"})
                     : m_project.SetPlant("MB", {"MB"});
        else if (OneIn(3))
            m_project.RemoveOwner(m_project.GetStep(Pick(steps)));
        else
            m_project.MoveOwner(m_project.GetStep(Pick(steps)), Pick(steps));
    }

    void WriteFeed()
    {
        FeedComposition feed = m_project.LoadFeedCompositionFromDetails();
        const std::size_t count = feed.GetEntries().size();
        if (count == 0 || (count < 5 && OneIn(2))) {
            DBObjects::Compound compound;
            compound.name = AnyName();
            compound.formula = Any({"NaCl", "CH4N2O", "H2SO4", "nonsense", ""});
            compound.valency = static_cast<std::int32_t>(Pick(3));
            compound.conjugate = static_cast<std::int32_t>(Pick(5));
            feed.Add(compound);
        } else if (OneIn(4)) {
            feed.Remove(Pick(count));
        } else {
            const auto unit = static_cast<FeedComposition::Unit>(Pick(FeedComposition::kUnitCount));
            OneIn(2) ? feed.SetFeed(Pick(count), unit, Number())
                     : feed.SetEffluent(Pick(count), unit, Number());
        }
        feed.SetUsesEffluent(OneIn(2));
        feed.SetPhAdjusted(OneIn(2));
        m_project.SaveFeedCompositionToDetails(feed);
    }

    void WriteBlend()
    {
        LiquidData& blend = AnyWater();
        const ProjectEdit edit(m_project);
        blend.FindDetail("liquid/blend.first")->SetValue(AnyWater().GetName());
        blend.FindDetail("liquid/blend.second")->SetValue(AnyWater().GetName());
        blend.FindDetail("liquid/blend.share")->SetValue(static_cast<double>(Pick(101)));
    }

    void WriteMedium()
    {
        static constexpr TemperatureUnit kUnits[]{TemperatureUnit::Celsius, TemperatureUnit::Fahrenheit};
        m_project.SaveFeedMediumToDetails(
            {static_cast<long>(Pick(16)), {Number(), kUnits[Pick(2)]}, Number()});
    }

    /// The inputs that others follow.
    void WriteSwitch()
    {
        DetailList& water = *AnyWater().GetDetails();
        switch (Pick(6)) {
            case 0:
                water.At("liquid/analysis.type").SetValue(Any({"FULL", "SHORT_TDS", "SHORT_COND"}));
                break;
            case 1:
                WriteValue(water.At("liquid/balance.ph"));
                break;
            case 2:
                WriteValue(m_project.GetDetails().At("arrangement/calculate.blend"));
                break;
            case 3:
                water.At("liquid/alk.type").SetValue(Any({"", "naoh", "nh3"}));
                break;
            case 4:
                Paste(water);
                break;
            default:
                WriteValue(m_project.GetDetails().At(
                    Any({"project/qbrutto", "project/lz", "project/wbrutto", "feed/organics"})));
                break;
        }
    }

    void Paste(DetailList& water)
    {
        const ProjectEdit edit(m_project, "paste water", EditKind::Copied);
        water.CopyValues(*AnyWater().GetDetails());
    }

    void WriteDetail(OwnerNode& owner)
    {
        std::vector<DetailData*> inputs;
        for (auto& [name, detail] : *owner.GetDetails()) {
            if (!detail.IsDerived())
                inputs.push_back(&detail);
        }
        WriteValue(*inputs[Pick(inputs.size())]);
    }

    void WriteValue(DetailData& detail)
    {
        switch (detail.GetType()) {
            case DetailType::Double:
                detail.SetValue(Number());
                break;
            case DetailType::Long:
                detail.SetValue(static_cast<long>(Pick(5)) - 1);
                break;
            case DetailType::Bool:
                detail.SetValue(!detail.GetBoolValue());
                break;
            case DetailType::Date:
                detail.SetValue(
                    OneIn(4) ? wxDateTime()
                             : wxDateTime(static_cast<unsigned short>(1 + Pick(28)), wxDateTime::Feb, 2024));
                break;
            case DetailType::String:
                detail.SetValue(detail.GetChoices().empty() ? TextFor(detail.GetName())
                                                            : Any(detail.GetChoices()));
                break;
        }
    }

    double Number()
    {
        switch (Pick(8)) {
            case 0:
                return 0.0;
            case 1:
                return std::nan("");
            case 2:
                return -static_cast<double>(Pick(100)) / 3.0;
            case 3:
                return static_cast<double>(Pick(1000)) * 1e5;
            default:
                return static_cast<double>(Pick(1000)) / 70.0;
        }
    }

    std::string TextFor(const std::string& key)
    {
        if (key == "liquid/temp.unit")
            return Any({"\u00b0C", "\u00b0F", "K"});
        if (key.starts_with("liquid/alkalinity.") && key.ends_with(".unit"))
            return std::string(ions::kAlkalinityUnits[Pick(ions::kAlkalinityUnits.size())]);
        if (key == "liquid/hardness.measured.unit")
            return std::string(ions::kHardnessUnits[Pick(ions::kHardnessUnits.size())]);
        if (key == "liquid/cond25.measured.unit")
            return std::string(ions::kConductivityUnits[Pick(ions::kConductivityUnits.size())]);
        if (key == "liquid/h.plus.unit" || key == "liquid/oh.minus.unit")
            return std::string(ions::kEquivalentUnits[Pick(ions::kEquivalentUnits.size())]);
        if (key.starts_with("liquid/") && key.ends_with(".unit"))
            return std::string(ions::kIonUnits[Pick(ions::kIonUnits.size())]);
        if (key.starts_with("liquid/blend."))
            return AnyName();
        if (key == "project/quantities.typed")
            return Any({"QTV", "VTQ", "TQV"});
        return Any({"", "Lithium", "PH", "two\nlines, a \"quote\"", "\u6c34"});
    }

    std::string Any(const Texts& texts) { return texts[Pick(texts.size())]; }

    iex::IEXProject& m_project;
    std::mt19937 m_random;
};

}  // namespace support
