// SPDX-License-Identifier: MIT
#include "app/frame/limits_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/dialogs/field_fault.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/form/shown_context.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/advice/resin_limits.h"
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/settings/settings.h"

#include <wx/button.h>
#include <wx/infobar.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace app {
namespace {

constexpr const char* kIso = "iso";
constexpr int kFieldWidth = 72;
constexpr int kHeight = 420;
constexpr int kButtonMargin = 12;
constexpr std::size_t kMostQuoted = 16;
constexpr const char* kNote = wxTRANSLATE("Note");
constexpr const char* kWarning = wxTRANSLATE("Warning");

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// "Iron, softening, Note".
wxString NameOf(const advice::LimitRow& row, const char* column)
{
    return Tr(row.label) + ", " + Tr(row.ahead) + ", " + Tr(column);
}

wxString TextOf(const wxTextCtrl& field)
{
    return field.GetValue().Trim(true).Trim(false);
}

/// What a message says of a text, which may be a pasted page, is to fit the dialog.
wxString Quoted(const wxString& text)
{
    return text.length() > kMostQuoted ? text.Left(kMostQuoted) + wxString::FromUTF8("\u2026") : text;
}

/// "0.3", or a dash where there is no limit.
wxString LimitText(double limit)
{
    constexpr int kDigits = 4;
    return std::isnan(limit) ? wxString::FromUTF8("\u2013")
                             : wxString::FromUTF8(ShownContext(kIso).Number(limit, kDigits));
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
    m_problem = new wxInfoBar(this);
    auto* scrolled =
        new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL);
    auto* grid = new wxFlexGridSizer(6, FromDIP(wxSize(12, 4)));
    for (const char* title : {"", "", kNote, kWarning, "", ""})
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
    defaults->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TakeDefaults(nullptr); });
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(12)).Expand();
    outer->Add(m_problem, wxSizerFlags().Expand());
    outer->Add(scrolled, wxSizerFlags(spaced).Proportion(1));
    outer->Add(defaults, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(12)));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    CentreOnParent();
    // What a commit of a field means for its fault; Enter still presses OK.
    Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent& event) {
        ShowFaults();
        event.Skip();
    });
    Bind(wxEVT_BUTTON, &LimitsDialog::OnOk, this, wxID_OK);
    ShowChanges();
}

void LimitsDialog::AddRow(wxWindow& place, wxFlexGridSizer& grid, const advice::LimitRow& row)
{
    const wxString label = Tr(row.label);
    grid.Add(new wxStaticText(&place, wxID_ANY, label), wxSizerFlags().CentreVertical());
    grid.Add(new wxStaticText(&place, wxID_ANY, Tr(row.ahead)), wxSizerFlags().CentreVertical());
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
        accessibility::SetName(*field, accessibility::NameWithUnit(NameOf(row, isWarning ? kWarning : kNote),
                                                                   wxString::FromUTF8(unit)));
        grid.Add(field, wxSizerFlags().CentreVertical());
    }
    grid.Add(new wxStaticText(&place, wxID_ANY, wxString::FromUTF8(unit)), wxSizerFlags().CentreVertical());
    AddWayBack(place, grid, row);
}

