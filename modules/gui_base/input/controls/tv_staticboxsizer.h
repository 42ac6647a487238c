// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/sizer.h>

#include <string>

/// A box with a translated title.
class GUI_BASE_EXPORT TvStaticBoxSizer : public wxStaticBoxSizer
{
public:
    TvStaticBoxSizer(int orient, wxWindow* parent, const wxString& label);

    virtual void Localize(const std::string& unitSystem);
    wxSize CalcMin() override;

protected:
    /// In pixels.
    virtual int GetTitleWidth() const;

    /// Of a box that has its title from elsewhere.
    TvStaticBoxSizer(int orient, wxStaticBox* box) : wxStaticBoxSizer(box, orient) {}

private:
    wxString m_label;
};
