// SPDX-License-Identifier: MIT
#include "gui_base/network/part_file.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>

PartFile::PartFile(const wxString& target) : m_target(target)
{
    const wxLogNull quiet;
    // The toolkit puts its letters in the place of the last extension.
    m_path = wxFileName::CreateTempFileName(target + ".part-.x", &m_file);
    m_stream = std::make_unique<wxFileOutputStream>(m_file);
}

PartFile::~PartFile()
{
    const wxLogNull quiet;
    m_file.Close();
    if (!m_path.empty())
        wxRemoveFile(m_path);
}

bool PartFile::IsOk() const
{
    return m_file.IsOpened() && m_stream->IsOk();
}

std::string PartFile::GetHead(std::size_t most)
{
    const wxLogNull quiet;
    wxFile reader;
    std::string head(most, '\0');
    const bool isOpen = !m_path.empty() && m_file.Flush() && reader.Open(m_path);
    const ssize_t read = isOpen ? reader.Read(head.data(), head.size()) : 0;
    head.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    return head;
}

bool PartFile::Commit()
{
    const wxLogNull quiet;
    if (!IsOk() || !m_file.Flush())
        return false;
    m_file.Close();
    if (!wxRenameFile(m_path, m_target))
        return false;
    m_path.clear();
    return true;
}
