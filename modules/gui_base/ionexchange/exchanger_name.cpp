// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/exchanger_name.h"

#include "gui_base/messages/user_message.h"
#include "gui_base/support/translation.h"
#include "projectbase/design/exchanger_label.h"

wxString ExchangerName(const OwnerNode& exchanger)
{
    if (!exchanger.GetName().empty())
        return ShownText(exchanger.GetName());
    const DetailData* const kind = exchanger.FindDetail("step/kind");
    const std::string key = kind != nullptr ? kind->GetStdStringValue() : std::string();
    return wxString::Format("%zu %s", exchanger.GetPosition() + 1,
                            i18n::Translated(design::ExchangerLabel(key)));
}
