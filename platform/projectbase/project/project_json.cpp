// SPDX-License-Identifier: MIT
#include "projectbase/project/project_json.h"

#include "core/text_limits.h"
#include "projectbase/advice/evaluation_json.h"
#include "projectbase/design/design_json.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/typed_units.h"

#include <fmt/format.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace {

using nlohmann::json;

// Bounds of what a text may hold, as those of a project's file.
constexpr std::size_t kMostWaters = 1'000;
constexpr std::size_t kMostLists = 20'000;
constexpr std::size_t kMostDetails = 500'000;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view kOrig = ".orig";

std::string Quoted(const std::string& utf8)
{
    return json(utf8).dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string JsonNumber(double value)
{
    if (!std::isfinite(value))
        return "null";
    // Without a point a reader takes it for an integer, which has no negative zero.
    return value == 0.0 && std::signbit(value) ? "-0.0" : fmt::format("{}", value);
}

std::string JsonValue(const DetailData& detail)
{
    switch (detail.GetType()) {
        case DetailType::Double:
            return JsonNumber(detail.GetDoubleValue());
        case DetailType::Long:
        case DetailType::Bool:
            return detail.GetValueAsString().utf8_string();
        case DetailType::Date:
            return detail.GetDateValue().IsValid() ? Quoted(detail.GetValueAsString().utf8_string()) : "null";
        case DetailType::String:
            break;
    }
    return Quoted(detail.GetStdStringValue());
}

/// Writes the project line by line: every object of details stands alike at each depth.
class Writer
{
public:
    std::string Write(const Project& project, const std::string& file,
                      const std::vector<JsonMessage>& messages, const std::vector<JsonAdvice>& advice)
    {
        m_text = "{\n  \"file\": " + Quoted(file) + ",\n  \"module\": " + Quoted(project.GetModuleType()) +
                 ",\n  \"type\": " + Quoted(project.GetModuleType()) +
                 fmt::format(",\n  \"status\": {}", project.GetStatus()) +
                 ",\n  \"unitSystem\": " + Quoted(project.GetUnitSystemDisplay()) + ",\n  \"project\": ";
        Details(project.GetDetails(), "  ");
        m_project = &project;
        if (const auto* plant = dynamic_cast<const iex::IEXProject*>(&project))
            m_design = design::DesignOf(*plant);
        Nodes(",\n  \"liquids\": ", project.GetRoot(), OwnerKind::Water, "  ");
        Nodes(",\n  \"exchangers\": ", project.GetRoot(), OwnerKind::Exchanger, "  ");
        Groups(project);
        Messages(messages);
        AdviceOnWaters(advice);
        return m_text + "\n}\n";
    }

private:
    /// A value that is typed in a unit of choice has that unit.
    static std::string UnitOf(const DetailList& details, const std::string& name, const DetailData& detail)
    {
        if (!name.ends_with(kOrig))
            return detail.GetUnit();
        const DetailData* unit = details.GetDetail(name.substr(0, name.size() - kOrig.size()) + ".unit");
        return unit == nullptr ? detail.GetUnit() : unit->GetStdStringValue();
    }

    void Detail(const std::string& name, const DetailData& detail, const std::string& unit)
    {
        m_text += Quoted(name) + ": {\"value\": " + JsonValue(detail);
        if (!unit.empty())
            m_text += ", \"unit\": " + Quoted(unit);
        m_text += '}';
    }

    void Details(const DetailList& details, const std::string& indent)
    {
        const char* separator = "\n";
        m_text += '{';
        for (const auto& [name, detail] : details) {
            m_text += separator + indent + "  ";
            Detail(name, detail, UnitOf(details, name, detail));
            separator = ",\n";
        }
        m_text += '\n' + indent + '}';
    }

    void Nodes(const std::string& head, const OwnerNode& parent, OwnerKind kind, const std::string& indent)
    {
        const auto nodes = parent.GetChildren(kind);
        m_text += head + '[';
        const char* separator = "\n";
        for (const auto& node : nodes) {
            const std::string inner = indent + "    ";
            m_text += separator + indent + "  {\n" + inner;
            if (kind == OwnerKind::Water)
                m_text += "\"name\": " + Quoted(node->GetName()) + ",\n" + inner;
            m_text += "\"details\": ";
            Details(*node->GetDetails(), inner);
            if (const auto* water = dynamic_cast<const LiquidData*>(node.get()))
                m_text += ",\n" + inner +
                          "\"evaluation\": " + advice::EvaluationAsJson(advice::Evaluate(*m_project, *water));
            if (kind == OwnerKind::Exchanger) {
                m_text += ",\n" + inner + "\"leakages\": " + design::LeakagesAsJson(m_design, *node);
                Nodes(",\n" + inner + "\"compartments\": ", *node, OwnerKind::Compartment, inner);
                Nodes(",\n" + inner + "\"sequence\": ", *node, OwnerKind::SequenceRow, inner);
            }
            if (kind == OwnerKind::Compartment) {
                m_text += ",\n" + inner + "\"capacity\": " + design::CapacityAsJson(m_design, *node);
                Nodes(",\n" + inner + "\"resins\": ", *node, OwnerKind::Resin, inner);
            }
            m_text += "\n" + indent + "  }";
            separator = ",\n";
        }
        m_text += nodes.empty() ? "]" : "\n" + indent + "]";
    }

    void Groups(const Project& project)
    {
        m_text += ",\n  \"groups\": {";
        const char* kindSeparator = "\n";
        for (const auto& [kind, groups] : project.GetAllDetailGroups()) {
            m_text += kindSeparator + ("    " + Quoted(kind)) + ": [";
            const char* separator = "\n";
            for (const DetailGroupPtr& group : *groups) {
                m_text += std::string(separator) + "      {";
                const char* between = "";
                for (const DetailData& detail : *group) {
                    m_text += between;
                    Detail(detail.GetName(), detail, detail.GetUnit());
                    between = ", ";
                }
                m_text += '}';
                separator = ",\n";
            }
            m_text += "\n    ]";
            kindSeparator = ",\n";
        }
        m_text += project.GetAllDetailGroups().empty() ? "}" : "\n  }";
    }

    void Messages(const std::vector<JsonMessage>& messages)
    {
        m_text += ",\n  \"messages\": [";
        const char* separator = "\n";
        for (const JsonMessage& message : messages) {
            m_text += fmt::format("{}    {{{}}}", separator, MembersOf(message));
            separator = ",\n";
        }
        m_text += messages.empty() ? "]" : "\n  ]";
    }

    void AdviceOnWaters(const std::vector<JsonAdvice>& advice)
    {
        m_text += ",\n  \"advice\": [";
        const char* separator = "\n";
        for (const JsonAdvice& each : advice) {
            m_text +=
                fmt::format("{}    {{\"water\": {}, \"id\": {}, \"severity\": \"{}\", \"reason\": {}, {}}}",
                            separator, each.water, Quoted(each.id), each.isWarning ? "warning" : "note",
                            Quoted(each.reason), MembersOf(each.message));
            separator = ",\n";
        }
        m_text += advice.empty() ? "]" : "\n  ]";
    }

    static std::string MembersOf(const JsonMessage& message)
    {
        return fmt::format("\"address\": {}, \"text\": {}, \"value\": {}, \"limit\": {}",
                           Quoted(message.address), Quoted(message.text), JsonNumber(message.value),
                           JsonNumber(message.limit));
    }

    std::string m_text;
    const Project* m_project = nullptr;
    design::PlantDesign m_design;
};

[[noreturn]] void Unreadable(const std::string& what)
{
    throw std::runtime_error("ProjectFromJson: " + what);
}

/// Reads a project; whatever is missing is as it is in a new one.
class Reader
{
public:
    std::unique_ptr<Project> Read(const json& root)
    {
        if (!root.is_object() || !root.contains("module") || !root.at("module").is_string())
            Unreadable("the text is no project");
        const auto type = root.at("module").get<std::string>();
        if (!iex::IEXProject::FindType(type))
            Unreadable("there is no type of plant '" + type + "'");
        auto project = std::make_unique<iex::IEXProject>(type);
        {
            const ProjectEdit edit(*project, {}, EditKind::Copied);
            while (project->GetLiquidCount() > 0)
                project->RemoveLiquid(0);
            while (project->NumberSteps() > 0)
                project->RemoveOwner(project->GetStep(0));
            ReadDetails(Member(root, "project"), project->GetDetails());
            ReadNodes(*project, project->GetRoot(), Member(root, "liquids"), OwnerKind::Water);
            ReadNodes(*project, project->GetRoot(), Member(root, "exchangers"), OwnerKind::Exchanger);
            ReadGroups(*project, Member(root, "groups"));
        }
        if (const json& unitSystem = Member(root, "unitSystem"); !unitSystem.is_null()) {
            const auto known = UnitSystemManager::GetUnitSystems();
            const auto name = unitSystem.is_string() ? unitSystem.get<std::string>() : std::string();
            if (std::ranges::find(known, name) == known.end())
                Unreadable("there is no system of units '" + name + "'");
            project->SetUnitSystemDisplay(name);
        }
        project->SetChanged(false);
        return project;
    }

private:
    static const json& Member(const json& object, const char* name)
    {
        static const json kNone;
        const auto found = object.is_object() ? object.find(name) : object.end();
        return found == object.end() ? kNone : *found;
    }

    static void RequireShort(const std::string& what, const std::string& text,
                             std::size_t most = text_limits::kName)
    {
        const std::size_t letters = text_limits::CountLetters(text);
        if (letters > most)
            Unreadable(fmt::format("{} has {} letters, {} is the most", what, letters, most));
    }

    static bool TakeText(const std::string& text, DetailData& detail)
    {
        const std::string& name = detail.GetName();
        RequireShort("the text of '" + name + "'", text, text_limits::MostOf(name));
        const bool isUnit = name.starts_with("liquid/") && name.ends_with(".unit");
        return detail.IsChoice(text) && (!isUnit || water::TypedUnit(name, text) == text) &&
               detail.SetValueFromString(wxString::FromUTF8(text));
    }

    static void Take(const json& value, DetailData& detail)
    {
        const std::string& name = detail.GetName();
        const DetailType type = detail.GetType();
        bool taken = false;
        if (value.is_number_integer() && type == DetailType::Long) {
            taken = !value.is_number_unsigned() || value.get<std::uint64_t>() <= std::uint64_t{LONG_MAX};
            if (taken)
                detail.SetValue(value.get<long>());
        } else if (value.is_number() && type == DetailType::Double) {
            detail.SetValue(value.get<double>());
            taken = true;
        } else if (value.is_boolean() && type == DetailType::Bool) {
            detail.SetValue(value.get<bool>());
            taken = true;
        } else if (value.is_string() && (type == DetailType::String || type == DetailType::Date)) {
            taken = TakeText(value.get<std::string>(), detail);
        } else if (value.is_null()) {
            if (type == DetailType::Double)
                detail.SetValue(kUnknown);
            else
                detail.ClearValue();
            taken = true;
        }
        if (!taken)
            Unreadable("the value of '" + name + "' cannot be read");
    }

    static DetailType TypeOf(const json& value)
    {
        if (value.is_boolean())
            return DetailType::Bool;
        return value.is_string() ? DetailType::String : DetailType::Double;
    }

    void ReadDetails(const json& object, DetailList& details)
    {
        if (object.is_null())
            return;
        if (!object.is_object())
            Unreadable("a list of values is none");
        for (const auto& [name, entry] : object.items()) {
            CountDetail();
            RequireShort("the name of a value", name);
            if (!entry.is_object())
                Unreadable("the value of '" + name + "' cannot be read");
            const json& value = Member(entry, "value");
            DetailData* known = details.GetDetail(name);
            DetailData& detail = known != nullptr ? *known : details.Add(DetailData(name, TypeOf(value)));
            if (detail.IsDerived())
                continue;
            Take(value, detail);
            TakeUnit(Member(entry, "unit"), object, details, detail);
        }
    }

    /// A value that is typed in a unit of choice brings that unit; all others are in ISO units.
    static void TakeUnit(const json& unit, const json& object, DetailList& details, DetailData& detail)
    {
        if (!unit.is_string())
            return;
        const std::string& name = detail.GetName();
        const std::string chosenName =
            name.ends_with(kOrig) ? name.substr(0, name.size() - kOrig.size()) + ".unit" : std::string();
        DetailData* const chosen = chosenName.empty() ? nullptr : details.GetDetail(chosenName);
        if (chosen != nullptr && !object.contains(chosenName))
            Take(unit, *chosen);
        else if (chosen == nullptr && detail.GetUnit().empty())
            detail.SetUnit(unit.get<std::string>());
        else if (chosen == nullptr && detail.GetUnit() != unit.get<std::string>())
            Unreadable(fmt::format("the unit of '{}' is not '{}'", name, detail.GetUnit()));
    }

    void ReadNodes(Project& project, OwnerNode& parent, const json& list, OwnerKind kind)
    {
        if (list.is_null())
            return;
        if (!list.is_array())
            Unreadable("a list of waters or parts is none");
        for (const json& entry : list) {
            if (!entry.is_object())
                Unreadable("a water or part cannot be read");
            if (++m_lists > kMostLists)
                Unreadable(fmt::format("it has more than {} waters and parts", kMostLists));
            if (kind == OwnerKind::Water && project.GetLiquidCount() == kMostWaters)
                Unreadable(fmt::format("it has more than {} waters", kMostWaters));
            const json& name = Member(entry, "name");
            if (name.is_string())
                RequireShort("the name of a water", name.get<std::string>());
            OwnerNode& node =
                project.AddOwner(parent, kind, name.is_string() ? name.get<std::string>() : std::string());
            ReadDetails(Member(entry, "details"), *node.GetDetails());
            ReadNodes(project, node, kind == OwnerKind::Exchanger ? Member(entry, "compartments") : json(),
                      OwnerKind::Compartment);
            ReadNodes(project, node, kind == OwnerKind::Exchanger ? Member(entry, "sequence") : json(),
                      OwnerKind::SequenceRow);
            ReadNodes(project, node, kind == OwnerKind::Compartment ? Member(entry, "resins") : json(),
                      OwnerKind::Resin);
        }
    }

    void ReadGroups(Project& project, const json& kinds)
    {
        if (kinds.is_null())
            return;
        if (!kinds.is_object())
            Unreadable("the groups cannot be read");
        for (const auto& [kind, list] : kinds.items()) {
            RequireShort("the name of a group", kind);
            if (!list.is_array())
                Unreadable("the group '" + kind + "' cannot be read");
            std::vector<DetailGroup> groups;
            for (const json& entry : list) {
                if (++m_lists > kMostLists)
                    Unreadable(fmt::format("it has more than {} entries of lists", kMostLists));
                // The catalogue knows the types; what it does not know is kept after its kind.
                DetailList details;
                try {
                    details.LoadGroup(kind, "BASE");
                } catch (const std::exception&) {
                }
                if (!entry.is_object())
                    Unreadable("an entry of '" + kind + "' cannot be read");
                ReadDetails(entry, details);
                DetailGroup group;
                for (const auto& [name, detail] : details)
                    group.push_back(detail);
                groups.push_back(std::move(group));
            }
            project.SetDetailGroups(kind, std::move(groups));
        }
    }

    void CountDetail()
    {
        if (++m_details > kMostDetails)
            Unreadable(fmt::format("it has more than {} values", kMostDetails));
    }

    std::size_t m_lists = 0;
    std::size_t m_details = 0;
};

}  // namespace

std::string ProjectToJson(const Project& project, const std::string& file,
                          const std::vector<JsonMessage>& messages, const std::vector<JsonAdvice>& advice)
{
    return Writer().Write(project, file, messages, advice);
}

std::unique_ptr<Project> ProjectFromJson(std::string_view text)
{
    if (text.size() > kMostJsonBytes)
        Unreadable(fmt::format("the text is longer than {} bytes", kMostJsonBytes));
    const json root = json::parse(text, nullptr, false);
    if (root.is_discarded())
        Unreadable("the text is no JSON");
    return Reader().Read(root);
}
