// SPDX-License-Identifier: MIT
#pragma once

#include "dbinterfaces/db_objects.h"

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>

#include <memory>
#include <string>
#include <vector>

class Project;
namespace iex {
class IEXProject;
}

namespace app {

/// Choice of the type of plant and of its exchangers.
class PlantDialog : public wxDialog
{
public:
    /// For a new project, with the figures of an example on request.
    explicit PlantDialog(wxWindow* parent);
    /// For the plant that a project is to become.
    PlantDialog(wxWindow* parent, const iex::IEXProject& project);

    /// The chosen type with the kinds of its exchangers in flow order; an empty type where none is chosen.
    std::string GetType() const;
    std::vector<std::string> GetKinds() const;
    /// A calculated project of the choice; null where none is chosen.
    std::unique_ptr<Project> MakeProject() const;

private:
    void MakeControls(const wxString& action, bool withExample);
    wxSizer* MakeExchangers();
    void ShowExchangers();
    bool IsExample() const { return m_example != nullptr && m_example->IsEnabled() && m_example->GetValue(); }
    const DBObjects::PlantType* GetChosen() const;

    std::vector<DBObjects::PlantType> m_types;
    const iex::IEXProject* m_project = nullptr;
    wxListView* m_list = nullptr;
    std::vector<wxCheckBox*> m_exchangers;  ///< as many as the longest line has
    wxCheckBox* m_example = nullptr;        ///< null for a project that exists
};

/// Lets the user choose what plant a project becomes. What would be lost is named and asked for; the change
/// is one edit.
void ChangePlant(wxWindow* parent, iex::IEXProject& project);

}  // namespace app
