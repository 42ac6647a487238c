// SPDX-License-Identifier: MIT
#pragma once

/// Check boxes for options: of a record in the program, and of a process in the database.
///
/// A click stores the new state and passes on as wxEVT_CHECKBOX, so that the panel can recalculate. Label and
/// tooltip are kept in the source language and translated.

#include "gui_base/input/controls/tv_checkbox.h"

#include <string>

/// An option that can be chosen, with its state.
struct TvOption
{
    wxString label = {};    ///< source text
    wxString tooltip = {};  ///< source text; may be empty
    bool checked = false;
    bool available = true;  ///< otherwise the box is disabled and shows its state only
};

class GUI_BASE_EXPORT TvOptionCheckBox : public TvCheckBox
{
public:
    /// `option` outlives the box.
    TvOptionCheckBox(wxWindow* parent, int id, TvOption& option, const wxPoint& pos = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, long style = 0);

    /// Shows state and availability of the option.
    void TransferDetailToWindow() override;
    void Localize(const std::string& unitSystem);

private:
    TvOption& m_option;
};

/// An option that the database offers for a process.
struct ProcessOption
{
    long id = -1;
    wxString name = {};  ///< source text
    wxString hint = {};  ///< source text; may be empty
};

/// The chosen options of a process are kept in one text detail as their identifiers in ascending order,
/// separated by blanks ("3 7 12"), so that a database with more options needs no new details. A word that is
/// no identifier is kept as it is, at the end.
class GUI_BASE_EXPORT TvProcessOptionCheckBox : public TvCheckBox
{
public:
    /// `chosenOptions` is a text detail, not owned; null throws std::runtime_error.
    TvProcessOptionCheckBox(wxWindow* parent, int id, const ProcessOption& option, DetailData* chosenOptions,
                            const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                            long style = 0);

    void TransferDetailToWindow() override;
    void Localize(const std::string& unitSystem);

private:
    void Store(bool chosen);

    ProcessOption m_option;
    DetailData* m_chosenOptions;
};
