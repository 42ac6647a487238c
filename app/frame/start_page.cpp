// SPDX-License-Identifier: MIT
#include "app/frame/start_page.h"

#include "app/document/plant_templates.h"
#include "app/document/recent_files.h"
#include "app/document/templates.h"
#include "app/frame/ion_strip.h"
#include "app/frame/main_frame.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/drawing_sheet.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/svg_bundle.h"
#include "gui_base/support/text_font.h"
#include "gui_base/support/translation.h"
#include "tncommon/data_dir.h"
#include "tncommon/zip_archive.h"

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/wrapsizer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace app {
namespace {

constexpr int kGap = 8;
constexpr int kColumnWidth = 360;
constexpr int kTileHeight = 56;
/// Of a picture with the room beside it, so that texts stand in line. Not higher than two lines of text: the
/// toolkit sets text and picture on one base line.
constexpr int kPictureWidth = 76;
constexpr int kPictureHeight = 34;
constexpr int kSlotWidth = kPictureWidth + 8;
constexpr int kIconSize = 24;
constexpr std::size_t kMostDrawingBytes = std::size_t{1} << 20;
/// As many as fit beside the plants.
constexpr std::size_t kMostExamples = 7;
constexpr std::size_t kMostRecent = 7;

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

constexpr std::array kLines{std::pair{"3", "11"}, std::pair{"2.2", "8"}, std::pair{"2", "8"},
                            std::pair{"1.8", "7"}, std::pair{"1.6", "6"}};

/// The drawing without its sheet, its colours turned to those for a dark background where there is one;
/// vessels hide what is behind them as they do on white. Of lines much thinner than a pixel little would be
/// left: they become wider.
wxString OnBackground(wxString svg)
{
    constexpr std::size_t kColourLength = 7;
    const wxColour page = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const bool isDark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
    svg.Replace("fill=\"#ffffff\"", "fill=\"none\"", false);
    for (std::size_t at = svg.find('#'); at != wxString::npos; at = svg.find('#', at + 1)) {
        const wxColour ink(svg.substr(at, kColourLength));
        if (ink.IsOk() && (isDark || ink == *wxWHITE))
            svg.replace(at, kColourLength, drawing_sheet::InkOn(page, ink).GetAsString(wxC2S_HTML_SYNTAX));
    }
    for (const auto& [thin, wide] : kLines)
        svg.Replace(wxString("stroke-width=\"") + thin + "\"", wxString("stroke-width=\"") + wide + "\"");
    return svg;
}

/// The drawing of a plant, small; none where the archive lacks it.
wxBitmapBundle DrawingOf(const PlantTemplate& plant)
{
    try {
        static const tncommon::ZipArchive drawings(tncommon::DataDir() / "graphics.zrc");
        if (const auto bytes = drawings.Read(plant.drawing, kMostDrawingBytes)) {
            const wxString svg = OnBackground(wxString::FromUTF8(*bytes));
            return svg_bundle::Make(svg.utf8_str(), wxSize(kPictureWidth, kPictureHeight));
        }
    } catch (const std::exception&) {
        // The page is as useful without.
    }
    return {};
}

wxString Capitalised(const wxString& text)
{
    return text.Left(1).Upper() + text.Mid(1);
}

wxBitmapBundle IconOf(const char* name)
{
    return ImageLoader::LoadTinted(wxString("icons/") + name + ".svg", wxSize(kIconSize, kIconSize),
                                   wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
}

/// Of a length in device-independent pixels, for what is drawn pixel by pixel.
int Pixels(int length, const wxWindow& window)
{
    return static_cast<int>(std::lround(window.FromDIP(length) * window.GetContentScaleFactor()));
}

/// The picture in the middle of the room that every picture has.
wxBitmap InSlot(const wxBitmapBundle& picture, const wxWindow& window)
{
    const wxImage drawn = picture.GetBitmapFor(&window).ConvertToImage();
    const wxSize room(Pixels(kPictureWidth, window), Pixels(kPictureHeight, window));
    wxImage slot(Pixels(kSlotWidth, window), room.y);
    slot.InitAlpha();
    std::fill_n(slot.GetAlpha(), slot.GetWidth() * slot.GetHeight(), wxIMAGE_ALPHA_TRANSPARENT);
    slot.Paste(drawn, std::max(0, (room.x - drawn.GetWidth()) / 2),
               std::max(0, (room.y - drawn.GetHeight()) / 2), wxIMAGE_ALPHA_BLEND_COMPOSE);
    return {slot, wxBITMAP_SCREEN_DEPTH, window.GetContentScaleFactor()};
}

}  // namespace

StartPage::StartPage(wxWindow* parent, MainFrame& frame)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL),
      m_frame(frame)
{
    SetScrollRate(0, FromDIP(12));
    accessibility::SetName(*this, Tr("Start page"));
}

void StartPage::ShowFresh()
{
    Build();
}

void StartPage::Localize()
{
    accessibility::SetName(*this, Tr("Start page"));
    TakeColours();
}

void StartPage::TakeColours()
{
    if (m_isBuilt)
        Build();
}

void StartPage::Build()
{
    m_isBuilt = true;
    DestroyChildren();
    auto* title = new wxStaticText(this, wxID_ANY, "Tarnvik");
    text_font::Set(*title, title->GetFont().Bold().Scaled(1.6F));
    auto* subtitle = new wxStaticText(this, wxID_ANY, Tr("Design of ion-exchange water-treatment plants"));
    auto* columns = new wxWrapSizer(wxHORIZONTAL, wxREMOVE_LEADING_SPACES);
    columns->Add(NewSection(wxTRANSLATE("New project"), BuildPlants()));
    columns->Add(NewSection(wxTRANSLATE("Example waters"), BuildExamples()));
    columns->Add(NewSection(wxTRANSLATE("Open"), BuildRecent()));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(title, wxSizerFlags().Border(wxLEFT | wxTOP, FromDIP(2 * kGap)));
    outer->Add(subtitle, wxSizerFlags().Border(wxLEFT | wxBOTTOM, FromDIP(2 * kGap)));
    outer->Add(columns, wxSizerFlags(1).Expand().Border(wxLEFT, FromDIP(kGap)));
    SetSizer(outer);
    FitInside();
    Layout();
}

wxSizer* StartPage::NewSection(const char* title, wxSizer* content)
{
    auto* section = new wxBoxSizer(wxVERTICAL);
    auto* head = new wxStaticText(this, wxID_ANY, Tr(title));
    text_font::Set(*head, head->GetFont().Bold());
    section->Add(head, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    section->Add(content, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
    return section;
}

wxButton* StartPage::NewTile(const wxBitmapBundle& picture, const wxString& name, const wxString& explanation,
                             std::function<void()> action)
{
    const wxSize size = FromDIP(wxSize(kColumnWidth, kTileHeight));
    auto* tile = new wxButton(this, wxID_ANY, wxString(), wxDefaultPosition, size, wxBU_LEFT | wxBORDER_NONE);
    const int room = size.x - FromDIP(kSlotWidth + 2 * kGap);
    const auto fitted = [&](const wxString& text) {
        return wxControl::EscapeMnemonics(
            wxControl::Ellipsize(text, wxClientDC(this), wxELLIPSIZE_END, room));
    };
    tile->SetLabel(explanation.empty() ? fitted(name) : fitted(name) + "\n" + fitted(explanation));
    if (picture.IsOk()) {
        tile->SetBitmap(InSlot(picture, *this));
    }
    tile->SetToolTip(explanation.empty() ? name : name + "\n" + explanation);
    accessibility::SetName(*tile, name);
    // The page may be made anew by what the button does.
    tile->Bind(wxEVT_BUTTON, [this, action = std::move(action)](wxCommandEvent&) { CallAfter(action); });
    return tile;
}

wxSizer* StartPage::BuildPlants()
{
    auto* list = new wxBoxSizer(wxVERTICAL);
    list->Add(NewTile(IconOf("water"), Tr("Waters and feeds"), Tr("Empty, without a plant"),
                      [this] { m_frame.Files().New(); }));
    for (const PlantTemplate& plant : PlantTemplates())
        list->Add(NewTile(DrawingOf(plant), Tr(plant.title), Tr("With the figures of an example"),
                          [this, &plant] { m_frame.Files().NewFrom(plant); }));
    list->Add(NewTile(IconOf("plant"), Tr("Another plant..."), Tr("By type and exchangers"),
                      [this] { m_frame.Files().NewPlant(); }));
    return list;
}

const std::vector<wxBitmap>& StartPage::ExampleStrips()
{
    const wxSize size(Pixels(kPictureWidth, *this), Pixels(kPictureHeight, *this));
    if (!m_strips.empty() && m_strips.front().GetSize() == size)
        return m_strips;
    m_strips.clear();
    const std::vector<WaterTemplate>& waters = WaterTemplates();
    for (std::size_t i = 0; i < std::min(waters.size(), kMostExamples); ++i) {
        m_strips.push_back(IonStrip(*NewProjectFrom(waters[i])->GetLiquid(0).GetDetails(), size));
        m_strips.back().SetScaleFactor(GetContentScaleFactor());
    }
    return m_strips;
}

wxSizer* StartPage::BuildExamples()
{
    auto* list = new wxBoxSizer(wxVERTICAL);
    const auto& waters = WaterTemplates();
    const auto& strips = ExampleStrips();
    for (std::size_t i = 0; i < strips.size(); ++i) {
        const WaterTemplate& water = waters[i];
        list->Add(NewTile(strips[i], wxString::FromUTF8(water.name), Capitalised(Tr(water.kind.c_str())),
                          [this, &water] { m_frame.Files().NewFrom(water); }));
    }
    list->Add(NewTile(IconOf("example"), Tr("All example waters..."), wxString(),
                      [this] { m_frame.Files().NewFromExample(); }));
    return list;
}

wxSizer* StartPage::BuildRecent()
{
    auto* list = new wxBoxSizer(wxVERTICAL);
    list->Add(NewTile(IconOf("open"), Tr("Open a project..."), wxString(),
                      [this] { m_frame.Files().AskAndOpen(); }));
    std::vector<std::filesystem::path> files;
    try {
        files = RecentFiles();
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
    }
    files.resize(std::min(files.size(), kMostRecent));
    for (const std::filesystem::path& file : files)
        list->Add(NewTile(IconOf("project"), ShownPath(file.stem()), ShownPath(file.parent_path()),
                          [this, file] { m_frame.Files().AskAndOpen(file); }));
    list->Add(NewTile(IconOf("help"), Tr("User guide"), wxString(), [this] { m_frame.ShowHelpContents(); }));
    return list;
}

}  // namespace app
