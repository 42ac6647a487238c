// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/waste_water_panel.h"

#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/report/design_report.h"
#include "gui_base/support/text_font.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>

namespace {

constexpr int kGap = 4;
constexpr int kFieldWidth = 90;
constexpr int kSectionColumns = 3;

}  // namespace

const std::span<const TvWasteWaterAndComposition::Row> TvWasteWaterAndComposition::kCations = [] {
    static constexpr std::array rows{Row{wxTRANSLATE("TH"), "th"}, Row{wxTRANSLATE("Na, K, NH4"), "na_k_nh4"},
                                     Row{wxTRANSLATE("Other cations"), "other.c"}};
    return std::span<const Row>(rows);
}();
const std::span<const TvWasteWaterAndComposition::Row> TvWasteWaterAndComposition::kAnions = [] {
    static constexpr std::array rows{Row{wxTRANSLATE("Cl"), "cl"}, Row{wxTRANSLATE("SO4"), "so4"},
                                     Row{wxTRANSLATE("HCO3"), "hco3"}, Row{wxTRANSLATE("SiO2"), "sio2"},
                                     Row{wxTRANSLATE("Other anions"), "other.a"}};
    return std::span<const Row>(rows);
}();

namespace {

/// The details of an exchanger; where the line has none at that place, every value is unknown.
DetailList& StepDetails(iex::IEXProject& project, std::size_t step)
{
    static OwnerNode unknown(OwnerKind::Exchanger);
    return *(step < project.NumberSteps() ? project.GetStep(step) : unknown).GetDetails();
}

/// Whether a regenerant is an acid, or nobody knows what it is. Without a calculation its name tells.
bool MayBeAcid(const std::string& name, const DetailList& details)
{
    const auto* chemical = design::FindRegenerant(details.At("stepcomp/rm.chemical").GetStdStringValue());
    if (chemical == nullptr) {
        const auto& all = design::Regenerants();
        const auto named = std::ranges::find_if(
            all, [&](const design::Regenerant& each) { return each.name == name || each.formula == name; });
        chemical = named != all.end() ? &*named : nullptr;
    }
    return chemical == nullptr || chemical->kind == "acid";
}

}  // namespace

TvWasteWaterAndComposition::TvWasteWaterAndComposition(iex::IEXProject* project, wxWindow* parent,
                                                       const std::vector<WasteData>& regenerants,
                                                       const wxString& title, std::size_t step)
    : FormPanel(project, StepDetails(*project, step), parent),
      m_regenerants(regenerants),
      m_title(title),
      m_step(step)
{
    m_unknown.LoadGroup("stepcomp", "BASE");
    Create();
}

TvTextCtrl* TvWasteWaterAndComposition::FindField(const std::string& key, int regenerant) const
{
    if (regenerant == kStep)
        return GetFields().FindField(key);
    const auto index = static_cast<std::size_t>(regenerant);
    if (index >= m_regenerants.size())
        return nullptr;
    // Regenerants without a calculation share the details that they are bound to, and what these show.
    const WasteData& data = m_regenerants[index];
    const DetailData* detail = (data.details ? *data.details : m_unknown).GetDetail(key);
    return detail != nullptr ? GetFields().FindField(*detail) : nullptr;
}

void TvWasteWaterAndComposition::SetRegenerants(const std::vector<WasteData>& regenerants)
{
    if (std::ranges::equal(regenerants, m_regenerants, {}, &WasteData::name, &WasteData::name))
        return;
    m_regenerants = regenerants;
    // Whoever tells of it may be a field of this panel.
    CallAfter([this] { RecreatePanel(); });
}

bool TvWasteWaterAndComposition::DoHasWhatIf()
{
    return GetProject() != nullptr && whatif::HasRows(*GetProject());
}

DetailList& TvWasteWaterAndComposition::DetailsOf(const WasteData& regenerant)
{
    return regenerant.details ? *regenerant.details : m_unknown;
}

void TvWasteWaterAndComposition::DoCreateForm()
{
    GetFields().SetFieldWidth(kFieldWidth);
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, m_title));
    wxWindow* parent = box->GetStaticBox();
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(2 * kGap));
    auto* sections = new FlowSizer;
    // Wherever they stand, side by side or below each other.
    const AlignedGrid::Group group = AlignedGrid::NewGroup();
    wxSizer* const cations = CreateSection(parent, wxTRANSLATE("Cations"), kCations, group);
    AddLine(parent, *cations, GetProject()->GetDetails().At("project/qnetto"), wxTRANSLATE("Net flow rate"));
    sections->Add(cations, spaced);
    wxSizer* const anions = CreateSection(parent, wxTRANSLATE("Anions"), kAnions, group);
    AddLine(parent, *anions, GetFields().Details().At("step/neutral"), wxTRANSLATE("Neutralisation"));
    sections->Add(anions, spaced);
    box->Add(sections);
    box->Add(CreateRegenerants(parent, group), spaced);
    m_notes = new wxStaticText(parent, wxID_ANY, wxString());
    box->Add(m_notes, spaced);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(box, spaced);
    SetSizer(outer);
    SetDefaultScrollRate();
}

void TvWasteWaterAndComposition::AddHead(wxWindow* parent, wxSizer& grid, const wxString& text, bool isNumber)
{
    auto* head = AddLocalizable(new TvStaticText(parent, wxID_ANY, text, wxString()));
    text_font::Set(*head, head->GetFont().Bold());
    grid.Add(head, isNumber ? wxSizerFlags().Right() : wxSizerFlags());
}

