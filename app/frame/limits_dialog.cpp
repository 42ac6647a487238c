// SPDX-License-Identifier: MIT
#include "app/frame/limits_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/advice/resin_limits.h"
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/settings/settings.h"

#include <wx/button.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

#include <cmath>

namespace app {
namespace {

constexpr const char* kIso = "iso";
constexpr int kFieldWidth = 72;
constexpr int kHeight = 420;
constexpr const char* kNote = wxTRANSLATE("Note");
constexpr const char* kWarning = wxTRANSLATE("Warning");

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// "limit.fe.soft.note" and the like: a copy of the setting.
void CopySetting(const std::string& name, const std::map<std::string, double>& changed, DetailList& values)
{
    DetailData& value = values.Add(Settings::GetSetting(name));
    if (const auto found = changed.find(name); found != changed.end())
        value.SetValue(found->second);
}

}  // namespace

LimitsDialog::LimitsDialog(wxWindow* parent, const std::map<std::string, double>& changed)
    : wxDialog(parent, wxID_ANY, Tr("Limits ahead of resins"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    for (const advice::LimitRow& row : advice::LimitRows()) {
        CopySetting(advice::NoteSetting(row), changed, m_values);
        CopySetting(advice::WarnSetting(row), changed, m_values);
    }
    auto* scrolled =
        new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL);
    auto* grid = new wxFlexGridSizer(5, FromDIP(wxSize(12, 4)));
    for (const char* title : {"", "", kNote, kWarning, ""})
        grid->Add(new wxStaticText(scrolled, wxID_ANY, *title == '\0' ? wxString() : Tr(title)));
    for (const advice::LimitRow& row : advice::LimitRows())
        AddRow(*scrolled, *grid, row);
    m_fields.SetValidators();
    m_fields.ShowDetails(kIso);
    scrolled->SetSizer(grid);
    scrolled->SetScrollRate(0, FromDIP(12));
    scrolled->FitInside();
    scrolled->SetMinSize({grid->GetMinSize().x + FromDIP(24), FromDIP(kHeight)});

    auto* defaults = new wxButton(this, wxID_ANY, Tr("Defaults"));
    defaults->SetToolTip(Tr("The limits that the program comes with"));
    defaults->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TakeDefaults(); });
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(12)).Expand();
    outer->Add(scrolled, wxSizerFlags(spaced).Proportion(1));
    outer->Add(defaults, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(12)));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    CentreOnParent();
}

void LimitsDialog::AddRow(wxWindow& place, wxFlexGridSizer& grid, const advice::LimitRow& row)
{
    const wxString label = Tr(row.label);
    const wxString ahead = Tr(row.ahead);
    grid.Add(new wxStaticText(&place, wxID_ANY, label), wxSizerFlags().CentreVertical());
    grid.Add(new wxStaticText(&place, wxID_ANY, ahead), wxSizerFlags().CentreVertical());
    std::string unit;
    for (const bool isWarning : {false, true}) {
        const std::string name = isWarning ? advice::WarnSetting(row) : advice::NoteSetting(row);
        unit = m_values.At(name).GetUnit();
        wxWindow* field = m_fields.AddInput(&place, {.key = name,
                                                     .label = label,
                                                     .unit = wxString::FromUTF8(unit),
                                                     .undef = std::nan(""),
                                                     .width = kFieldWidth,
                                                     .inIsoUnits = true});
        accessibility::SetName(*field, accessibility::NameWithUnit(
                                           label + ", " + ahead + ", " + Tr(isWarning ? kWarning : kNote),
                                           wxString::FromUTF8(unit)));
        grid.Add(field);
    }
    grid.Add(new wxStaticText(&place, wxID_ANY, wxString::FromUTF8(unit)), wxSizerFlags().CentreVertical());
}

void LimitsDialog::TakeDefaults()
{
    for (const DetailData& prototype : *CatalogueGroup("settings", "BASE")) {
        if (DetailData* value = m_values.GetDetail(prototype.GetName()))
            value->CopyValue(prototype);
    }
    m_fields.ShowDetails(kIso);
}

std::map<std::string, double> LimitsDialog::GetChanged()
{
    m_fields.StoreFields(kIso);
    std::map<std::string, double> changed;
    for (const auto& [name, value] : m_values) {
        if (!value.HasSameValue(Settings::GetSetting(name)))
            changed[name] = value.GetDoubleValue();
    }
    return changed;
}

}  // namespace app
