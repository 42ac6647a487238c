// SPDX-License-Identifier: MIT
#include "app/frame/message_log.h"

#include "app/frame/message_area.h"
#include "gui_base/support/translation.h"
#include "projectbase/project/project_file_error.h"

#include <wx/log.h>

namespace app {
namespace {

class MessageAreaLog : public wxLog
{
public:
    explicit MessageAreaLog(MessageArea& area) : m_area(area) {}

protected:
    void DoLogRecord(wxLogLevel level, const wxString& message, const wxLogRecordInfo&) override
    {
        if (level <= wxLOG_Error)
            m_area.AddMessage(MessageArea::Severity::Error, message);
        else if (level == wxLOG_Warning)
            m_area.AddMessage(MessageArea::Severity::Warning, message);
        else if (level <= wxLOG_Info)
            m_area.AddMessage(MessageArea::Severity::Info, message);
    }

private:
    MessageArea& m_area;
};

}  // namespace

void RedirectLog(MessageArea& area)
{
    delete wxLog::SetActiveTarget(new MessageAreaLog(area));
    // Informational messages are shown too, not only in verbose mode.
    wxLog::SetVerbose(true);
}

void RedirectLog()
{
    delete wxLog::SetActiveTarget(new wxLogStderr);
}

}  // namespace app
