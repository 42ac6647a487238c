// SPDX-License-Identifier: MIT
#pragma once

/// The page with the diagrams of the waters of a project. It follows the project, its language and numbers;
/// what it shows is a view and is not kept in the project. GUI thread only.

#include "gui_base/graphics/diagrams/diagram_grid.h"
#include "gui_base/graphics/diagrams/diagram_inputs.h"
#include "gui_base/input/form/form_panel.h"

#include <optional>

class GUI_BASE_EXPORT DiagramPage : public FormPanel
{
public:
    /// The project outlives the page.
    DiagramPage(Project& project, wxWindow* parent);

    DiagramGrid& GetGrid() const { return *m_grid; }
    DiagramInputs& GetInputs() const { return *m_inputs; }

protected:
    void DoCreateForm() override;
    void DoTransferDetailsToWindows() override {}
    bool DoConcerns(const ProjectChanges& changes) override;
    void DoFollowProject() override;
    void DoLocalize() override;
    void DoUpdateUnits() override;
    // What a diagram shows has no part in the calculation of the project.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }

private:
    /// Shows the waters as they are now; draws where one of them changed, or always.
    void Follow(bool drawsAlways);
    void Draw(const ReportContext& context);
    void OnExport();
    void OnCopy();

    DiagramGrid* m_grid = nullptr;
    DiagramInputs* m_inputs = nullptr;
    std::vector<water_diagram::Water> m_waters;
};
