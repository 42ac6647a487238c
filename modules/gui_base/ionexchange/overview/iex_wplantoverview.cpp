// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/overview/iex_wplantoverview.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/ionexchange/exchanger_name.h"
#include "gui_base/report/overview_report.h"
#include "gui_base/support/translation.h"

#include <wx/clipbrd.h>
#include <wx/log.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace iex {

namespace {

constexpr double kZoomStep = 1.25;
/// Pictures for other programs are larger than a screen shows them.
constexpr double kCopiedZoom = 2.0;

}  // namespace

IEXPlantOverviewPanelImpl::IEXPlantOverviewPanelImpl(Project* project, wxWindow* parent,
                                                     const wxString& title, int id, const wxPoint& pos,
                                                     const wxSize& size, long style)
    : ModulePanelBase(project, parent, id, pos, size, style, title)
{
    SetDefaultScrollRate();
    Create();
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        Refit();
    });
    // Whichever of its windows has the focus.
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (!OnZoomKey(event))
            event.Skip();
    });
    // A parent may have given the panel its size already.
    Refit();
}

void IEXPlantOverviewPanelImpl::DoCreateControls()
{
    m_graphics.clear();
    wxSizer* content = CreateContentSizer();
    content->Add(CreateToolSizer(), wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    wxSizer* graphics = CreateSvgPanelSizer();
    CreateSVGPanels(*graphics);
    content->Add(graphics, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    m_tools->Show(!m_graphics.empty());
    ShowZoom(m_zoom);
}

wxSizer* IEXPlantOverviewPanelImpl::CreateContentSizer()
{
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    SetSizerAndFit(sizer);
    return sizer;
}

wxSizer* IEXPlantOverviewPanelImpl::CreateSvgPanelSizer()
{
    return new wxBoxSizer(wxVERTICAL);
}

wxSizer* IEXPlantOverviewPanelImpl::CreateToolSizer()
{
    m_tools = new wxPanel(this);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](TvButton* button, const char* tooltip, const std::function<void()>& action) {
        AddLocalizable(button);
        button->SetTranslatableToolTip(tooltip);
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(form::kGap)));
    };
    add(new TvButton(m_tools, wxID_ANY, wxTRANSLATE("Fit to window")),
        wxTRANSLATE("As large as the page (Ctrl+9)"), [this] { FitToWindow(); });
    add(new TvButton(m_tools, wxID_ANY, wxTRANSLATE("Actual size")), wxTRANSLATE("100 % (Ctrl+0)"),
        [this] { SetZoom(1.0); });
    add(new TvButton(m_tools, wxID_ANY, wxTRANSLATE("Larger")),
        wxTRANSLATE("Larger (Ctrl++, Ctrl and the wheel)"), [this] { SetZoom(m_zoom * kZoomStep); });
    add(new TvButton(m_tools, wxID_ANY, wxTRANSLATE("Smaller")),
        wxTRANSLATE("Smaller (Ctrl+-, Ctrl and the wheel)"), [this] { SetZoom(m_zoom / kZoomStep); });
    add(new TvButton(m_tools, wxID_ANY, wxTRANSLATE("Copy picture")),
        wxTRANSLATE("The graphic as a picture (Ctrl+C)"), [this] { CopyPicture(); });
    m_tools->SetSizer(row);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_tools);
    return outer;
}

void IEXPlantOverviewPanelImpl::CreateSVGPanels(wxSizer& sizer)
{
    m_shown = GetProject() != nullptr ? GetProject()->GetGraphicConfigTypes() : Project::GraphicConfigTypes();
    m_shownType = GetProject() != nullptr ? GetProject()->GetModuleType() : std::string();
    bool isAny = false;
    for (const auto& [type, keys] : m_shown) {
        const auto graphic = MasterDatabase::GetGraphicInfo(GetProject()->GetModuleType(), type, keys);
        if (graphic.id < 0)
            continue;
        isAny = true;
        AddGraphic(graphic, sizer);
    }
    if (isAny)
        return;
    const wxString text = wxTRANSLATE("No graphic available for this arrangement");
    wxLogMessage("%s", i18n::Translated(text));
    sizer.Add(AddLocalizable(new TvStaticText(this, wxID_ANY, text)));
}