void TvWasteWaterAndComposition::AddUnitHead(wxWindow* parent, wxSizer& grid, const wxString& isoUnit,
                                             const wxString& suffix)
{
    auto* head = GetFields().AddLocalizable(new TvUnitLabel(parent, isoUnit, true, true, suffix));
    text_font::Set(*head, head->GetFont().Bold());
    grid.Add(head, wxSizerFlags().Right());
}

void TvWasteWaterAndComposition::AddField(wxWindow* parent, wxSizer& grid, DetailData& detail,
                                          const wxString& name)
{
    const std::string label = name.utf8_string();
    grid.Add(
        GetFields().CreateField(
            parent, {.key = detail.GetName().c_str(), .label = label.c_str(), .field = FormField::Result},
            detail),
        wxSizerFlags().Right().CentreVertical());
}

void TvWasteWaterAndComposition::AddLine(wxWindow* parent, wxSizer& grid, DetailData& detail,
                                         const char* label)
{
    for (int column = 0; column < kSectionColumns; ++column)
        grid.AddSpacer(FromDIP(kGap));
    grid.Add(AddLocalizable(new TvStaticText(parent, wxID_ANY, label, wxString())),
             wxSizerFlags().CentreVertical());
    AddField(parent, grid, detail, label);
    grid.Add(GetFields().AddUnitLabel(parent, wxString::FromUTF8(detail.GetUnit()), true),
             wxSizerFlags().CentreVertical());
}

void TvWasteWaterAndComposition::DoTransferDetailsToWindows()
{
    FormPanel::DoTransferDetailsToWindows();
    ShowNotes();
}

void TvWasteWaterAndComposition::DoLocalize()
{
    FormPanel::DoLocalize();
    ShowNotes();
}

void TvWasteWaterAndComposition::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    ShowNotes();
}

void TvWasteWaterAndComposition::ShowNotes()
{
    const auto& plant = dynamic_cast<const iex::IEXProject&>(*GetProject());
    if (m_step >= plant.NumberSteps())
        return;
    const ReportContext context = ShownContext(plant.GetUnitSystemDisplay());
    const auto lines = designtext::WasteLines(design::DesignOf(plant), plant.GetStep(m_step), context);
    const wxString text = wxString::FromUTF8(designtext::TextOf(lines, context));
    if (m_notes->GetLabelText() == text)
        return;
    m_notes->SetLabelText(text);
    FitInside();
    Layout();
}

wxSizer* TvWasteWaterAndComposition::CreateSection(wxWindow* parent, const char* title,
                                                   std::span<const Row> rows, const AlignedGrid::Group& group)
{
    auto* grid = new AlignedGrid(kSectionColumns, FromDIP(wxSize(3 * kGap, kGap)), group);
    AddHead(parent, *grid, title, false);
    AddUnitHead(parent, *grid, "eq");
    AddUnitHead(parent, *grid, "meq/l");
    for (const Row& row : rows) {
        grid->Add(AddLocalizable(new TvStaticText(parent, wxID_ANY, row.label, wxString())),
                  wxSizerFlags().CentreVertical());
        for (const char* prefix : {"step/m.", "step/c."})
            AddField(parent, *grid, GetFields().Details().At(std::string(prefix) + row.key), row.label);
    }
    return grid;
}

wxSizer* TvWasteWaterAndComposition::CreateRegenerants(wxWindow* parent, const AlignedGrid::Group& group)
{
    auto* grid = new AlignedGrid(kSectionColumns + 1, FromDIP(wxSize(3 * kGap, kGap)), group);
    AddHead(parent, *grid, wxTRANSLATE("Regenerants"), false);
    for (const char* head :
         {wxTRANSLATE("Total"), wxTRANSLATE("Neutralization"), wxTRANSLATE("Spec. consumption")})
        AddHead(parent, *grid, head, true);
    AddHead(parent, *grid, wxString(), false);
    AddUnitHead(parent, *grid, "kg", " 100%");
    AddUnitHead(parent, *grid, "kg", " 100%");
    AddUnitHead(parent, *grid, "kg/m3");
    for (const WasteData& regenerant : m_regenerants) {
        DetailList& details = DetailsOf(regenerant);
        const wxString name = wxString::FromUTF8(regenerant.name);
        const auto label = [&](const wxString& text) {
            grid->Add(AddLocalizable(new TvStaticText(parent, wxID_ANY, text, wxString())),
                      wxSizerFlags().CentreVertical());
        };
        label(name);
        AddField(parent, *grid, details.At("stepcomp/rm"), name);
        AddField(parent, *grid, details.At("stepcomp/m.neutral"), name);
        AddField(parent, *grid, details.At("stepcomp/rb.spec"), name);
        if (!MayBeAcid(regenerant.name, details))
            continue;
        // What its free acid takes, and what of it the free base of the line leaves to be neutralised: less
        // than nothing where there is more base than acid.
        label(wxTRANSLATE("NaOH for its free acid; at right\nless free base (< 0: surplus)"));
        AddField(parent, *grid, details.At("stepcomp/rb.neutral"), name);
        AddField(parent, *grid, details.At("stepcomp/rb.delta"), name);
        grid->AddSpacer(0);
    }
    return grid;
}
