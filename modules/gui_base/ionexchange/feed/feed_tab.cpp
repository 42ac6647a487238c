// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/feed_tab.h"

#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/statbox.h>

namespace {

constexpr int kGap = 4;
constexpr const char* kPh = "ph";
constexpr FormRow kTotalPh{.key = kPh,
                           .label = wxTRANSLATE("Total pH"),
                           .limits = FormLimits{0.0, 14.0},
                           .precision = 2,
                           .format = TvTextCtrlFormat::Fixed,
                           .width = 70};

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

}  // namespace

bool SetFeedOrientationFor(wxBoxSizer& sizer, int width)
{
    int needed = 0;
    for (wxSizerItem* item : sizer.GetChildren())
        needed += item->CalcMin().x;
    const int orientation = width >= needed ? wxHORIZONTAL : wxVERTICAL;
    if (sizer.GetOrientation() == orientation)
        return false;
    sizer.SetOrientation(orientation);
    return true;
}

FeedTabBase::FeedTabBase(wxWindow* parent, Post post) : TvPanel(parent), m_post(std::move(post))
{
    SetSizer(new wxBoxSizer(wxVERTICAL));
}

void FeedTabBase::AddGridCtrl(FeedCompositionGridBase* grid, wxEventType edited)
{
    AddControl(grid);
    GetSizer()->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
    grid->SetOnEdit([this, edited](std::size_t row, FeedComposition::Unit unit, double value) {
        FeedEvent event(edited);
        event.row = row;
        event.unit = unit;
        event.value = value;
        PostCompositionChangedEvent(event);
    });
    const auto tellRow = [this](wxEventType type) {
        return [this, type](std::size_t row) {
            FeedEvent event(type);
            event.row = row;
            PostCompositionChangedEvent(event);
        };
    };
    grid->SetOnRemove(tellRow(tvFEED_ENTRY_REMOVED));
    grid->SetOnImport(tellRow(tvFEED_ENTRY_IMPORTED));
}

