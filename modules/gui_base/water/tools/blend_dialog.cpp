// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_dialog.h"

#include "core/amount_text.h"
#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include <algorithm>

namespace {

constexpr int kGap = 12;
constexpr int kMostHeight = 480;
constexpr int kMessageWidth = 320;
constexpr int kValueWidth = 400;  // wider texts of the preview break
constexpr int kScrollStep = 16;
constexpr unsigned long kMostNameLength = 100;  // as when a water is renamed

wxString TextOf(const wateranalysis::ResultTile& tile)
{
    std::string text = numbertext::WithUnit(tile.value, tile.unit);
    if (!text.empty() && !tile.second.empty())
        text += "  (" + tile.second + ")";
    return wxString::FromUTF8(text);
}

wxStaticText* NewText(wxWindow& parent)
{
    return new wxStaticText(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                            wxST_NO_AUTORESIZE);
}

/// In as many lines as it needs; the dialog makes room for them.
void ShowText(wxStaticText& control, const wxString& text)
{
    control.SetLabelText(text);
    control.Wrap(control.FromDIP(kValueWidth));
    control.InvalidateBestSize();
}

}  // namespace

BlendDialog::BlendDialog(wxWindow* parent, const wxString& name, const std::vector<std::string>& waters,
                         const water::BlendRecipe& recipe, const std::string& unitSystem, Preview preview)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Blend waters"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_preview(std::move(preview)),
      m_usualName(name),
      m_name(new TvTextCtrl(this, wxID_ANY, name)),
      m_scrolled(
          new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL))
{
    m_scrolled->SetScrollRate(0, FromDIP(kScrollStep));
    m_form = new BlendForm(m_scrolled, waters, recipe);
    m_form->Localize(unitSystem);
    auto* inner = new wxBoxSizer(wxVERTICAL);
    inner->Add(m_form, wxSizerFlags(1).Expand());
    m_scrolled->SetSizer(inner);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const int gap = FromDIP(kGap);
    outer->Add(NewNameRow(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
    outer->Add(m_scrolled, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(NewPreview(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    m_message = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                 FromDIP(wxSize(kMessageWidth, -1)), wxST_NO_AUTORESIZE);
    outer->Add(m_message, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
    outer->Add(dialogs::CreateButtons(*this, true), wxSizerFlags().Expand().Border(wxALL, gap));
    SetSizer(outer);
    ShowPreview();
    FitRows();
    m_form->SetOnChange([this] {
        ShowPreview();
        FitRows();
    });
    Bind(wxEVT_BUTTON, &BlendDialog::OnOk, this, wxID_OK);
    CentreOnParent();
}

wxSizer* BlendDialog::NewNameRow()
{
    const wxString label = i18n::Translated(wxTRANSLATE("Name"));
    m_name->SetMaxLength(kMostNameLength);
    m_name->SelectAll();
    m_name->SetFocus();
    accessibility::SetName(*m_name, label);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, label + i18n::Colon()),
             wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * form::kGap)));
    row->Add(m_name, wxSizerFlags(1));
    return row;
}

wxString BlendDialog::GetBlendName() const
{
    const wxString name = m_name->GetValue().Trim(true).Trim(false);
    return name.empty() ? m_usualName : name;
}

wxSizer* BlendDialog::NewPreview()
{
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, i18n::Translated(wxTRANSLATE("Blend")));
    auto* grid = form::NewGrid(*this, 2);
    grid->AddGrowableCol(1);
    for (const wateranalysis::ResultTile& tile : m_preview({})) {
        const wxString title = wxString::FromUTF8(tile.title);
        grid->Add(new wxStaticText(box->GetStaticBox(), wxID_ANY, title));
        wxStaticText* value = NewText(*box->GetStaticBox());
        accessibility::SetName(*value, title);
        grid->Add(value, wxSizerFlags().Expand());
        m_values.push_back(value);
    }
    box->Add(grid, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
    m_remark = NewText(*box->GetStaticBox());
    box->Add(m_remark, wxSizerFlags().Expand().Border(wxALL, FromDIP(form::kGap)));
    return box;
}

void BlendDialog::ShowPreview()
{
    const auto tiles = m_preview(GetRecipe());
    for (std::size_t i = 0; i < std::min(tiles.size(), m_values.size()); ++i)
        ShowText(*m_values[i], TextOf(tiles[i]));
    ShowText(*m_remark, m_form->GetShareRemark());
}

void BlendDialog::FitRows()
{
    m_scrolled->FitInside();
    const wxSize best = m_scrolled->GetSizer()->CalcMin();
    m_scrolled->SetMinSize({best.x + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this),
                            std::min(best.y, FromDIP(kMostHeight))});
    wxSize size = GetSizer()->ComputeFittingWindowSize(this);
    SetMinSize(size);
    // What the user made larger stays so.
    size.IncTo(GetSize());
    if (size != GetSize())
        SetSize(size);
    Layout();
}

void BlendDialog::OnOk(wxCommandEvent& event)
{
    if (GetRecipe().IsComplete()) {
        event.Skip();
        return;
    }
    m_message->SetLabelText(i18n::Translated("A blend needs two waters with their amounts"));
}
