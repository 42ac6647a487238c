// SPDX-License-Identifier: MIT
#include "gui_base/messages/user_message.h"

#include "dbinterfaces/database_error.h"
#include "projectbase/project/project_file_error.h"
#include "tncommon/printable_text.h"

#include <wx/translation.h>

#include <cerrno>

namespace {

const char* TemplateOf(DatabaseError::Kind kind)
{
    using Kind = DatabaseError::Kind;
    switch (kind) {
        case Kind::Locked:
            return wxTRANSLATE(
                "The database %s is locked by another program. Close that program, or try again later.");
        case Kind::NewerSchema:
            return wxTRANSLATE(
                "The database %s was written by a newer version of the program. Update the program to "
                "use it.");
        case Kind::NotOurs:
            return wxTRANSLATE(
                "The database %s is damaged, or it is none of this program. It was left as it is. Put a "
                "backup in its place, or rename it to begin with a new one.");
        case Kind::BadConnection:
            return wxTRANSLATE(
                "The connection to the database %s cannot be understood. Correct it in the settings.");
        case Kind::ProgramData:
            return wxTRANSLATE(
                "The program's own data are missing or damaged in %s. Install the program again, or set "
                "TARNVIK_DATA to the folder that holds them.");
        case Kind::TimedOut:
            return wxTRANSLATE(
                "The database %s did not answer in time. Whether anything of this step was stored is "
                "uncertain; check the connection and try again.");
        // Nothing is wrong with the database: the error says all.
        case Kind::TooLong:
        case Kind::OutOfRange:
        case Kind::Cancelled:
            return nullptr;
        case Kind::Failed:
            break;
    }
    return wxTRANSLATE(
        "The database %s cannot be used. Check that it can be reached, that its folder can be written "
        "and that the disk is not full.");
}

}  // namespace

wxString ShownText(const std::string& bytes)
{
    return wxString::FromUTF8(tncommon::PrintableText(bytes));
}

wxString ShownPath(const std::filesystem::path& path)
{
    return ShownText(path.string());
}

wxString CauseText(const std::error_code& cause)
{
    switch (cause.value()) {
        case ENOSPC:
        case EDQUOT:
            return wxGetTranslation(
                wxTRANSLATE("there is no space left on the disk; free some, or choose another place"));
        case EACCES:
        case EPERM:
        case EROFS:
            return wxGetTranslation(wxTRANSLATE("it must not be written there; choose another place"));
        case ENOENT:
        case ENOTDIR:
            return wxGetTranslation(wxTRANSLATE("the folder does not exist"));
        case EISDIR:
            return wxGetTranslation(wxTRANSLATE("it is a folder"));
        case EINVAL:
            return wxGetTranslation(wxTRANSLATE("it is not a regular file"));
        default:
            return ShownText(cause.message());
    }
}

wxString ReadingCauseText(const std::error_code& cause, std::size_t limit)
{
    switch (cause.value()) {
        case EACCES:
        case EPERM:
            return wxGetTranslation(wxTRANSLATE("you have no right to read it"));
        case ENOENT:
        case ENOTDIR:
            return wxGetTranslation(wxTRANSLATE("there is no such file"));
        case EFBIG:
            return wxString::Format(wxGetTranslation(wxTRANSLATE("it is larger than %zu MiB")), limit >> 20);
        default:
            return CauseText(cause);
    }
}

wxString ReadingCauseText(const delimited::TooLarge& cause)
{
    const char* what = wxTRANSLATE("it has more than %s cells (row %s, column %s)");
    switch (cause.GetKind()) {
        case delimited::TooLarge::Kind::Bytes:
            return ReadingCauseText(std::make_error_code(std::errc::file_too_large), cause.GetLimit());
        case delimited::TooLarge::Kind::Rows:
            what = wxTRANSLATE("it has more than %s rows (row %s, column %s)");
            break;
        case delimited::TooLarge::Kind::Columns:
            what = wxTRANSLATE("it has more than %s columns (row %s, column %s)");
            break;
        case delimited::TooLarge::Kind::Cells:
            break;
    }
    return wxString::Format(wxGetTranslation(what), std::to_string(cause.GetLimit()),
                            std::to_string(cause.GetRow()), std::to_string(cause.GetColumn()));
}

UserMessage MessageOf(const std::exception& error)
{
    const wxString technical = ShownText(error.what());
    if (const auto* file = dynamic_cast<const ProjectFileError*>(&error)) {
        const wxString source = wxString::FromUTF8(ProjectFileError::GetTemplate(file->GetProblem()));
        return {ShownText(file->Format(wxGetTranslation(source).utf8_string())), technical};
    }
    if (const auto* database = dynamic_cast<const DatabaseError*>(&error)) {
        const char* source = TemplateOf(database->GetKind());
        if (source != nullptr && !database->GetPlace().empty())
            return {wxString::Format(wxGetTranslation(source), ShownText(database->GetPlace())), technical};
    }
    return {technical, {}};
}
