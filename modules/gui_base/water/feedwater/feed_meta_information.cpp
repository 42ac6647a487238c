// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_meta_information.h"

#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"

#include <wx/sizer.h>

#include <stdexcept>

namespace {

constexpr int kGap = 4;
/// Country and place bring a gap between them.
constexpr int kColumns = 7;
constexpr int kSourceWidth = 200;
constexpr int kCountryWidth = 200;
constexpr double kNoCurrency = 1.0;

LiquidData& Required(LiquidData* liquid)
{
    if (liquid == nullptr)
        throw std::invalid_argument("FeedMetaInformation::FeedMetaInformation: a liquid is missing");
    return *liquid;
}

/// A choice that can also state nothing.
ChoiceCombination::Items WithNone(ChoiceCombination::Items items)
{
    items.insert(items.begin(), {wxString(), wxString()});
    return items;
}

}  // namespace

FeedMetaInformation::FeedMetaInformation(const FeedMetaInformationConfig& config)
    : wxPanel(config.parent, config.id, config.pos, config.size, config.style),
      m_liquid(Required(config.liquid)),
      m_commentDetail(m_liquid.GetDetails()->At("liquid/comments")),
      m_emptyBitmap(ImageLoader::LoadBundle("icons/i16/comment_empty.png", wxSize(16, 16))),
      m_textBitmap(ImageLoader::LoadBundle("icons/i16/comment.png", wxSize(16, 16)))
{
    CreateControls(config);
    Bind(tvCHANGE_EVENT, &FeedMetaInformation::OnChildChanged, this);
    TransferDetailToWindow();
    UpdateNames();
}

FeedMetaInformation::~FeedMetaInformation()
{
    // The field of the source edits a variable of this object, and the combinations know their controls.
    DestroyChildren();
}

TvStaticText* FeedMetaInformation::AddLabel(wxFlexGridSizer& grid, const wxString& label)
{
    m_labels.push_back(new TvStaticText(this, wxID_ANY, label, ":"));
    grid.Add(m_labels.back(), wxSizerFlags().CentreVertical());
    return m_labels.back();
}

void FeedMetaInformation::CreateControls(const FeedMetaInformationConfig& config)
{
    DetailList& details = *m_liquid.GetDetails();
    auto* grid = new wxFlexGridSizer(kColumns, FromDIP(wxSize(kGap, 0)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    m_countryPlace = std::make_unique<CountryPlaceCombination>(
        this, wxID_ANY, wxID_ANY, wxTRANSLATE("Country"), wxTRANSLATE("Place"), ":", config.countries,
        &details.At("liquid/country"), &details.At("liquid/place"), grid);
    // The longest name of a country would take half of the window.
    m_countryPlace->GetChoice()->SetMinSize(FromDIP(wxSize(kCountryWidth, -1)));
    m_countryPlace->GetChoice()->SetMaxSize(FromDIP(wxSize(kCountryWidth, -1)));
    AddLabel(*grid, wxTRANSLATE("Date of sampling"));
    m_samplingDate = new TvDatePickerCtrl(this, wxID_ANY, &details.At("liquid/sampling.date"),
                                          wxDefaultPosition, wxDefaultSize, wxDP_DROPDOWN | wxDP_SHOWCENTURY);
    grid->Add(m_samplingDate, cell);

    m_waterType = std::make_unique<ChoiceCombination>(this, wxID_ANY, wxTRANSLATE("Water type"), ":",
                                                      WithNone(config.waterTypes),
                                                      &details.At("liquid/water.type"), grid);
    grid->AddSpacer(0);
    AddLabel(*grid, wxTRANSLATE("Water source"));
    m_sourceField =
        new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(kSourceWidth, -1)));
    m_sourceField->SetValidator(TextEnterValidator(&m_source));
    m_sourceField->Bind(wxEVT_TEXT_ENTER, &FeedMetaInformation::OnSource, this);
    grid->Add(m_sourceField, cell);
    m_transfers.AddTransfer(std::make_unique<TransferDetail>(TransferToDetail | TransferCountsAsChange,
                                                             &m_source, m_sourceField,
                                                             &details.At("liquid/water.source")));
    CreateCommentButton(*grid);
    SetSizer(grid);
}

