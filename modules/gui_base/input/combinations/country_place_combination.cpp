// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/country_place_combination.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int kPlaceWidth = 160;
constexpr int kPlaceGap = 16;

DetailData* Required(DetailData* detail)
{
    if (detail == nullptr)
        throw std::runtime_error("CountryPlaceCombination::CountryPlaceCombination: a detail is missing");
    return detail;
}

/// Nothing stated, and the countries by name.
tvChoiceAdv::Items Sorted(tvChoiceAdv::Items countries)
{
    std::ranges::stable_sort(countries, [](const auto& a, const auto& b) {
        return wxStrcoll(a.second.wc_str(), b.second.wc_str()) < 0;
    });
    countries.insert(countries.begin(), {wxString(), wxString()});
    return countries;
}

/// The items of the choice, with `code` if no country has it.
tvChoiceAdv::Items ChoiceItems(tvChoiceAdv::Items sorted, const wxString& code)
{
    if (std::ranges::none_of(sorted, [&code](const auto& country) { return country.first == code; }))
        sorted.emplace_back(code, code);
    return sorted;
}

}  // namespace

CountryPlaceCombination::CountryPlaceCombination(wxWindow* parent, int countryId, int placeId,
                                                 const wxString& countryLabel, const wxString& placeLabel,
                                                 const wxString& suffix, const Items& countries,
                                                 DetailData* countryDetail, DetailData* placeDetail,
                                                 wxSizer* sizer)
    : ChoiceCombination(parent, countryId, countryLabel, suffix, {}, Required(countryDetail), sizer),
      m_countries(Sorted(countries)),
      m_countryDetail(countryDetail),
      m_placeLabelText(placeLabel),
      m_placeLabel(new TvStaticText(parent, wxID_ANY, placeLabel, suffix))
{
    SetItems(ChoiceItems(m_countries, countryDetail->GetStringValue()));
    ValidatedTextCtrlConfig config;
    config.parent = parent;
    config.id = placeId;
    config.size = wxSize(kPlaceWidth, -1);
    config.detail = Required(placeDetail);
    m_place = new TvValidatedTextCtrl(config);
    m_place->Bind(wxEVT_TEXT_ENTER, &CountryPlaceCombination::OnPlace, this);
    accessibility::SetName(*m_place, i18n::Translated(placeLabel));
    GetSizer()->AddSpacer(kPlaceGap);
    GetSizer()->Add(m_placeLabel.get(), wxSizerFlags().Border(wxRIGHT | wxBOTTOM, kGap).CenterVertical());
    GetSizer()->Add(m_place.get(), wxSizerFlags().Border(wxBOTTOM, kGap).CenterVertical());
}

CountryPlaceCombination::~CountryPlaceCombination()
{
    if (m_place)
        m_place->Unbind(wxEVT_TEXT_ENTER, &CountryPlaceCombination::OnPlace, this);
}

void CountryPlaceCombination::SetCountries(const Items& countries)
{
    m_countries = Sorted(countries);
    TransferDetailToWindow();
}

void CountryPlaceCombination::Localize(const std::string& unitSystem)
{
    ChoiceCombination::Localize(unitSystem);
    if (m_placeLabel)
        m_placeLabel->Localize(unitSystem);
    if (m_place)
        accessibility::SetName(*m_place, i18n::Translated(m_placeLabelText));
}

void CountryPlaceCombination::TransferDetailToWindow()
{
    const Items items = ChoiceItems(m_countries, m_countryDetail->GetStringValue());
    if (GetChoice() != nullptr && GetChoice()->GetItems() != items)
        SetItems(items);
    ChoiceCombination::TransferDetailToWindow();
    if (m_place)
        m_place->TransferDetailToWindow();
}

void CountryPlaceCombination::OnPlace(wxCommandEvent& event)
{
    event.Skip();
    // The field stores the text and tells the parent itself when that changes the detail.
    if (m_place->IsModified())
        m_place->TransferDataFromWindow();
}
