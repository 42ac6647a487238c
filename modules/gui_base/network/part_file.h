// SPDX-License-Identifier: MIT
#pragma once

/// A file that comes from outside: it appears under its name only when all of it is there and good.

#include "gui_base/gui_base_export.h"

#include <wx/file.h>
#include <wx/stream.h>
#include <wx/string.h>
#include <wx/wfstream.h>

#include <memory>
#include <string>

/// Takes the bytes beside the target, under a name that no other download has; what was not committed is
/// removed with the object. Nothing is thrown and nothing logged.
class GUI_BASE_EXPORT PartFile
{
public:
    explicit PartFile(const wxString& target);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Whether all that was written is in the file so far. False from the beginning where the folder takes no
    /// files.
    bool IsOk() const;
    const wxString& GetTarget() const { return m_target; }
    /// Where the bytes are before they are committed.
    const wxString& GetPath() const { return m_path; }
    wxOutputStream& GetStream() { return *m_stream; }

    /// What the file begins with, of at most so many bytes.
    std::string GetHead(std::size_t most);
    /// Syncs the bytes and puts them in the place of the target. On failure the target is as it was.
    bool Commit();

private:
    wxString m_target;
    wxString m_path;  ///< empty where nothing is to be removed
    wxFile m_file;
    std::unique_ptr<wxFileOutputStream> m_stream;
};
