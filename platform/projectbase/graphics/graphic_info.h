// SPDX-License-Identifier: MIT
#pragma once

/// Graphics of the master database with the values of a project in them. No windows.

#include "dbinterfaces/db_objects.h"
#include "projectbase/project/project.h"
#include "projectbase/projectbase_export.h"
#include "svg/svg_graphic_info.h"

#include <functional>
#include <optional>

/// The text of a value in a unit system, with its unit where the placeholder has one; empty for what is not
/// known.
using FormatGraphicValue =
    std::function<wxString(const DetailData& detail, const DBObjects::GraphicPlaceholder& placeholder,
                           const std::string& unitSystem)>;

/// A text of a graphic with the value of a project that stands for it.
class PROJECTBASE_EXPORT DetailReplaceMapping : public TextReplaceMapping
{
public:
    /// The project outlives the mapping.
    DetailReplaceMapping(const Project& project, DBObjects::GraphicPlaceholder placeholder,
                         FormatGraphicValue format);
    ~DetailReplaceMapping() override;

    wxString GetId() const override;
    /// Empty where the project has no such value now.
    wxString GetText(const wxString& unitsystem) const override;
    /// Where the value lives now; nothing where its owner is not there.
    std::optional<DetailAddress> GetAddress() const;
    /// The value, or null.
    const DetailData* FindDetail() const;

private:
    const OwnerNode* FindOwner() const;

    const Project& m_project;
    DBObjects::GraphicPlaceholder m_placeholder;
    FormatGraphicValue m_format;
};

/// The graphic from the installed archive of graphics. The project outlives what it shows. Throws
/// SvgLoadError when it cannot be loaded.
PROJECTBASE_EXPORT SvgGraphicInfo<ArchiveLoadPolicy> FromDbGraphicInfo(const DBObjects::GraphicInfo& info,
                                                                       const Project& project,
                                                                       const wxString& unitSystem,
                                                                       const FormatGraphicValue& format);
