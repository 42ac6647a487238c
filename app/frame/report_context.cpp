// SPDX-License-Identifier: MIT
#include "app/frame/report_context.h"

#include "app/language/language.h"
#include "gui_base/input/form/shown_context.h"
#include "projectbase/settings/settings.h"

namespace app {

ReportContext WindowContext()
{
    ReportContext context = ShownContext(Settings::GetSetting("unit.system.printout").GetStdStringValue());
    context.language = CurrentLanguage().utf8_string();
    return context;
}

}  // namespace app