void FeedMetaInformation::CreateCommentButton(wxFlexGridSizer& grid)
{
    AddLabel(grid, wxTRANSLATE("Comments"));
    m_commentButton = new wxBitmapButton(this, wxID_ANY, m_emptyBitmap);
    m_commentButton->Bind(wxEVT_BUTTON, &FeedMetaInformation::OnEditComments, this);
    grid.Add(m_commentButton, wxSizerFlags().CentreVertical());
    m_transfers.AddTransfer(
        std::make_unique<TransferDetail>(0, &m_comment, m_commentButton, &m_commentDetail));
}

void FeedMetaInformation::Localize(const std::string& unitSystem)
{
    for (TvStaticText* label : m_labels)
        label->Localize(unitSystem);
    m_countryPlace->Localize(unitSystem);
    m_waterType->Localize(unitSystem);
    UpdateNames();
    ShowCommentState();
    Layout();
}

void FeedMetaInformation::SetItems(const CountryPlaceCombination::Items& countries,
                                   const ChoiceCombination::Items& waterTypes)
{
    m_countryPlace->SetCountries(countries);
    m_waterType->SetItems(WithNone(waterTypes));
}

void FeedMetaInformation::UpdateNames()
{
    accessibility::SetName(*m_countryPlace->GetChoice(), i18n::Translated("Country"));
    accessibility::SetName(*m_waterType->GetChoice(), i18n::Translated("Water type"));
    accessibility::SetName(*m_samplingDate, i18n::Translated("Date of sampling"));
    accessibility::SetName(*m_sourceField, i18n::Translated("Water source"));
    accessibility::SetName(*m_commentButton, i18n::Translated("Comments"));
}

void FeedMetaInformation::TransferDetailToWindow()
{
    m_transfers.TransferToWindow("iso", kNoCurrency);
    m_sourceField->TransferDataToWindow();
    m_samplingDate->TransferDetailToWindow();
    m_waterType->TransferDetailToWindow();
    m_countryPlace->TransferDetailToWindow();
    ShowCommentState();
}

void FeedMetaInformation::ShowCommentState()
{
    const bool hasComment = !m_comment.empty();
    if (hasComment != m_showsComment) {
        m_showsComment = hasComment;
        m_commentButton->SetBitmap(hasComment ? m_textBitmap : m_emptyBitmap);
    }
    const wxString toolTip = hasComment ? m_comment : i18n::Translated("Enter comments");
    if (m_commentButton->GetToolTipText() != toolTip)
        m_commentButton->SetToolTip(toolTip);
}

void FeedMetaInformation::OnEditComments(wxCommandEvent&)
{
    const wxRect button = m_commentButton->GetScreenRect();
    const wxSize size = FromDIP(wxSize(225, 100));
    CommentEntryDialog dialog(this, wxID_ANY, i18n::Translated("Comments"), wxDefaultPosition, size,
                              CommentEntryDialog::kStyle);
    // The toolkit centres a dialog on its parent unless it is moved once it exists.
    dialog.Move(button.x + button.width - size.x, button.y + button.height);
    dialog.SetComment(m_commentDetail.GetStringValue());
    if (dialog.ShowModal() != wxID_OK)
        return;
    wxString text = dialog.GetComment();
    text.Trim(true).Trim(false);
    if (text == m_comment)
        return;
    m_comment = text;
    m_commentDetail.SetValue(text);
    ShowCommentState();
    Signal();
}

void FeedMetaInformation::OnSource(wxCommandEvent&)
{
    bool changed = false;
    if (m_transfers.TransferFromWindow("iso", changed, kNoCurrency) && changed)
        Signal();
}

void FeedMetaInformation::OnChildChanged(wxCommandEvent&)
{
    // The controls have stored their values; the host hears of the panel.
    Signal();
}

void FeedMetaInformation::Signal()
{
    events::SendEvent(GetParent(), tvCHANGE_EVENT, GetId(), 0, wxString());
}