void LimitsDialog::AddWayBack(wxWindow& place, wxFlexGridSizer& grid, const advice::LimitRow& row)
{
    const advice::Limits usual = advice::UsualLimitsOf(row);
    const wxString label =
        wxString::Format(Tr("Back to %s / %s"), LimitText(usual.note), LimitText(usual.warn));
    // No higher than the fields, so that rows stay as close as they are.
    auto* back = new wxButton(&place, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
    back->SetMinSize(back->GetBestSize() + FromDIP(wxSize(kButtonMargin, 0)));
    back->SetToolTip(Tr("The limits that the program comes with"));
    accessibility::SetName(*back, Tr(row.label) + ", " + Tr(row.ahead) + ", " + label);
    back->Bind(wxEVT_BUTTON, [this, &row](wxCommandEvent&) {
        // The button goes; who works by keys stays in the row.
        FindField(advice::NoteSetting(row))->SetFocus();
        TakeDefaults(&row);
    });
    grid.Add(back, wxSizerFlags().CentreVertical().ReserveSpaceEvenIfHidden());
    m_waysBack[&row] = back;
}

void LimitsDialog::TakeDefaults(const advice::LimitRow* row)
{
    // Texts that are no numbers stay in the other rows.
    m_fields.VisitBindings([&](TransferDetail& binding) {
        DetailData& value = *binding.GetDetail();
        const std::string& name = value.GetName();
        if (row != nullptr && name != advice::NoteSetting(*row) && name != advice::WarnSetting(*row))
            return;
        const auto settings = CatalogueGroup("settings", "BASE");
        value.CopyValue(*std::ranges::find(*settings, name, &DetailData::GetName));
        binding.TransferToWindow(kIso, 1.0);
        binding.GetWindow()->TransferDataToWindow();
    });
    ShowFaults();
}

void LimitsDialog::ShowChange(const std::string& setting, double usual)
{
    TvTextCtrl& field = *FindField(setting);
    const bool isChanged = !advice::IsSameLimit(m_values.At(setting).GetDoubleValue(), usual);
    const wxFont font = GetFont();
    field.SetFont(isChanged ? font.Bold() : font);
    // What is wrong with a field counts for more.
    if (m_faulty.count(&field) == 0)
        field.SetToolTip(isChanged ? wxString::Format(Tr("Usual: %s"), LimitText(usual)) : wxString());
}

void LimitsDialog::ShowChanges()
{
    for (const auto& [row, back] : m_waysBack) {
        const advice::Limits usual = advice::UsualLimitsOf(*row);
        const advice::Limits limits{m_values.At(advice::NoteSetting(*row)).GetDoubleValue(),
                                    m_values.At(advice::WarnSetting(*row)).GetDoubleValue()};
        ShowChange(advice::NoteSetting(*row), usual.note);
        ShowChange(advice::WarnSetting(*row), usual.warn);
        back->Show(!advice::IsSameLimit(limits.note, usual.note) ||
                   !advice::IsSameLimit(limits.warn, usual.warn));
    }
}

void LimitsDialog::AddFaults(const advice::LimitRow& row, std::vector<Fault>& faults) const
{
    const auto limitIn = [&](TvTextCtrl& field, const char* column) {
        const wxString text = TextOf(field);
        const std::optional<double> limit = NumericValidator::ParseNumber(text);
        if (!limit && !text.empty())
            faults.push_back(
                {&field, wxString::Format(Tr("%s:\n\"%s\" is no number; an empty field means no limit"),
                                          NameOf(row, column), Quoted(text))});
        return limit.value_or(std::nan(""));
    };
    TvTextCtrl& note = *FindField(advice::NoteSetting(row));
    TvTextCtrl& warning = *FindField(advice::WarnSetting(row));
    const advice::Limits limits{limitIn(note, kNote), limitIn(warning, kWarning)};
    if (!advice::IsInOrder(limits))
        faults.push_back(
            {&note,
             wxString::Format(Tr("%s, %s:\nthe note begins at %s, above the warning at %s"), Tr(row.label),
                              Tr(row.ahead), Quoted(TextOf(note)), Quoted(TextOf(warning)))});
}

std::vector<LimitsDialog::Fault> LimitsDialog::ShowFaults()
{
    // A field that is stored takes its usual colour.
    m_fields.StoreFields(kIso);
    std::vector<Fault> faults;
    for (const advice::LimitRow& row : advice::LimitRows())
        AddFaults(row, faults);
    std::set<TvTextCtrl*> faulty;
    for (const Fault& fault : faults) {
        dialogs::ShowFault(*fault.field, fault.reason);
        faulty.insert(fault.field);
        m_faulty.erase(fault.field);
    }
    for (TvTextCtrl* const mended : m_faulty)
        dialogs::ShowFault(*mended, wxString());
    m_faulty = std::move(faulty);
    if (faults.empty())
        m_problem->Dismiss();
    ShowChanges();
    return faults;
}

void LimitsDialog::OnOk(wxCommandEvent& event)
{
    const std::vector<Fault> faults = ShowFaults();
    if (faults.empty()) {
        event.Skip();
        return;
    }
    m_problem->ShowMessage(faults.front().reason, wxICON_ERROR);
    faults.front().field->SetFocus();
    faults.front().field->SelectAll();
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
