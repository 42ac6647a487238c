// SPDX-License-Identifier: MIT
#include "app/frame/report_context.h"

#include "app/language/language.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/translation.h"
#include "projectbase/settings/settings.h"

namespace app {

ReportContext WindowContext()
{
    ReportContext context;
    context.unitSystem = Settings::GetSetting("unit.system.printout").GetStdStringValue();
    context.language = CurrentLanguage().utf8_string();
    context.separators = NumericValidator::LocaleSeparators();
    context.translate = [](const char* source) { return i18n::Translated(source).utf8_string(); };
    return context;
}

}  // namespace app
