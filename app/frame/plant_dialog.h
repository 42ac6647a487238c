// SPDX-License-Identifier: MIT
#pragma once

#include "dbinterfaces/db_objects.h"

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>

#include <memory>
#include <vector>

class Project;

namespace app {

/// Choice of the type of plant that a new project is of, with an example of it on request.
class PlantDialog : public wxDialog
{
public:
    explicit PlantDialog(wxWindow* parent);

    /// A calculated project of the chosen type; null where none is chosen.
    std::unique_ptr<Project> MakeProject() const;

private:
    void OnSelected();
    const DBObjects::PlantType* GetChosen() const;

    std::vector<DBObjects::PlantType> m_types;
    wxListView* m_list;
    wxCheckBox* m_example;
};

}  // namespace app