wxStaticBoxSizer* FeedTabBase::AddTotalBox(const char* title)
{
    auto* box = AddControl(new TvStaticBoxSizer(wxVERTICAL, this, title));
    m_totals = AddControl(new FeedTotalBox(box->GetStaticBox()));
    box->Add(m_totals, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    GetSizer()->Add(box, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
    return box;
}

void FeedTabBase::ArrangeFor(int width)
{
    m_totals->ArrangeFor(width);
}

void FeedTabBase::SetTotals(const FeedComposition::Totals& totals)
{
    m_totals->SetTotals(totals);
}

FeedTab::FeedTab(wxWindow* parent, Post post, const FeedComposition& composition)
    : FeedTabBase(parent, std::move(post)), m_composition(composition)
{
    m_values.Add(DetailData(kPh));
    AddFeedGridCtrl();
    AddFeedTotalBox();
    m_fields.SetValidators();
    m_fields.OnCommit([this] { OnTotalPhEnter(); }, {});
    m_adjustPh->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { OnAdjustPhChecked(); });
    UpdateTotalPhInputMode();
    NameControls();
}

void FeedTab::AddFeedGridCtrl()
{
    m_grid = new FeedCompositionGrid(this, wxID_ANY, m_composition);
    AddGridCtrl(m_grid, tvFEED_CELL_EDITED);
}

void FeedTab::AddFeedTotalBox()
{
    AddPhRow(*AddTotalBox(wxTRANSLATE("Total feed composition")));
}

void FeedTab::OnAdjustPhChecked()
{
    UpdateTotalPhInputMode();
    Tell(tvFEED_PH_CHANGED);
}

void FeedTab::AddPhRow(wxStaticBoxSizer& box)
{
    wxWindow* inside = box.GetStaticBox();
    auto* stated = new wxBoxSizer(wxHORIZONTAL);
    auto* dosed = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap));
    m_adjustPh = AddControl(new TvCheckBox(inside, wxID_ANY, wxTRANSLATE("Adjust pH")));
    auto* label = AddControl(new TvStaticText(inside, wxID_ANY, kTotalPh.label));
    m_fields.CreateField(inside, kTotalPh);
    m_totalPh = m_fields.FindField(kPh);
    m_adjustmentLabel =
        AddControl(new TvStaticText(inside, wxID_ANY, wxTRANSLATE("Base (+) or acid (-) dosed")));
    m_adjustment = FeedTotalBox::NewResultField(inside);
    stated->Add(m_adjustPh, cell);
    stated->Add(label, cell);
    stated->Add(m_totalPh, cell);
    dosed->Add(m_adjustmentLabel, cell);
    dosed->Add(m_adjustment, cell);
    dosed->Add(new wxStaticText(inside, wxID_ANY, "meq/l"), cell);
    m_phRow = new wxBoxSizer(wxHORIZONTAL);
    m_phRow->Add(stated);
    m_phRow->Add(dosed);
    box.Add(m_phRow, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void FeedTab::NameControls()
{
    accessibility::SetName(*m_grid, Tr("Feed"));
    accessibility::SetName(*m_adjustment,
                           accessibility::NameWithUnit(Tr("Base (+) or acid (-) dosed"), "meq/l"));
    m_fields.UpdateNames("iso");
}

void FeedTab::Localize(const std::string& unitSystem)
{
    TvPanel::Localize(unitSystem);
    NameControls();
}

void FeedTab::ArrangeFor(int width)
{
    FeedTabBase::ArrangeFor(width);
    if (SetFeedOrientationFor(*m_phRow, width))
        InvalidateBestSize();
}

void FeedTab::ShowComposition()
{
    m_grid->ShowComposition();
    ShowTotals(m_composition);
}

void FeedTab::ShowTotals(const FeedComposition& composition)
{
    SetTotals(composition.GetFeedTotals());
    FeedTotalBox::ShowNumber(*m_adjustment, composition.GetFeedTotals().adjustment);
    m_adjustPh->SetValue(composition.IsPhAdjusted());
    m_values.At(kPh).SetValue(composition.GetTotalPh());
    m_fields.ShowDetails("iso");
    UpdateTotalPhInputMode();
}

void FeedTab::UpdateTotalPhInputMode()
{
    const bool adjust = m_adjustPh->GetValue();
    if (m_totalPh->IsEditable() != adjust)
        m_totalPh->SetEditable(adjust);
    m_adjustment->Enable(adjust);
    m_adjustmentLabel->Enable(adjust);
    m_grid->UpdateGridColumnPhVisibility(adjust);
}

void FeedTab::ConnectStatusBar(wxStatusBar* statusBar)
{
    m_totalPh->SetStatusBar(statusBar);
}

bool FeedTab::IsPhAdjusted() const
{
    return m_adjustPh->GetValue();
}

double FeedTab::GetTotalPh()
{
    return m_values.At(kPh).GetDoubleValue();
}

void FeedTab::FocusPh()
{
    m_adjustPh->SetFocus();
}

void FeedTab::OnTotalPhEnter()
{
    if (!m_totalPh->IsEditable())
        return;
    m_fields.StoreFields("iso");
    m_totalPh->DiscardEdits();
    Tell(tvFEED_PH_CHANGED);
}

EffluentTab::EffluentTab(wxWindow* parent, Post post, const FeedComposition& composition)
    : FeedTabBase(parent, std::move(post)), m_composition(composition)
{
    AddUseCheckBox();
    AddEffluentGridCtrl();
    AddEffluentTotalBox();
    NameControls();
}

void EffluentTab::AddUseCheckBox()
{
    m_useEffluent =
        AddControl(new TvCheckBox(this, wxID_ANY, wxTRANSLATE("Enable effluent composition input")));
    m_useEffluent->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { OnUseEffluentChecked(); });
    GetSizer()->Add(m_useEffluent, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void EffluentTab::AddEffluentGridCtrl()
{
    m_grid = new EffluentCompositionGrid(this, wxID_ANY, m_composition);
    AddGridCtrl(m_grid, tvFEED_EFFLUENT_CELL_EDITED);
    m_grid->Enable(false);
}

void EffluentTab::AddEffluentTotalBox()
{
    wxStaticBoxSizer* box = AddTotalBox(wxTRANSLATE("Total effluent composition"));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap));
    row->Add(AddControl(new TvStaticText(box->GetStaticBox(), wxID_ANY, wxTRANSLATE("Total pH"))), cell);
    m_ph = FeedTotalBox::NewResultField(box->GetStaticBox());
    row->Add(m_ph, cell);
    box->Add(row, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void EffluentTab::OnUseEffluentChecked()
{
    m_grid->Enable(m_useEffluent->GetValue());
    Tell(tvFEED_EFFLUENT_CHANGED);
}

void EffluentTab::NameControls()
{
    accessibility::SetName(*m_grid, Tr("Effluent"));
    accessibility::SetName(*m_ph, Tr("Total pH"));
}

void EffluentTab::Localize(const std::string& unitSystem)
{
    TvPanel::Localize(unitSystem);
    NameControls();
}

void EffluentTab::ShowComposition()
{
    m_grid->ShowComposition();
    ShowTotals(m_composition);
}

void EffluentTab::ShowTotals(const FeedComposition& composition)
{
    SetTotals(composition.GetEffluentTotals());
    FeedTotalBox::ShowNumber(*m_ph, composition.GetEffluentTotals().pH);
    m_useEffluent->SetValue(composition.UsesEffluent());
    m_grid->UpdateGridColumnPhVisibility(composition.IsPhAdjusted());
    if (m_grid->IsThisEnabled() != composition.UsesEffluent())
        m_grid->Enable(composition.UsesEffluent());
}

bool EffluentTab::IsUsed() const
{
    return m_useEffluent->GetValue();
}

void EffluentTab::FocusUse()
{
    m_useEffluent->SetFocus();
}
