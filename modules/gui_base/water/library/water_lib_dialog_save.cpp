// SPDX-License-Identifier: MIT
// How the water library stores the current analysis: what the user is asked and told.
#include "gui_base/dialogs/questions.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_texts.h"
#include "projectbase/library/water_store.h"

#include <wx/utils.h>

namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// Runs what asks the database; false, with the cause in `problem`, when it fails.
template <typename Action>
bool Reported(std::string* problem, Action&& action)
{
    try {
        return action();
    } catch (const std::exception& error) {
        if (problem != nullptr)
            *problem = MessageOf(error).text.utf8_string();
        return false;
    }
}

bool AskToOverwrite()
{
    return dialogs::AskYesNo(dialogs::DefaultParent(),
                             Tr("Analysis already exists. Do you want to overwrite the existing analysis?"),
                             Tr("Duplicate"), wxICON_WARNING) == wxID_YES;
}

}  // namespace

wxString WaterLibDialog::BuildDetailLabel(wxString key)
{
    return water_library::DetailLabel(key);
}

bool WaterLibDialog::SaveLiquidData(LiquidData* liquid, std::string* problem)
{
    if (liquid == nullptr || !LiquidIsSaveable(liquid))
        return false;
    const bool wanted = Reported(problem, [liquid] { return !CheckDuplicate(liquid) || AskToOverwrite(); });
    if (!wanted || !SaveLiquid(liquid, problem))
        return false;
    dialogs::ShowMessage(dialogs::DefaultParent(), Tr("Analysis saved to water library"), Tr("Success"),
                         wxICON_INFORMATION);
    return true;
}

bool WaterLibDialog::LiquidIsSaveable(LiquidData* liquid)
{
    const water_store::Missing missing = water_store::FindMissing(*liquid);
    if (missing)
        DisplaySaveErrors(missing.place, missing.source);
    return !missing;
}

void WaterLibDialog::DisplaySaveErrors(bool placeMissing, bool sourceMissing)
{
    wxString text = Tr("Please enter these values before saving to water library:") + "\n";
    if (placeMissing)
        text += "\n" + Tr("Place");
    if (sourceMissing)
        text += "\n" + Tr("Water source");
    dialogs::ShowMessage(dialogs::DefaultParent(), text, Tr("Analysis could not be saved"), wxICON_WARNING);
}

bool WaterLibDialog::CheckDuplicate(LiquidData* liquid)
{
    return water_store::HasDuplicate(*liquid);
}

bool WaterLibDialog::SaveLiquid(LiquidData* liquid, std::string* problem)
{
    const wxBusyCursor busy;
    const auto label = [](const std::string& key) {
        return water_library::DetailLabel(wxString::FromUTF8(key)).utf8_string();
    };
    return Reported(problem, [&] { return water_store::Store(*liquid, label); });
}

int WaterLibDialog::SaveCountry(const wxString& name)
{
    return water_store::SaveCountry(name.utf8_string());
}

int WaterLibDialog::SaveWater(long countryId, const wxString& place, const wxString& source)
{
    return water_store::SaveWater(static_cast<int>(countryId), place.utf8_string(), source.utf8_string());
}
