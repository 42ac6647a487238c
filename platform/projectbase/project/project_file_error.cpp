// SPDX-License-Identifier: MIT
#include "projectbase/project/project_file_error.h"

#include <fmt/format.h>
#include <wx/translation.h>

namespace {

std::string FormatMessage(const std::string& text, const std::filesystem::path& path,
                          const std::string& detail)
{
    try {
        return fmt::format(fmt::runtime(text), fmt::arg("path", path.string()), fmt::arg("detail", detail));
    } catch (const fmt::format_error&) {
        return path.string() + ": " + detail;  // a translation with a broken placeholder
    }
}

}  // namespace

ProjectFileError::ProjectFileError(const char* method, ProjectFileProblem problem, std::filesystem::path path,
                                   std::string detail)
    : std::runtime_error(
          fmt::format("ProjectFile::{}: {}", method, FormatMessage(GetTemplate(problem), path, detail))),
      m_problem(problem),
      m_path(std::move(path)),
      m_detail(std::move(detail))
{}

ProjectFileError::~ProjectFileError() = default;

std::string ProjectFileError::Format(const std::string& translatedTemplate) const
{
    return FormatMessage(translatedTemplate, m_path, m_detail);
}

const char* ProjectFileError::GetTemplate(ProjectFileProblem problem)
{
    switch (problem) {
        case ProjectFileProblem::Missing:
            return wxTRANSLATE("There is no file {path}.");
        case ProjectFileProblem::Folder:
            return wxTRANSLATE("{path} is a folder.");
        case ProjectFileProblem::NoRegularFile:
            return wxTRANSLATE("{path} is not a regular file.");
        case ProjectFileProblem::NotReadable:
            return wxTRANSLATE("The file {path} cannot be read: {detail}.");
        case ProjectFileProblem::NoProject:
            return wxTRANSLATE("The file {path} is not a project file.");
        case ProjectFileProblem::Damaged:
            return wxTRANSLATE("The project file {path} is damaged: {detail}.");
        case ProjectFileProblem::NewerVersion:
            return wxTRANSLATE(
                "The project file {path} was written by a newer version of the program: {detail}.");
        case ProjectFileProblem::UnknownModule:
            return wxTRANSLATE(
                "The project file {path} is for a module that this program does not have: {detail}.");
        case ProjectFileProblem::TooLarge:
            return wxTRANSLATE("The file {path} is larger than a project file may be.");
        case ProjectFileProblem::FolderMissing:
            return wxTRANSLATE("The project could not be saved as {path}: the folder does not exist.");
        case ProjectFileProblem::NotWritable:
            return wxTRANSLATE("The project could not be saved as {path}: {detail}.");
        case ProjectFileProblem::DiskFull:
            return wxTRANSLATE(
                "The project could not be saved as {path}: there is no space left on the disk.");
        case ProjectFileProblem::WriteFailed:
            break;
    }
    return wxTRANSLATE("Saving the project as {path} failed: {detail}. The file on the disk is unchanged.");
}
