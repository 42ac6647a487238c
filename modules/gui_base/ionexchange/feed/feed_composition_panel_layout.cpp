// SPDX-License-Identifier: MIT
// The controls of the feed composition, in the order in which they stand and are walked.
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_notebook.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/statbox.h>

#include <limits>

namespace {

constexpr int kGap = 4;
constexpr int kPhDecimals = 2;
constexpr int kDetailWidth = 100;
/// What frames and gaps around the totals take of the width.
constexpr int kBoxMargins = 64;
constexpr double kMostPh = 14.0;

/// Symbols of elements are no words: "No" must not become an answer.
class ElementChoice : public tvChoice
{
public:
    explicit ElementChoice(wxWindow* parent) : tvChoice({}, nullptr, parent, wxID_ANY) {}

protected:
    wxString DisplayText(const wxString& label) const override
    {
        return label.length() > 3 ? tvChoice::DisplayText(label) : label;
    }
};

TvStaticText* NewHint(wxWindow* parent, const wxString& text)
{
    auto* hint = new TvStaticText(parent, wxID_ANY, text);
    hint->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    return hint;
}

/// Side by side where the width allows it, else one below the other; whether that changed.
bool SetOrientationFor(wxBoxSizer& sizer, int width)
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

}  // namespace

void FeedCompositionPanel::CreateControls()
{
    m_outer = new wxBoxSizer(wxVERTICAL);
    SetSizer(m_outer);
    AddTopSizer();
    AddStatBoxTop();
    AddCompoundList();
    AddCompoundInfoBox();
    AddMediumBox();
    AddTableNotebook();
}

void FeedCompositionPanel::AddTopSizer()
{
    m_top = new wxBoxSizer(wxHORIZONTAL);
    m_outer->Add(m_top, wxSizerFlags(2).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddStatBoxTop()
{
    m_selectionBox =
        AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Compound selection")));
    m_top->Add(m_selectionBox, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
    AddFilterRow(m_selectionBox->GetStaticBox());
}

void FeedCompositionPanel::AddFilterRow(wxWindow* box)
{
    const wxSizerFlags line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
    m_selectionBox->Add(
        AddLocalizable(NewHint(box, wxTRANSLATE("Filter by element or category, or search for compounds"))),
        line);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_element = AddLocalizable(new ElementChoice(box));
    m_category = AddLocalizable(new tvChoice({}, nullptr, box, wxID_ANY));
    m_search = AddLocalizable(new TvSearchControl(box, wxID_ANY));
    m_search->SetTranslatableHint(wxTRANSLATE("Search for compound name or formula ..."));
    m_search->ShowCancelButton(true);
    m_search->SetMinSize(FromDIP(wxSize(200, -1)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(kGap));
    row->Add(m_element, cell);
    row->Add(m_category, cell);
    row->Add(m_search, wxSizerFlags(1).CentreVertical());
    m_selectionBox->Add(row, line);
}

void FeedCompositionPanel::AddCompoundList()
{
    wxWindow* box = m_selectionBox->GetStaticBox();
    m_list = AddLocalizable(new CompoundList(box, wxID_ANY));
    m_list->SetMinSize(FromDIP(wxSize(320, 110)));
    m_selectionBox->Add(m_list, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap)));
    m_selectionBox->Add(
        AddLocalizable(NewHint(box, wxTRANSLATE("Double click a compound to add it to the feed"))),
        wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap)));
    AddButtonRow(box);
}

