// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/field_set.h"

namespace wateranalysis {

/// The box with what follows from an analysis; the dry residue stands in the tooltip of the TDS. Owned by the
/// layout of its panel, as every sizer.
class GUI_BASE_EXPORT SummaryBox : public TvStaticBoxSizer
{
public:
    SummaryBox(wxWindow* parent, FieldSet& fields);
};

}  // namespace wateranalysis
