// SPDX-License-Identifier: MIT
#include "app/frame/database_wait.h"

#include "gui_base/support/translation.h"

#include <wx/app.h>
#include <wx/progdlg.h>

namespace app {

namespace {

class DatabaseWait : public WaitIndicator
{
public:
    explicit DatabaseWait(wxWindow* parent)
        : m_dialog(i18n::Translated("User database"),
                   i18n::Translated("Waiting for the server of the user database..."), kRange, parent,
                   wxPD_APP_MODAL | wxPD_CAN_ABORT)
    {}
    bool Continue() override { return m_dialog.Pulse(); }

private:
    static constexpr int kRange = 100;
    wxGenericProgressDialog m_dialog;
};

}  // namespace

std::unique_ptr<WaitIndicator> ShowDatabaseWait()
{
    wxWindow* const parent = wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
    return parent != nullptr ? std::make_unique<DatabaseWait>(parent) : nullptr;
}

}  // namespace app
