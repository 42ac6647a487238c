// SPDX-License-Identifier: MIT
#pragma once

/// Where a water comes from: country and place, day of sampling, source and type of the water, and comments
/// behind a button that shows whether there are any. Every edit is stored in the liquid at once and told to
/// the parent by one queued tvCHANGE_EVENT with the id of the panel. The liquid is not owned and outlives it.

#include "gui_base/input/combinations/country_place_combination.h"
#include "gui_base/input/form/form_block.h"
#include "projectbase/water/liquid_data.h"

#include <wx/bmpbndl.h>
#include <wx/bmpbuttn.h>

struct FeedMetaInformationConfig
{
    wxWindow* parent = nullptr;
    int id = wxID_ANY;
    wxPoint pos = wxDefaultPosition;
    wxSize size = wxDefaultSize;
    long style = wxTAB_TRAVERSAL;
    LiquidData* liquid = nullptr;  ///< required
    /// Codes and names of the countries and of the water types, in the language of the texts.
    CountryPlaceCombination::Items countries = {};
    ChoiceCombination::Items waterTypes = {};
};

class GUI_BASE_EXPORT FeedMetaInformation : public FormBlock
{
public:
    explicit FeedMetaInformation(const FeedMetaInformationConfig& config);

    void Localize(const std::string& unitSystem) override;
    /// The names again, after the language changed.
    void SetItems(const CountryPlaceCombination::Items& countries,
                  const ChoiceCombination::Items& waterTypes);
    void TransferDetailsToWindow() override;
    /// Lets the user edit the comment in a small window below the button.
    void OnEditComments(wxCommandEvent& event);

private:
    void CreateControls(const FeedMetaInformationConfig& config);
    void AddCell(wxFlexGridSizer& grid, const FormRow& row, const wxSizerFlags& field);
    void CreateCommentButton(wxFlexGridSizer& grid);
    void ShowCommentState();

    DetailData& m_comment;
    wxBitmapBundle m_emptyBitmap;
    wxBitmapBundle m_textBitmap;
    bool m_showsComment = false;
    CountryPlaceCombination* m_countryPlace = nullptr;
    ChoiceCombination* m_waterType = nullptr;
    wxBitmapButton* m_commentButton = nullptr;
};
