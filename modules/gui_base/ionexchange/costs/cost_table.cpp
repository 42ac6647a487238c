// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/costs/cost_table.h"

#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/text_font.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/translation.h>

#include <algorithm>

namespace {

/// Name; quantity and price, each with a unit of its line.
constexpr int kColumnsOfLine = 5;
/// In DIP; longer numbers take more.
constexpr int kQuantityWidth = 52;
constexpr int kPriceWidth = 50;
constexpr int kMoneyWidth = 66;
constexpr int kShareWidth = 42;
constexpr int kDigits = 4;

}  // namespace

CostTable::CostTable(FieldSet& fields, wxWindow* parent, const char* quantity,
                     std::span<const cost_table::Line> lines, std::span<const cost_table::Result> results,
                     const AlignedGrid::Group& group)
    : m_fields(fields)
{
    m_grid = new AlignedGrid(kColumnsOfLine + static_cast<int>(results.size()),
                             parent->FromDIP(wxSize(form::kGap, form::kGap)), group);
    m_grid->AddSpacer(0);
    for (const char* head : {quantity, static_cast<const char*>(wxTRANSLATE("Price"))}) {
        AddHead(parent, head);
        m_grid->AddSpacer(0);
    }
    for (const cost_table::Result& result : results)
        AddHead(parent, result.head);
    // Results have one unit in all lines: it stands once, which leaves room for their numbers.
    for (int column = 0; column < kColumnsOfLine; ++column)
        m_grid->AddSpacer(0);
    for (const cost_table::Result& result : results)
        m_grid->Add(AddUnit(parent, result.unit), wxSizerFlags().Right());
    for (const cost_table::Line& line : lines)
        AddRow(parent, line, quantity, results);
}

void CostTable::AddHead(wxWindow* parent, const char* text)
{
    TvStaticText* head = m_fields.AddLabel(parent, wxString::FromUTF8(text));
    text_font::Set(*head, head->GetFont().Bold());
    m_grid->Add(head, wxSizerFlags().Right());
}

wxWindow* CostTable::AddUnit(wxWindow* parent, const std::string& isoUnit)
{
    return m_fields.AddUnitLabel(parent, wxString::FromUTF8(isoUnit), true);
}

void CostTable::AddField(wxWindow* parent, Row& row, const char* head, DetailData& detail, bool isInput)
{
    const std::string unit = detail.GetUnit();
    FormRow spec{.key = detail.GetName().c_str(),
                 .label = head,
                 .field = isInput ? FormField::Input : FormField::Result,
                 .precision = kDigits,
                 .validatorFlags = PlainNumbers,
                 .width = isInput ? kPriceWidth : kQuantityWidth};
    if (unit == "EUR" || unit == "%") {
        const bool isMoney = unit == "EUR";
        spec.format = TvTextCtrlFormat::Fixed;
        spec.precision = isMoney ? 2 : 1;
        spec.width = isMoney ? kMoneyWidth : kShareWidth;
        spec.validatorFlags |= isMoney ? GroupThousands : 0;
    }
    wxWindow* field = m_fields.CreateField(parent, spec, detail);
    // A field with a longer number takes more room, and the others of its column with it.
    m_grid->Add(field, wxSizerFlags().Expand());
    row.windows.push_back(field);
    row.named.push_back({field, head, unit});
}

void CostTable::AddRow(wxWindow* parent, const cost_table::Line& line, const char* quantity,
                       std::span<const cost_table::Result> results)
{
    Row row{.line = line};
    row.name = m_fields.AddLabel(parent, line.label != nullptr ? wxString::FromUTF8(line.label) : wxString());
    row.windows.push_back(row.name);
    m_grid->Add(row.name, wxSizerFlags().CentreVertical());
    const auto addWithUnit = [&](const char* head, const std::string& key, bool isInput) {
        DetailData& detail = m_fields.Details().At(key);
        AddField(parent, row, head, detail, isInput);
        wxWindow* const unit = AddUnit(parent, detail.GetUnit());
        m_grid->Add(unit, wxSizerFlags().CentreVertical());
        row.windows.push_back(unit);
    };
    addWithUnit(quantity, line.quantityKey, false);
    addWithUnit(wxTRANSLATE("Price"), line.priceKey, true);
    for (const cost_table::Result& result : results) {
        DetailData& detail = m_results.emplace_back(line.priceKey + "." + result.head, DetailType::Double,
                                                    std::string(result.unit));
        row.results.push_back(&detail);
        AddField(parent, row, result.head, detail, false);
    }
    m_rows.push_back(std::move(row));
}

std::string CostTable::NameOf(const Row& row) const
{
    return row.line.label != nullptr ? std::string(row.line.label)
                                     : m_fields.Details().At(row.line.nameKey).GetStdStringValue();
}

void CostTable::SetResults(const std::function<std::vector<double>(const std::string& priceKey)>& numbers)
{
    for (Row& row : m_rows) {
        const std::vector<double> values = numbers(row.line.priceKey);
        for (std::size_t i = 0; i < row.results.size(); ++i)
            row.results[i]->SetValue(values.at(i));
    }
}

bool CostTable::ShowLines()
{
    bool isOther = false;
    for (Row& row : m_rows) {
        const std::string name = NameOf(row);
        const wxString shown = i18n::Translated(wxString::FromUTF8(name));
        if (row.name->GetLabelText() != shown) {
            row.name->SetLabelText(wxString::FromUTF8(name));
            isOther = true;
        }
        if (std::exchange(row.isShown, !name.empty()) == row.isShown)
            continue;
        isOther = true;
        for (wxWindow* window : row.windows)
            window->Show(row.isShown);
    }
    return isOther;
}

bool CostTable::HasLines() const
{
    return std::ranges::any_of(m_rows, &Row::isShown);
}

void CostTable::NameFields(const std::string& unitSystem) const
{
    for (const Row& row : m_rows) {
        const wxString name = i18n::Translated(wxString::FromUTF8(NameOf(row)));
        for (const auto& [field, head, isoUnit] : row.named) {
            const std::string unit =
                costs::UnitIn(UnitSystemManager::GetUnit(isoUnit, unitSystem, true), m_fields.GetCurrency());
            accessibility::SetName(*field, accessibility::NameWithUnit(name + ", " + i18n::Translated(head),
                                                                       wxString::FromUTF8(unit)));
        }
    }
}
