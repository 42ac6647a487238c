// SPDX-License-Identifier: MIT
#pragma once

/// The controls of one exchanger in the panel of the design. The windows belong to the panel.

#include "gui_base/input/form/field_set.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"

#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class FlowSizer;
class TVHelpFileProvider;

class ExchangerBlock
{
public:
    /// Makes the controls of an exchanger in `box`, bound by `fields`. The exchanger outlives them, and so
    /// does the user guide, which may be null.
    ExchangerBlock(iex::IEXProject& project, OwnerNode& exchanger, FieldSet& fields, wxStaticBoxSizer& box,
                   const TVHelpFileProvider* help);

    /// Whether a row of a block shows that value.
    static bool Shows(std::string_view key);

    /// Width in pixels that lists, such as that of the resins, would have if they took what their line leaves
    /// of its room; the greatest there is where there are none. They have the least width until it is told.
    int FindListWidth();
    /// Gives the lists that width, or as much of it as their texts need.
    void SetListWidth(int width);
    void SetLeastListWidth();

    /// What the exchanger is called, where its capacities come from, leakages and messages.
    void ShowNotes(const design::ExchangerDesign& exchanger);
    wxString GetNotes() const { return m_notes->GetLabelText(); }
    /// The window of a detail that no number shows, such as the choice of a resin; null where it has none.
    wxWindow* FindWindow(const DetailData& detail) const;

private:
    struct Button
    {
        const char* label;  ///< source text
        std::function<void()> action;
    };

    void AddRows(wxWindow* parent, wxSizer& grid, OwnerNode& owner, std::span<const FormRow> rows);
    void AddCompartment(wxWindow* parent, wxSizer& inputs, wxSizer& results, OwnerNode& compartment);

    void AddResin(wxWindow* parent, wxSizer& inputs, wxSizer& results,
                  const std::shared_ptr<OwnerNode>& resin, bool isRemovable);
    void AddHeading(wxWindow* parent, wxSizer& grid, std::size_t compartment);
    void AddButtons(wxWindow* parent, wxSizer& grid, const std::vector<Button>& buttons);

    iex::IEXProject& m_project;
    OwnerNode& m_exchanger;
    FieldSet& m_fields;
    wxStaticBox& m_box;
    const TVHelpFileProvider* m_help;
    FlowSizer* m_columns = nullptr;
    wxFlexGridSizer* m_inputs = nullptr;
    std::vector<wxWindow*> m_lists;
    wxStaticText* m_notes = nullptr;
    std::vector<std::pair<const DetailData*, wxWindow*>> m_windows;
};
