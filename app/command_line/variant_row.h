// SPDX-License-Identifier: MIT
#pragma once

/// Values of a project as one row of a table: chosen columns, in ISO units, with a decimal point. Equal
/// projects give equal bytes, whichever way they came to their values.

#include "app/command_line/project_setting.h"
#include "projectbase/project/project.h"

#include <string>
#include <vector>

namespace app {

class VariantRow
{
public:
    enum class Form
    {
        Csv,
        JsonLine
    };

    VariantRow() = default;
    /// Columns by their keys as in settings ("ex.1:step/v", "water.1:tds", "feedcompound.2:conc"); twice the
    /// same is one column. Without any, the usual results of the project. Throws SettingError for one that
    /// there is not.
    VariantRow(Project& project, const std::vector<std::string>& first,
               const std::vector<std::string>& columns, Form form);

    /// The head of the table with its line break; empty for JSON lines, whose every row names its values.
    std::string Head() const;
    /// The row with its line break. The project may be any copy of the one that the columns were found in.
    std::string Of(const Project& project) const;
    /// The same of what could not be calculated: the settings that were tried, and nothing known.
    std::string Failed(const std::vector<ProjectSetting>& settings) const;

private:
    struct Column
    {
        std::string name;
        std::string quotedName;  ///< as JSON
        std::string unit;
        DetailAddress address;
    };

    void Add(Project& project, const std::string& name);
    void AddUsual(Project& project);
    const DetailData* Find(const Project& project, const Column& column) const;
    std::string Line(std::vector<std::string> cells) const;

    std::vector<Column> m_columns;
    Form m_form = Form::Csv;
};

/// The most columns that a table may have.
inline constexpr std::size_t kMostColumns = 1000;

}  // namespace app
