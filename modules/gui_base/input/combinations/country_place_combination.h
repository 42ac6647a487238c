// SPDX-License-Identifier: MIT
#pragma once

/// Where a water comes from: a country choice and a field for the place.
///
/// The country detail is a text and holds the two-letter code, whatever language the names are shown in; the
/// caller gives the names in the language of the user, and again after that changed. A code that the list
/// lacks is shown as a further item, so that it is never lost. The items are sorted by name in the user's
/// locale; the first one, without a name, stands for "not stated".
///
/// A chosen country and another place are each told to the parent by one queued tvCHANGE_EVENT with the id of
/// the control. The controls belong to the parent window and may go before the combination.

#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"

class GUI_BASE_EXPORT CountryPlaceCombination : public ChoiceCombination
{
public:
    /// `countries` are pairs of code and name. Without a `sizer` the row makes a horizontal one, which the
    /// caller adds to its own. A null detail throws std::runtime_error.
    CountryPlaceCombination(wxWindow* parent, int countryId, int placeId, const wxString& countryLabel,
                            const wxString& placeLabel, const wxString& suffix, const Items& countries,
                            DetailData* countryDetail, DetailData* placeDetail, wxSizer* sizer = nullptr);
    ~CountryPlaceCombination() override;

    void SetCountries(const Items& countries);
    void Localize(const std::string& unitSystem);
    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }
    wxWindow* GetInputWindow() const override { return m_place.get(); }

    TvValidatedTextCtrl* GetPlace() const { return m_place.get(); }

protected:
    /// The names of the countries are given in the user's language.
    void DoLocalize(const std::string& /*unitSystem*/) override {}

private:
    void OnPlace(wxCommandEvent& event);

    Items m_countries;  ///< in their order
    DetailData* m_countryDetail;
    wxString m_placeLabelText;
    wxWeakRef<TvStaticText> m_placeLabel;
    wxWeakRef<TvValidatedTextCtrl> m_place;
};
