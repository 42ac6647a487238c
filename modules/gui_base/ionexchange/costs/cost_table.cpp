// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/costs/cost_table.h"

#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/translation.h>

#include <algorithm>

namespace {

constexpr int kColumnsOfNumber = 2;
constexpr int kQuantityWidth = 66;
constexpr int kPriceWidth = 78;
constexpr int kMoneyWidth = 92;
constexpr int kPriceDigits = 6;

}  // namespace

CostTable::CostTable(FieldSet& fields, wxWindow* parent, const char* quantity,
                     std::span<const cost_table::Line> lines, std::span<const cost_table::Result> results)
    : m_fields(fields)
{
    const int numbers = 2 + static_cast<int>(results.size());
    m_grid = form::NewGrid(*parent, 1 + kColumnsOfNumber * numbers);
    m_grid->AddSpacer(0);
    AddHead(parent, quantity, true);
    AddHead(parent, wxTRANSLATE("Price"), true);
    for (const cost_table::Result& result : results)
        AddHead(parent, result.head, true);
    for (const cost_table::Line& line : lines)
        AddRow(parent, line, quantity, results);
}

void CostTable::AddHead(wxWindow* parent, const char* text, bool isNumber)
{
    TvStaticText* head = m_fields.AddLabel(parent, wxString::FromUTF8(text));
    head->SetFont(head->GetFont().Bold());
    m_grid->Add(head, isNumber ? wxSizerFlags().Right() : wxSizerFlags());
    m_grid->AddSpacer(0);
}

void CostTable::AddField(wxWindow* parent, Row& row, const char* head, DetailData& detail, bool isInput)
{
    const bool isMoney = detail.GetUnit() == "EUR";
    const FormRow spec{.key = detail.GetName().c_str(),
                       .label = head,
                       .field = isInput ? FormField::Input : FormField::Result,
                       .precision = isMoney   ? 2
                                    : isInput ? kPriceDigits
                                              : 4,
                       .format = isMoney ? TvTextCtrlFormat::Fixed : TvTextCtrlFormat::General,
                       .validatorFlags = isMoney ? PlainNumbers | GroupThousands : PlainNumbers,
                       .width = isMoney   ? kMoneyWidth
                                : isInput ? kPriceWidth
                                          : kQuantityWidth};
    wxWindow* field = m_fields.CreateField(parent, spec, detail);
    wxWindow* unit = m_fields.AddUnitLabel(parent, wxString::FromUTF8(detail.GetUnit()), true);
    for (wxWindow* window : {field, unit}) {
        m_grid->Add(window, window == field ? wxSizerFlags().Right() : wxSizerFlags().CentreVertical());
        row.windows.push_back(window);
    }
    row.named.push_back({field, head, detail.GetUnit()});
}

void CostTable::AddRow(wxWindow* parent, const cost_table::Line& line, const char* quantity,
                       std::span<const cost_table::Result> results)
{
    Row row{.line = line};
    row.name = m_fields.AddLabel(parent, line.label != nullptr ? wxString::FromUTF8(line.label) : wxString());
    row.windows.push_back(row.name);
    m_grid->Add(row.name, wxSizerFlags().CentreVertical());
    AddField(parent, row, quantity, m_fields.Details().At(line.quantityKey), false);
    AddField(parent, row, wxTRANSLATE("Price"), m_fields.Details().At(line.priceKey), true);
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