void FeedCompositionPanel::AddButtonRow(wxWindow* box)
{
    struct Row
    {
        wxEventType event;
        const char* label;
        const char* tooltip;
    };
    const Row rows[] = {
        {tvFEED_COMPOUND_NEW, wxTRANSLATE("New"), wxTRANSLATE("Add a compound to the database")},
        {tvFEED_COMPOUND_EDIT, wxTRANSLATE("Edit"), wxTRANSLATE("Edit the selected compound")},
        {tvFEED_COMPOUND_DELETE, wxTRANSLATE("Delete"),
         wxTRANSLATE("Delete the selected compounds from the database")},
        {tvFEED_IMPORT, wxTRANSLATE("Import"), wxTRANSLATE("Read compounds from a file")},
        {tvFEED_EXPORT, wxTRANSLATE("Export"), wxTRANSLATE("Write the listed compounds to a file")},
    };
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_buttons.clear();
    for (const Row& entry : rows) {
        auto* button = AddLocalizable(new TvButton(box, wxID_ANY, entry.label));
        button->SetTranslatableToolTip(entry.tooltip);
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
        m_buttons.push_back({entry.event, button});
    }
    m_selectionBox->Add(row, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddCompoundInfoBox()
{
    m_side = new wxBoxSizer(wxVERTICAL);
    m_top->Add(m_side, wxSizerFlags().Expand());
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Compound details")));
    wxWindow* inside = box->GetStaticBox();
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(3 * kGap, kGap)));
    m_noSelection = AddLocalizable(NewHint(inside, wxTRANSLATE("No compound selected")));
    m_details.clear();
    for (const char* label : {wxTRANSLATE("Ionic Charge"), wxTRANSLATE("Molweight"), wxTRANSLATE("Valency"),
                              wxTRANSLATE("pKa")}) {
        auto* text = AddLocalizable(new TvStaticText(inside, wxID_ANY, label, ":"));
        auto* value = new wxStaticText(inside, wxID_ANY, wxString());
        value->SetMinSize(FromDIP(wxSize(kDetailWidth, -1)));
        grid->Add(text);
        grid->Add(value);
        m_details.emplace_back(text, value);
    }
    box->Add(m_noSelection, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    box->Add(grid, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
    m_side->Add(box, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddMediumBox()
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Feed medium")));
    m_medium = AddLocalizable(new FeedMediumBox(box->GetStaticBox()));
    box->Add(m_medium, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
    m_side->Add(box, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddTableNotebook()
{
    m_tabs = AddLocalizable(new TvNotebook(this));
    AddFeedTabPanel();
    AddEffluentTabPanel();
    m_outer->Add(m_tabs, wxSizerFlags(3).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(2 * kGap)));
}

void FeedCompositionPanel::AddFeedTabPanel()
{
    auto* page = new wxPanel(m_tabs);
    page->SetSizer(new wxBoxSizer(wxVERTICAL));
    AddFeedGridCtrl(page);
    AddFeedTotalBox(page);
    m_tabs->AddPage(page, wxTRANSLATE("Feed"));
}

void FeedCompositionPanel::AddFeedGridCtrl(wxWindow* page)
{
    m_feedGrid = AddLocalizable(new FeedCompositionGrid(page, wxID_ANY, m_composition));
    page->GetSizer()->Add(m_feedGrid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddFeedTotalBox(wxWindow* page)
{
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, page, wxTRANSLATE("Total feed composition")));
    m_feedTotals = AddLocalizable(new FeedTotalBox(box->GetStaticBox()));
    box->Add(m_feedTotals, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    AddPhRow(box->GetStaticBox(), *box);
    page->GetSizer()->Add(box, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddPhRow(wxWindow* box, wxSizer& sizer)
{
    auto* stated = new wxBoxSizer(wxHORIZONTAL);
    auto* dosed = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap));
    m_adjustPh = AddLocalizable(new TvCheckBox(box, wxID_ANY, wxTRANSLATE("Adjust pH")));
    m_totalPh =
        new TvTextCtrl(box, wxID_ANY, {}, wxDefaultPosition, FromDIP(wxSize(70, -1)), wxTE_RIGHT,
                       DoubleValidator(&m_phValue, TvTextCtrlFormat::Fixed, kPhDecimals, CheckMin | CheckMax,
                                       0.0, kMostPh, std::numeric_limits<double>::quiet_NaN()));
    m_adjustmentLabel =
        AddLocalizable(new TvStaticText(box, wxID_ANY, wxTRANSLATE("Base (+) or acid (-) dosed")));
    m_adjustment = FeedTotalBox::NewResultField(box);
    stated->Add(m_adjustPh, cell);
    stated->Add(AddLocalizable(new TvStaticText(box, wxID_ANY, wxTRANSLATE("Total pH"))), cell);
    stated->Add(m_totalPh, cell);
    dosed->Add(m_adjustmentLabel, cell);
    dosed->Add(m_adjustment, cell);
    dosed->Add(new wxStaticText(box, wxID_ANY, "meq/l"), cell);
    m_phRow = new wxBoxSizer(wxHORIZONTAL);
    m_phRow->Add(stated);
    m_phRow->Add(dosed);
    sizer.Add(m_phRow, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddEffluentTabPanel()
{
    auto* page = new wxPanel(m_tabs);
    page->SetSizer(new wxBoxSizer(wxVERTICAL));
    m_useEffluent =
        AddLocalizable(new TvCheckBox(page, wxID_ANY, wxTRANSLATE("Enable effluent composition input")));
    page->GetSizer()->Add(m_useEffluent, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    AddEffluentGridCtrl(page);
    AddEffluentTotalBox(page);
    m_tabs->AddPage(page, wxTRANSLATE("Effluent"));
}

void FeedCompositionPanel::AddEffluentGridCtrl(wxWindow* page)
{
    m_effluentGrid = AddLocalizable(new EffluentCompositionGrid(page, wxID_ANY, m_composition));
    page->GetSizer()->Add(m_effluentGrid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::AddEffluentTotalBox(wxWindow* page)
{
    auto* box =
        AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, page, wxTRANSLATE("Total effluent composition")));
    m_effluentTotals = AddLocalizable(new FeedTotalBox(box->GetStaticBox()));
    box->Add(m_effluentTotals, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags cell = wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(2 * kGap));
    m_effluentPh = FeedTotalBox::NewResultField(box->GetStaticBox());
    row->Add(AddLocalizable(new TvStaticText(box->GetStaticBox(), wxID_ANY, wxTRANSLATE("Total pH"))), cell);
    row->Add(m_effluentPh, cell);
    box->Add(row, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    page->GetSizer()->Add(box, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
}

void FeedCompositionPanel::ArrangeTop()
{
    const int inside = GetClientSize().x - FromDIP(kBoxMargins);
    m_feedTotals->ArrangeFor(inside);
    m_effluentTotals->ArrangeFor(inside);
    SetOrientationFor(*m_phRow, inside);
    if (!SetOrientationFor(*m_top, GetClientSize().x))
        return;
    m_side->SetOrientation(m_top->GetOrientation() == wxHORIZONTAL ? wxVERTICAL : wxHORIZONTAL);
    Layout();
    FitInside();
}

void FeedCompositionPanel::NameControls()
{
    const auto name = [](wxWindow* window, const char* text) {
        accessibility::SetName(*window, i18n::Translated(text));
    };
    name(m_element, wxTRANSLATE("Element"));
    name(m_category, wxTRANSLATE("Category"));
    name(m_search, "Search for compound name or formula ...");
    name(m_list, wxTRANSLATE("Compounds"));
    name(m_feedGrid, "Feed");
    name(m_effluentGrid, "Effluent");
    name(m_totalPh, "Total pH");
    name(m_effluentPh, "Total pH");
    accessibility::SetName(*m_adjustment, i18n::Translated("Base (+) or acid (-) dosed") + ", meq/l");
    m_feedTotals->UpdateNames();
    m_effluentTotals->UpdateNames();
}