void IEXPlantOverviewPanelImpl::AddGraphic(const DBObjects::GraphicInfo& graphic, wxSizer& sizer)
{
    auto* place = new wxPanel(this);
    auto* inner = new wxBoxSizer(wxVERTICAL);
    try {
        const auto info =
            FromDbGraphicInfo(graphic, *GetProject(), GetUnitSystemDisplay(),
                              overviewtext::Formatter(ShownContext(GetProject()->GetUnitSystemDisplay())));
        auto* const shown = new ValueGraphic(info, place, MakeAnswers());
        shown->Bind(wxEVT_MOUSEWHEEL, [this, shown](wxMouseEvent& event) { OnWheelOn(*shown, event); });
        m_graphics.push_back(shown);
        inner->Add(shown);
    } catch (const std::exception& error) {
        const wxString cause = wxString::FromUTF8(error.what());
        wxLogWarning("%s %s", i18n::Translated(wxTRANSLATE("The graphic cannot be shown:")), cause);
        inner->Add(AddLocalizable(
            new TvStaticText(place, wxID_ANY, wxTRANSLATE("The graphic cannot be shown:"), " " + cause)));
    }
    place->SetSizer(inner);
    sizer.Add(place);
}

ValueGraphic::Answers IEXPlantOverviewPanelImpl::MakeAnswers()
{
    return {.graphicName = [] { return i18n::Translated(wxTRANSLATE("Plant overview")); },
            .nameOf = [this](const DetailReplaceMapping& value) { return NameOf(value); },
            .lead =
                [this](const DetailAddress& address) {
                    // Another page comes into view: not within the event of this one.
                    CallAfter([this, address] {
                        if (m_lead)
                            m_lead(address);
                    });
                },
            .takeKey = [this](const wxKeyEvent& key) { return OnZoomKey(key); }};
}

wxString IEXPlantOverviewPanelImpl::NameOf(const DetailReplaceMapping& value) const
{
    const auto address = value.GetAddress();
    const DetailData* const detail = value.FindDetail();
    if (!address || detail == nullptr)
        return {};
    const wxString label = i18n::Translated(detail->GetLabel().c_str());
    const OwnerNode* owner = GetProject()->FindOwner(address->owner);
    while (owner != nullptr && owner->GetKind() != OwnerKind::Exchanger)
        owner = owner->GetParent();
    return owner != nullptr ? ExchangerName(*owner) + ", " + label : label;
}

void IEXPlantOverviewPanelImpl::DoUpdateUnits()
{
    for (ValueGraphic* graphic : m_graphics) {
        graphic->UpdateUnits(GetUnitSystemDisplay());
        graphic->FollowValues();
    }
}

void IEXPlantOverviewPanelImpl::DoLocalize()
{
    for (ValueGraphic* graphic : m_graphics) {
        graphic->Localize();
        graphic->FollowValues();
    }
}

void IEXPlantOverviewPanelImpl::DoFollowProject()
{
    // Plants of different types can have the same exchangers.
    if (m_shownType == GetProject()->GetModuleType() && m_shown == GetProject()->GetGraphicConfigTypes()) {
        for (ValueGraphic* graphic : m_graphics)
            graphic->FollowValues();
        return;
    }
    if (m_recreating)
        return;
    // Not inside the handler of one of its own controls.
    m_recreating = true;
    CallAfter([this] {
        m_recreating = false;
        // New contents do not give the page another size.
        const wxRect place = GetRect();
        m_graphics.clear();
        m_tools = nullptr;
        RecreatePanel();
        SetSize(place);
        Refit();
    });
}

void IEXPlantOverviewPanelImpl::SetZoom(double zoom)
{
    m_fits = false;
    ShowZoom(zoom);
}

