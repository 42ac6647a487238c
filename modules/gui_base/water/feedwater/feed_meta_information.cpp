// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_meta_information.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/feedwater/comment_entry_dialog.h"

#include <wx/sizer.h>

#include <stdexcept>

namespace {

/// Country and place bring a gap between them.
constexpr int kColumns = 5;
constexpr int kCountryWidth = 156;

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
    : FormBlock(Required(config.liquid).GetDetails(), config.parent, config.id, config.pos, config.size,
                config.style),
      m_comment(GetFields().Details().At("liquid/comments")),
      m_emptyBitmap(ImageLoader::LoadBundle("icons/i16/comment_empty.png", wxSize(16, 16))),
      m_textBitmap(ImageLoader::LoadBundle("icons/i16/comment.png", wxSize(16, 16)))
{
    CreateControls(config);
    CompleteForm();
}

void FeedMetaInformation::AddCell(wxFlexGridSizer& grid, const FormRow& row, const wxSizerFlags& field)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    grid.Add(GetFields().AddLabel(this, wxString::FromUTF8(row.label), ":"), cell);
    grid.Add(GetFields().CreateField(this, row), field);
}

void FeedMetaInformation::CreateControls(const FeedMetaInformationConfig& config)
{
    DetailList& details = GetFields().Details();
    auto* grid = new wxFlexGridSizer(kColumns, FromDIP(wxSize(form::kGap, 0)));
    m_countryPlace = AddCombination(std::make_unique<CountryPlaceCombination>(
        this, wxID_ANY, wxID_ANY, wxTRANSLATE("Country"), wxTRANSLATE("Place"), ":", config.countries,
        &details.At("liquid/country"), &details.At("liquid/place"), grid));
    // The longest name of a country would take half of the window. With its height known, the toolkit need
    // not measure every name again.
    tvChoiceAdv* const country = m_countryPlace->GetChoice();
    const wxSize size(FromDIP(kCountryWidth), country->GetSize().y);
    country->SetMinSize(size);
    country->SetMaxSize(size);

    m_waterType = AddCombination(std::make_unique<ChoiceCombination>(
        this, wxID_ANY, wxTRANSLATE("Water type"), ":", WithNone(config.waterTypes),
        &details.At("liquid/water.type"), grid));
    m_waterType->GetChoice()->SetMinSize(wxSize(size.x, -1));
    grid->AddSpacer(0);
    AddCell(*grid, {.key = "liquid/water.source", .label = wxTRANSLATE("Water source")},
            wxSizerFlags().Expand());
    AddCell(*grid, {.key = "liquid/sampling.date", .label = wxTRANSLATE("Date of sampling")},
            wxSizerFlags().CentreVertical());
    grid->AddSpacer(0);
    CreateCommentButton(*grid);
    SetSizer(grid);
}

void FeedMetaInformation::CreateCommentButton(wxFlexGridSizer& grid)
{
    grid.Add(GetFields().AddLabel(this, wxTRANSLATE("Comments"), ":"), wxSizerFlags().CentreVertical());
    m_commentButton = new wxBitmapButton(this, wxID_ANY, m_emptyBitmap);
    m_commentButton->Bind(wxEVT_BUTTON, &FeedMetaInformation::OnEditComments, this);
    grid.Add(m_commentButton, wxSizerFlags().CentreVertical());
}

void FeedMetaInformation::Localize(const std::string& unitSystem)
{
    FormBlock::Localize(unitSystem);
    accessibility::SetName(*m_commentButton, i18n::Translated("Comments"));
    ShowCommentState();
}

void FeedMetaInformation::SetItems(const CountryPlaceCombination::Items& countries,
                                   const ChoiceCombination::Items& waterTypes)
{
    m_countryPlace->SetCountries(countries);
    m_waterType->SetItems(WithNone(waterTypes));
}

void FeedMetaInformation::TransferDetailsToWindow()
{
    FormBlock::TransferDetailsToWindow();
    ShowCommentState();
}

void FeedMetaInformation::ShowCommentState()
{
    const wxString comment = m_comment.GetStringValue();
    const bool hasComment = !comment.empty();
    if (hasComment != m_showsComment) {
        m_showsComment = hasComment;
        m_commentButton->SetBitmap(hasComment ? m_textBitmap : m_emptyBitmap);
    }
    const wxString toolTip = hasComment ? comment : i18n::Translated("Enter comments");
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
    dialog.Move(button.x + button.width - dialog.GetSize().x, button.y + button.height);
    dialog.SetComment(m_comment.GetStringValue());
    if (dialog.ShowModal() != wxID_OK)
        return;
    wxString text = dialog.GetComment();
    text.Trim(true).Trim(false);
    if (text == m_comment.GetStringValue())
        return;
    m_comment.SetValue(text);
    ShowCommentState();
    Signal();
}
