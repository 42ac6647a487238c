// SPDX-License-Identifier: MIT
#include "gui_base/report/range_sentence.h"

#include "gui_base/report/design_report.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

namespace {

constexpr int kDigits = 7;

std::string WithUnit(double value, const RangeFault& fault, const ReportContext& context)
{
    // What is typed in a unit of its own keeps it in every system.
    const std::string system = fault.isTypedUnit ? "iso" : context.unitSystem;
    const std::string unit = UnitSystemManager::GetUnit(fault.unit, system, true);
    return fmt::format("{}{}{}",
                       context.Number(UnitSystemManager::FromISO(fault.unit, system, value), kDigits),
                       unit.empty() ? "" : " ", unit);
}

/// What tells an owner from its like.
std::string NameOf(DetailOwner owner, const Project& project, const ReportContext& context)
{
    const OwnerNode* node = project.FindOwner(owner);
    if (node == nullptr || node->GetKind() == OwnerKind::Project)
        return {};
    if (node->GetKind() != OwnerKind::Water) {
        const OwnerNode* exchanger = node;
        while (exchanger->GetKind() != OwnerKind::Exchanger)
            exchanger = exchanger->GetParent();
        return designtext::ExchangerTitle(*exchanger, context) + " (" + project.PathOf(owner) + ")";
    }
    return project.GetLiquidCount() > 1 ? context.Translated(node->GetName().c_str()) : std::string();
}

}  // namespace

std::string RangeSentence(const RangeFault& fault, const ReportContext& context)
{
    const char* const limit = fault.isBelow ? wxTRANSLATE("%s is below the minimum of %s")
                                            : wxTRANSLATE("%s is above the maximum of %s");
    std::string text = context.Translated(fault.sentence.empty() ? limit : fault.sentence.c_str());
    const std::string label =
        fault.label.empty() ? fault.address.key : context.Translated(fault.label.c_str());
    for (const std::string& part :
         {label + " " + WithUnit(fault.value, fault, context), WithUnit(fault.limit, fault, context)}) {
        const auto at = text.find("%s");
        if (at != std::string::npos)
            text.replace(at, 2, part);
    }
    return text;
}

std::string RangeSentence(const RangeFault& fault, const Project& project, const ReportContext& context)
{
    const std::string name = NameOf(fault.address.owner, project, context);
    return name.empty() ? RangeSentence(fault, context) : name + ": " + RangeSentence(fault, context);
}
