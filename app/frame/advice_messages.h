// SPDX-License-Identifier: MIT
#pragma once

#include "app/frame/message_area.h"
#include "gui_base/report/report_page_source.h"
#include "projectbase/advice/water_advice.h"

#include <map>
#include <vector>

class Project;
class ProjectChanges;

namespace app {

/// Warnings on the waters of the open project, for the list of messages. What is only a note stands with the
/// results of its water.
class AdviceMessages
{
public:
    /// Judges every water: of a project that was opened, or after limits were changed.
    void JudgeAll(const Project& project);
    /// Judges those anew that an edit concerns.
    void Follow(const Project& project, const ProjectChanges& changes);
    std::vector<MessageArea::RangeMessage> GetMessages(const Project& project,
                                                       const ReportContext& context) const;

private:
    void Judge(const Project& project, const LiquidData& water);

    std::map<DetailOwner, std::vector<advice::Advice>> m_warnings;
    /// The water that the plant took at the last look; what the plant is made of concerns it alone.
    DetailOwner m_feed;
};

}  // namespace app
