// SPDX-License-Identifier: MIT
#pragma once

/// What the compounds are dissolved in: the medium, its temperature in a unit of choice, and the density that
/// follows from the medium. Another unit of the same temperature is no change.

#include "gui_base/water/feedwater/feed_medium_form.h"

class GUI_BASE_EXPORT FeedMediumBox : public FeedMediumForm
{
public:
    explicit FeedMediumBox(wxWindow* parent, int id = wxID_ANY);

    void SetMedium(const FeedMedium::Data& medium);

protected:
    void Signal() override;

private:
    FeedMedium::Data m_told;
};
