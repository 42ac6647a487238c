// SPDX-License-Identifier: MIT
#include "app/frame/results_text.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/rows/ion_rows.h"
#include "gui_base/water/rows/property_rows.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/water/detection_limits.h"

#include <initializer_list>
#include <span>

namespace app {
namespace {

constexpr int kDigits = 6;

/// `key` is that of a typed value, which may be a limit of detection.
wxString Number(double value, const std::string& key = {})
{
    return wxString::FromUTF8(
        water::TypedText(key, value, {.precision = kDigits}, NumericValidator::LocaleSeparators()));
}

void AddLine(wxString& text, std::initializer_list<wxString> cells)
{
    wxString separator;
    for (const wxString& cell : cells) {
        text += separator + cell;
        separator = "\t";
    }
    text += "\n";
}

wxString PlainLabel(const char* source)
{
    return i18n::WithoutColon(i18n::Translated(source));
}

void AddIons(wxString& text, const DetailList& details, std::span<const wateranalysis::IonRow> rows,
             std::span<const wateranalysis::TotalRow> totals)
{
    for (const auto& row : rows) {
        const std::string prefix = std::string("liquid/") + row.key;
        const double meql = details.At(prefix + ".meql").GetDoubleValue();
        if (meql == 0.0)
            continue;
        const DetailData* name = details.GetDetail(prefix + ".name");
        AddLine(text, {name != nullptr ? name->GetStringValue() : PlainLabel(row.label),
                       Number(details.At(prefix + ".orig").GetDoubleValue(), prefix + ".orig"),
                       details.At(prefix + ".unit").GetStringValue(), Number(meql),
                       Number(details.At(prefix + ".mgl").GetDoubleValue())});
    }
    for (const auto& total : totals)
        AddLine(text, {PlainLabel(total.label), "", "", Number(details.At(total.key).GetDoubleValue()), ""});
}

}  // namespace

wxString ResultsText(const LiquidData& water, const std::string& unitSystem)
{
    const DetailList& details = *water.GetDetails();
    wxString text;
    AddLine(text, {i18n::Translated(ShownText(water.GetName()))});
    AddLine(text, {"", i18n::Translated("Original"), i18n::Translated("Unit"), "meq/l", "mg/l"});
    AddIons(text, details, wateranalysis::kCationRows, wateranalysis::kCationTotals);
    AddIons(text, details, wateranalysis::kAnionRows, wateranalysis::kAnionTotals);
    const DisplayFromDetail display;
    const auto addValue = [&](const wxString& label, const char* key) {
        const DetailData& detail = details.At(key);
        AddLine(text, {label, Number(display.GetValue(detail, unitSystem), key),
                       display.GetUnitLabel(detail, unitSystem)});
    };
    addValue(i18n::Translated("Temperature"), "liquid/temp");
    addValue(i18n::Translated("pH"), "liquid/ph");
    for (const auto& row : wateranalysis::kSummaryRows) {
        wxString suffix = wxString::FromUTF8(row.labelSuffix);
        suffix.Replace(":", "");
        addValue(i18n::Translated(row.label) + suffix, row.key);
    }
    for (const auto& row : wateranalysis::kEquivalentRows)
        addValue(i18n::Translated(row.label), row.key);
    for (const auto& row : wateranalysis::kMeasuredRows)
        addValue(i18n::Translated(row.label), (std::string("liquid/") + row.name).c_str());
    addValue(i18n::Translated(wateranalysis::kBalanceError.label), wateranalysis::kBalanceError.key);
    return text;
}

}  // namespace app
