// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/shown_context.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project.h"

ReportContext ShownContext(const Project& project)
{
    ReportContext context;
    context.unitSystem = project.GetUnitSystemDisplay();
    context.separators = NumericValidator::LocaleSeparators();
    context.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    return context;
}
