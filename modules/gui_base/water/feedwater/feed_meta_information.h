// SPDX-License-Identifier: MIT
#pragma once

/// Where a water comes from: country and place, day of sampling, source and type of the water, and comments
/// behind a button that shows whether there are any. Every edit is stored in the liquid at once and told to
/// the parent by one queued tvCHANGE_EVENT with the id of the panel. The liquid is not owned and outlives it.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/combinations/country_place_combination.h"
#include "projectbase/water/liquid_data.h"

#include <wx/bmpbndl.h>
#include <wx/bmpbuttn.h>
#include <wx/panel.h>

#include <memory>
#include <string>
#include <vector>

class TvDatePickerCtrl;
class wxFlexGridSizer;

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

class GUI_BASE_EXPORT FeedMetaInformation : public wxPanel, public DetailContainerWindow
{
public:
    explicit FeedMetaInformation(const FeedMetaInformationConfig& config);
    ~FeedMetaInformation() override;

    void Localize(const std::string& unitSystem);
    /// The names again, after the language changed.
    void SetItems(const CountryPlaceCombination::Items& countries,
                  const ChoiceCombination::Items& waterTypes);
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }
    /// Lets the user edit the comment in a small window below the button.
    void OnEditComments(wxCommandEvent& event);

    CountryPlaceCombination& GetCountryPlace() const { return *m_countryPlace; }
    ChoiceCombination& GetWaterType() const { return *m_waterType; }
    TvDatePickerCtrl* GetSamplingDate() const { return m_samplingDate; }
    TvTextCtrl* GetWaterSource() const { return m_sourceField; }
    wxBitmapButton* GetCommentButton() const { return m_commentButton; }
    const wxString& GetComment() const { return m_comment; }
    /// Whether the button shows that there is a comment.
    bool ShowsComment() const { return m_showsComment; }

private:
    void CreateControls(const FeedMetaInformationConfig& config);
    void CreateCommentButton(wxFlexGridSizer& grid);
    TvStaticText* AddLabel(wxFlexGridSizer& grid, const wxString& label);
    void ShowCommentState();
    void UpdateNames();
    void Signal();
    void OnSource(wxCommandEvent& event);
    void OnChildChanged(wxCommandEvent& event);

    LiquidData& m_liquid;
    DetailData& m_commentDetail;
    TransferContainer m_transfers;
    wxString m_comment;
    wxString m_source;
    wxBitmapBundle m_emptyBitmap;
    wxBitmapBundle m_textBitmap;
    bool m_showsComment = false;
    std::unique_ptr<CountryPlaceCombination> m_countryPlace;
    std::unique_ptr<ChoiceCombination> m_waterType;
    TvDatePickerCtrl* m_samplingDate = nullptr;
    TvTextCtrl* m_sourceField = nullptr;
    wxBitmapButton* m_commentButton = nullptr;
    std::vector<TvStaticText*> m_labels;
};
