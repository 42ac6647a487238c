// SPDX-License-Identifier: MIT
#pragma once

/// What the user reads about a value out of range, in the message area, the report and on the command line.

#include "gui_base/report/report_page_source.h"
#include "projectbase/project/range_faults.h"

#include <string>

class Project;

/// "Sodium 12000 mg/l is above the maximum of 10000 mg/l"; with the name of the water before it where the
/// project has several, and of what the plant has in common, nothing.
GUI_BASE_REPORT_EXPORT std::string RangeSentence(const RangeFault& fault, const Project& project,
                                                 const ReportContext& context);
/// The same without a name before it.
GUI_BASE_REPORT_EXPORT std::string RangeSentence(const RangeFault& fault, const ReportContext& context);
/// How a sentence names what has a value: of a water its name, where the project has several; of a part of
/// the plant its title; of the project nothing.
GUI_BASE_REPORT_EXPORT std::string OwnerTitle(DetailOwner owner, const Project& project,
                                              const ReportContext& context);
