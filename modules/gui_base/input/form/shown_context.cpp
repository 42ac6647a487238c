// SPDX-License-Identifier: MIT
#include "gui_base/input/form/shown_context.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/translation.h"

ReportContext ShownContext(const std::string& unitSystem)
{
    ReportContext context;
    context.unitSystem = unitSystem;
    context.separators = NumericValidator::LocaleSeparators();
    context.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    return context;
}
