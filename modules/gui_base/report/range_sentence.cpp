// SPDX-License-Identifier: MIT
#include "gui_base/report/range_sentence.h"

#include "core/amount_text.h"
#include "dbinterfaces/compound_names.h"
#include "gui_base/report/design_report.h"
#include "gui_base/report/told_apart.h"
#include "gui_base/report/with_title.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <utility>

namespace {

constexpr int kDigits = 4;

std::string WithUnit(double value, int digits, const RangeFault& fault, const ReportContext& context)
{
    // What is typed in a unit of its own keeps it in every system.
    const std::string system = fault.isTypedUnit ? "iso" : context.unitSystem;
    const std::string unit = UnitSystemManager::GetUnit(fault.unit, system, true);
    return numbertext::WithUnit(context.Number(UnitSystemManager::FromISO(fault.unit, system, value), digits),
                                unit);
}

std::string LabelOf(const RangeFault& fault, const ReportContext& context)
{
    if (fault.label.empty())
        return fault.address.key;
    return fault.formula.empty() ? context.Translated(fault.label.c_str())
                                 : compound_names::Shown(fault.label, fault.formula, context.language);
}

}  // namespace

std::string OwnerTitle(DetailOwner owner, const Project& project, const ReportContext& context)
{
    const OwnerNode* node = project.FindOwner(owner);
    if (node == nullptr || node->GetKind() == OwnerKind::Project)
        return {};
    if (node->GetKind() != OwnerKind::Water)
        return designtext::PartTitle(*node, context);
    return project.GetLiquidCount() > 1 ? context.Translated(node->GetName().c_str()) : std::string();
}

std::string RangeSentence(const RangeFault& fault, const ReportContext& context)
{
    const char* const usual = fault.isBelow ? wxTRANSLATE("%s is below the minimum of %s")
                                            : wxTRANSLATE("%s is above the maximum of %s");
    return wateranalysis::ToldSentence(
        context.Translated(fault.sentence.empty() ? usual : fault.sentence.c_str()), LabelOf(fault, context),
        fault.value, fault.limit, kDigits,
        [&](double number, int digits) { return WithUnit(number, digits, fault, context); });
}

std::string RangeSentence(const RangeFault& fault, const Project& project, const ReportContext& context)
{
    // A compound may be called as an ion of the water is.
    const std::string name = fault.formula.empty() ? OwnerTitle(fault.address.owner, project, context)
                                                   : context.Translated(wxTRANSLATE("Feed composition"));
    return WithTitle(name, RangeSentence(fault, context), context);
}
