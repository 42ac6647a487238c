// SPDX-License-Identifier: MIT
// The cells of a feed composition.
#include "core/number_text.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/number_cells.h"
#include "gui_base/ionexchange/feed/bitmap_grid_cell_renderer.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "gui_base/support/compound_name.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>
#include <wx/settings.h>

#include <array>

namespace {

using Entry = FeedComposition::CompoundEntry;
using Unit = FeedComposition::Unit;

constexpr const char* kRemoveImage = "/icons/i16/delete.png";
constexpr int kPhDecimals = 2;

const std::array kColumnLabels{wxTRANSLATE("Name"), wxTRANSLATE("Formula"), wxTRANSLATE("Acid/Base"),
                               wxTRANSLATE("Ionic charge"), wxTRANSLATE("Valency")};
const std::array<const char*, kAcidBaseCount> kAcidBaseTexts{
    wxTRANSLATE("Neutral"), wxTRANSLATE("Strong acid"), wxTRANSLATE("Weak acid"), wxTRANSLATE("Strong base"),
    wxTRANSLATE("Weak base")};

bool IsUnitColumn(int column)
{
    return column >= kFeedFirstUnit && column < kFeedPh;
}

Unit UnitOfColumn(int column)
{
    return static_cast<Unit>(column - kFeedFirstUnit);
}

wxString PhText(double value)
{
    return wxString::FromUTF8(
        numbertext::Format(value, {.format = TvTextCtrlFormat::Fixed, .precision = kPhDecimals},
                           NumericValidator::LocaleSeparators()));
}

wxString AcidBaseText(int kind)
{
    const bool known = kind >= 0 && kind < kAcidBaseCount;
    return i18n::Translated(kAcidBaseTexts[known ? static_cast<std::size_t>(kind) : 0]);
}

}  // namespace

FeedCompositionTable::FeedCompositionTable(Side side, const FeedComposition& composition, OnEdit onEdit)
    : m_side(side), m_composition(composition), m_onEdit(std::move(onEdit))
{
    TakeColours(true);
}

FeedCompositionTable::~FeedCompositionTable()
{
    ReleaseAttributes();
}

void FeedCompositionTable::ReleaseAttributes()
{
    for (wxGridCellAttr** attribute : {&m_text, &m_number, &m_input, &m_negative, &m_icon}) {
        if (*attribute != nullptr)
            (*attribute)->DecRef();
        *attribute = nullptr;
    }
}

void FeedCompositionTable::TakeColours(bool enabled)
{
    ReleaseAttributes();
    const wxColour shown = TvTextCtrl::ReadOnlyColour();
    const wxColour input = enabled ? TvTextCtrl::EditableColour() : shown;
    const wxColour text =
        wxSystemSettings::GetColour(enabled ? wxSYS_COLOUR_WINDOWTEXT : wxSYS_COLOUR_GRAYTEXT);
    m_text = cells::NewAttribute(shown, text, true, wxALIGN_LEFT);
    // Names give way where columns need the room.
    m_text->SetFitMode(wxGridFitMode::Ellipsize());
    m_number = cells::NewAttribute(shown, text, true, wxALIGN_RIGHT);
    m_input = cells::NewAttribute(input, text, !enabled, wxALIGN_RIGHT);
    // The alarm colours are pale in every theme, so the text on them is dark.
    m_negative =
        cells::NewAttribute(DoubleValidator(nullptr).GetBelowMinColour(), *wxBLACK, !enabled, wxALIGN_RIGHT);
    m_icon = cells::NewAttribute(shown, text, true, wxALIGN_CENTRE);
    m_icon->SetRenderer(new BitmapGridCellRenderer(kRemoveImage));
}

wxString FeedCompositionTable::GetValue(int row, int column)
{
    const auto& entries = m_composition.GetEntries();
    if (static_cast<std::size_t>(row) >= entries.size())
        return {};
    const Entry& entry = entries[static_cast<std::size_t>(row)];
    if (IsUnitColumn(column))
        return FeedTotalBox::NumberText((entry.*m_side)[UnitOfColumn(column)]);
    switch (column) {
        case kFeedName:
            return i18n::CompoundName(entry.name, entry.formula);
        case kFeedFormula:
            return wxString::FromUTF8(entry.formula);
        case kFeedAcidBase:
            return AcidBaseText(entry.acidBase);
        case kFeedIonicCharge:
            return wxString::Format("%d", entry.ionicCharge);
        case kFeedValency:
            return wxString::Format("%d", entry.valency);
        case kFeedPh:
            return PhText((entry.*m_side).pH);
        default:
            return {};
    }
}

void FeedCompositionTable::SetValue(int row, int column, const wxString& text)
{
    if (!IsUnitColumn(column) || row < 0 || row >= m_rows)
        return;
    if (const auto value = cells::ParseNumber(*this, column, text))
        m_onEdit(static_cast<std::size_t>(row), UnitOfColumn(column), *value);
}

wxString FeedCompositionTable::GetColLabelValue(int column)
{
    if (IsUnitColumn(column))
        return wxString::FromUTF8(
            FeedComposition::kUnitTexts[static_cast<std::size_t>(column - kFeedFirstUnit)]);
    if (column == kFeedPh)
        return i18n::Translated(wxTRANSLATE("pH"));
    if (column == kFeedRemove)
        return {};
    return i18n::Translated(kColumnLabels.at(static_cast<std::size_t>(column)));
}

std::vector<wxString> FeedCompositionTable::KnownTexts(int column)
{
    std::vector<wxString> texts{GetColLabelValue(column)};
    for (int kind = 0; column == kFeedAcidBase && kind < kAcidBaseCount; ++kind)
        texts.push_back(AcidBaseText(kind));
    return texts;
}

wxGridCellAttr* FeedCompositionTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind)
{
    wxGridCellAttr* attribute = column <= kFeedAcidBase ? m_text : m_number;
    if (column == kFeedRemove)
        attribute = m_icon;
    if (IsUnitColumn(column)) {
        const auto& entries = m_composition.GetEntries();
        const bool negative = static_cast<std::size_t>(row) < entries.size() &&
                              (entries[static_cast<std::size_t>(row)].*m_side)[UnitOfColumn(column)] < 0.0;
        attribute = negative ? m_negative : m_input;
    }
    attribute->IncRef();
    return attribute;
}
