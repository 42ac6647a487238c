// SPDX-License-Identifier: MIT
#pragma once

/// Why a project file could not be saved or loaded.
///
/// The message for the user is the template of the problem, translated by whoever shows it, with the path and
/// the detail put in: so this library needs no message catalogue. what() is the same in English, after
/// "Class::Method: ".

#include "projectbase/projectbase_export.h"

#include <filesystem>
#include <stdexcept>
#include <string>

enum class ProjectFileProblem
{
    Missing,
    Folder,
    NoRegularFile,
    NotReadable,
    NoProject,
    Damaged,
    NewerVersion,
    UnknownModule,
    TooLarge,
    FolderMissing,
    NotWritable,
    DiskFull,
    WriteFailed,
};

class PROJECTBASE_EXPORT ProjectFileError : public std::runtime_error
{
public:
    ProjectFileError(const char* method, ProjectFileProblem problem, std::filesystem::path path,
                     std::string detail);
    ~ProjectFileError() override;

    ProjectFileProblem GetProblem() const { return m_problem; }
    const std::filesystem::path& GetPath() const { return m_path; }
    /// What the system or the database said, in English or the system's language; may be empty.
    const std::string& GetDetail() const { return m_detail; }

    /// English source text with the placeholders {path} and, perhaps, {detail}.
    static const char* GetTemplate(ProjectFileProblem problem);
    /// The template, translated or not, with path and detail put in.
    std::string Format(const std::string& translatedTemplate) const;

private:
    ProjectFileProblem m_problem;
    std::filesystem::path m_path;
    std::string m_detail;
};
