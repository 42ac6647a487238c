// SPDX-License-Identifier: MIT
#pragma once

/// The controls of one exchanger in the panel of the design. The windows belong to the panel.

#include "gui_base/input/form/field_set.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"

#include <wx/stattext.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TvStaticBoxSizer;

class ExchangerBlock
{
public:
    /// Makes the controls of an exchanger in `box`, bound by `fields`.
    ExchangerBlock(OwnerNode& exchanger, FieldSet& fields, TvStaticBoxSizer& box);

    /// Whether a row of a block shows that value.
    static bool Shows(std::string_view key);

    /// Where a capacity comes from, leakages and messages.
    void ShowNotes(const iex::IEXProject& project, const design::ExchangerDesign& exchanger);
    wxString GetNotes() const { return m_notes->GetLabelText(); }
    /// The window of a detail that no number shows, such as the choice of a resin; null where it has none.
    wxWindow* FindWindow(const DetailData& detail) const;

private:
    void AddRows(wxWindow* parent, wxSizer& grid, OwnerNode& owner, std::span<const FormRow> rows);
    void AddCompartment(wxWindow* parent, wxSizer& inputs, wxSizer& results, OwnerNode& compartment);

    FieldSet& m_fields;
    wxStaticText* m_notes = nullptr;
    std::vector<std::pair<const DetailData*, wxWindow*>> m_windows;
};