void IEXPlantOverviewPanelImpl::FitToWindow()
{
    m_fits = true;
    Refit();
}

void IEXPlantOverviewPanelImpl::Refit()
{
    if (m_fits)
        ShowZoom(FittingZoom());
}

double IEXPlantOverviewPanelImpl::FittingZoom() const
{
    const wxSize room = GetSize() - FromDIP(wxSize(2 * form::kGap, 2 * form::kGap));
    if (m_tools == nullptr)
        return m_zoom;
    int width = 0;
    int height = 0;
    for (const ValueGraphic* graphic : m_graphics) {
        width = std::max(width, graphic->GetOwnSize().x);
        height += graphic->GetOwnSize().y;
    }
    const int used = m_tools->GetBestSize().y + FromDIP(2 * form::kGap);
    if (width <= 0 || height <= 0 || room.x <= 0 || room.y <= used)
        return m_zoom;
    return std::min(static_cast<double>(room.x) / width, static_cast<double>(room.y - used) / height);
}

void IEXPlantOverviewPanelImpl::ShowZoom(double zoom)
{
    m_zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    bool isNew = false;
    for (ValueGraphic* graphic : m_graphics) {
        if (graphic->GetZoom() == m_zoom)
            continue;
        graphic->SetZoom(m_zoom);
        isNew = true;
    }
    if (!isNew)
        return;
    FitInside();
    Layout();
}

void IEXPlantOverviewPanelImpl::ZoomAt(ValueGraphic& graphic, const wxPoint& point, double factor)
{
    const wxPoint wanted = graphic.ClientToScreen(point);
    const double before = m_zoom;
    SetZoom(m_zoom * factor);
    const double grown = m_zoom / before;
    const wxPoint now = graphic.ClientToScreen(wxPoint(wxRound(point.x * grown), wxRound(point.y * grown)));
    const wxPoint start = GetViewStart() + (now - wanted);
    Scroll(std::max(0, start.x), std::max(0, start.y));
}

bool IEXPlantOverviewPanelImpl::OnZoomKey(const wxKeyEvent& key)
{
    // On many keyboards a plus takes Shift.
    const bool isPlus = key.GetKeyCode() == '+' || key.GetKeyCode() == '=';
    if (key.GetModifiers() != wxMOD_CONTROL &&
        !(isPlus && key.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT)))
        return false;
    switch (key.GetKeyCode()) {
        case '+':
        case '=':
        case WXK_NUMPAD_ADD:
            SetZoom(m_zoom * kZoomStep);
            return true;
        case '-':
        case WXK_NUMPAD_SUBTRACT:
            SetZoom(m_zoom / kZoomStep);
            return true;
        case '0':
            SetZoom(1.0);
            return true;
        case '9':
            FitToWindow();
            return true;
        case 'C':
            CopyPicture();
            return true;
        default:
            return false;
    }
}

void IEXPlantOverviewPanelImpl::OnWheelOn(ValueGraphic& graphic, wxMouseEvent& event)
{
    if (!event.ControlDown() || event.GetWheelDelta() == 0) {
        event.Skip();
        return;
    }
    const double turns = static_cast<double>(event.GetWheelRotation()) / event.GetWheelDelta();
    ZoomAt(graphic, event.GetPosition(), std::pow(kZoomStep, turns));
}

void IEXPlantOverviewPanelImpl::CopyPicture()
{
    const auto inFocus =
        std::ranges::find_if(m_graphics, [](const ValueGraphic* graphic) { return graphic->HasFocus(); });
    if (m_graphics.empty() || !wxTheClipboard->Open())
        return;
    ValueGraphic& graphic = inFocus != m_graphics.end() ? **inFocus : *m_graphics.front();
    wxTheClipboard->SetData(new wxBitmapDataObject(graphic.TakePicture(kCopiedZoom)));
    wxTheClipboard->Close();
}

}  // namespace iex
