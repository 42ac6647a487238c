// SPDX-License-Identifier: MIT
#include "app/frame/advice_messages.h"

#include "gui_base/report/advice_text.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/report/with_title.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_changes.h"

#include <algorithm>
#include <iterator>

namespace app {
namespace {

DetailOwner FeedOf(const Project& project)
{
    const iex::IEXProject* const plant = iex::PlantOf(project);
    const LiquidData* const feed = plant == nullptr ? nullptr : plant->FeedingWater();
    return feed == nullptr ? DetailOwner() : feed->GetOwner();
}

}  // namespace

void AdviceMessages::Judge(const Project& project, const LiquidData& water)
{
    std::vector<advice::Advice> warnings;
    std::ranges::copy_if(advice::AdviceOn(project, water), std::back_inserter(warnings), &advice::IsWarning);
    if (warnings.empty())
        m_warnings.erase(water.GetOwner());
    else
        m_warnings[water.GetOwner()] = std::move(warnings);
}

void AdviceMessages::JudgeAll(const Project& project)
{
    m_warnings.clear();
    m_feed = FeedOf(project);
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i)
        Judge(project, project.GetLiquid(i));
}

void AdviceMessages::Follow(const Project& project, const ProjectChanges& changes)
{
    if (changes.HasStructure() || FeedOf(project) != m_feed)
        return JudgeAll(project);
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& water = project.GetLiquid(i);
        if (water.GetOwner() == m_feed || changes.Touches(water.GetOwner()))
            Judge(project, water);
    }
}

std::vector<MessageArea::RangeMessage> AdviceMessages::GetMessages(const Project& project,
                                                                   const ReportContext& context) const
{
    std::vector<MessageArea::RangeMessage> messages;
    for (const auto& [water, warnings] : m_warnings) {
        for (const advice::Advice& warning : warnings) {
            const std::string title = OwnerTitle(warning.address.owner, project, context);
            const std::string sentence = wateranalysis::AdviceSentence(warning, context);
            messages.push_back({.text = wxString::FromUTF8(WithTitle(title, sentence, context)),
                                .address = warning.address,
                                .rule = warning.id});
        }
    }
    return messages;
}

}  // namespace app
