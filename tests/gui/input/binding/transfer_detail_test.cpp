// SPDX-License-Identifier: MIT
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/binding/two_state_bitmap_button.h"
#include "gui_base/input/validation/double_validator.h"
#include "tests/support/gui_test.h"

#include <wx/datectrl.h>
#include <wx/dateevt.h>
#include <wx/textctrl.h>

namespace {

using namespace gui_test;

/// Makes a binding of either family over the same variable and detail.
template <typename T>
std::vector<std::pair<const char*, std::unique_ptr<TransferDetailBase>>> BothFamilies(int flags, T* value,
                                                                                      DetailData* detail)
{
    std::vector<std::pair<const char*, std::unique_ptr<TransferDetailBase>>> bindings;
    bindings.emplace_back("typed", std::make_unique<TransferDetailT<T>>(flags, value, nullptr, detail));
    bindings.emplace_back("untyped", std::make_unique<TransferDetail>(flags, value, nullptr, detail));
    return bindings;
}

TEST(TransferDetail, DoublesConvertAndTellOfChanges)
{
    struct Case
    {
        const char* what;
        const char* unit;
        const char* unitSystem;
        int flags;
        double factor;
        double stored;
        double typed;
        double expected;  ///< stored afterwards
        bool result;
        bool counted;
    };
    const std::vector<Case> cases{
        {"plain", "mg/l", "iso", 3, 1, 5, 6, 6, true, true},
        {"disabled", "mg/l", "iso", 2, 1, 5, 6, 5, false, false},
        {"not counted", "mg/l", "iso", 1, 1, 5, 6, 6, true, false},
        {"within the tolerance", "mg/l", "iso", 3, 1, 5, 5 + 1e-9, 5 + 1e-9, false, false},
        {"just beyond it", "mg/l", "iso", 3, 1, 5, 5 + 2e-8, 5 + 2e-8, true, true},
        {"converted", "°C", "us", 3, 1, 0, 212, 100, true, true},
        {"in ISO units", "°C", "us", 7, 1, 0, 212, 212, true, true},
        {"currency", "EUR/kg", "iso", 3, 4, 1, 8, 2, true, true},
        {"currency, factor 1", "EUR", "iso", 3, 1, 1, 8, 8, true, true},
        {"no currency", "kgEUR", "iso", 3, 4, 1, 8, 8, true, true},
        {"unknown stays unknown", "mg/l", "iso", 3, 1, NAN, NAN, NAN, false, false},
        {"unknown becomes known", "mg/l", "iso", 3, 1, NAN, 0, 0, true, true},
    };
    for (const auto& c : cases) {
        double value = 0.0;
        DetailData detail("x", DetailType::Double, c.unit);
        for (const auto& [family, binding] : BothFamilies(c.flags, &value, &detail)) {
            const std::string where = std::string(c.what) + ", " + family;
            value = c.typed;
            detail.SetValue(c.stored);
            detail.changed = !c.result;
            bool changed = false;
            EXPECT_EQ(binding->TransferFromWindow(c.unitSystem, changed, c.factor), c.result) << where;
            EXPECT_EQ(changed, c.counted) << where;
            const double stored = detail.GetDoubleValue();
            EXPECT_TRUE(std::isnan(c.expected) ? std::isnan(stored) : std::fabs(stored - c.expected) < 1e-12)
                << where;
            EXPECT_TRUE((c.flags & TransferToDetail) == 0 || detail.changed == c.result) << where;

            // The way back shows what is stored, whether or not the way in is enabled.
            binding->TransferToWindow(c.unitSystem, c.factor);
            EXPECT_TRUE(!c.result || std::fabs(value - c.typed) < 1e-9) << where;
        }
    }
}

template <typename T>
void ExpectRoundTrip(DetailType type, const T& stored, const T& typed)
{
    T value{};
    DetailData detail("x", type);
    for (const auto& [family, binding] :
         BothFamilies(TransferToDetail | TransferCountsAsChange, &value, &detail)) {
        detail.SetValue(stored);
        binding->TransferToWindow("us", 2.0);
        EXPECT_TRUE(value == stored) << family;
        bool changed = false;
        EXPECT_FALSE(binding->TransferFromWindow("us", changed, 2.0)) << family;
        EXPECT_FALSE(changed) << family;
        value = typed;
        EXPECT_TRUE(binding->TransferFromWindow("us", changed, 2.0)) << family;
        EXPECT_TRUE(changed) << family;
        value = T{};
        binding->TransferToWindow("us", 2.0);
        EXPECT_TRUE(value == typed) << family;
    }
}

TEST(TransferDetail, OtherTypesCompareExactly)
{
    ExpectRoundTrip<long>(DetailType::Long, 3, 4);
    ExpectRoundTrip<bool>(DetailType::Bool, false, true);
    ExpectRoundTrip<wxString>(DetailType::String, "Text", "text");
    const wxDateTime date(14, wxDateTime::Jun, 2026, 12, 30, 15, 250);
    ExpectRoundTrip<wxDateTime>(DetailType::Date, date, date + wxTimeSpan::Milliseconds(1));
    ExpectRoundTrip<wxDateTime>(DetailType::Date, wxDateTime(), date);
}

TEST(TransferDetail, AMissingDetailIsAProgrammingError)
{
    double value = 0.0;
    TransferDetail binding(1, &value, nullptr, nullptr);
    bool changed = false;
    const auto text = [](const auto& call) -> std::string {
        try {
            call();
        } catch (const std::exception& error) {
            return error.what();
        }
        return "nothing thrown";
    };
    EXPECT_EQ(text([&] { binding.TransferToWindow("iso", 1); }),
              "TransferDetail::ConvertDetailToDisplay: TransferDetail doesn't exist");
    EXPECT_EQ(text([&] { binding.TransferFromWindow("iso", changed, 1); }),
              "TransferDetail::ConvertDetailFromDisplay: TransferDetail doesn't exist");
    EXPECT_EQ(text([&] { binding.TransferRangeFlags(); }),
              "TransferDetail::ConvertDetailFromDisplay: TransferDetail doesn't exist");
}

TEST(TransferContainer, SumsUpItsBindingsInOrder)
{
    double a = 1.0;
    double b = 2.0;
    DetailData first("a");
    DetailData second("b");
    TransferContainer container;
    TransferDetail::List list;
    bool changed = true;
    EXPECT_FALSE(container.TransferFromWindow("iso", changed, 1));
    EXPECT_FALSE(changed);

    container.AddTransfer(std::make_unique<TransferDetailT<double>>(TransferToDetail, &a, nullptr, &first));
    container.AddTransfer(
        std::make_unique<TransferDetail>(TransferToDetail | TransferCountsAsChange, &b, nullptr, &second));
    list.push_back(std::make_unique<TransferDetail>(TransferToDetail, &a, nullptr, &first));
    list.push_back(
        std::make_unique<TransferDetail>(TransferToDetail | TransferCountsAsChange, &b, nullptr, &second));

    const auto expect = [&](bool result, bool counted) {
        first.SetValue(0.0);
        second.SetValue(0.0);
        EXPECT_EQ(container.TransferFromWindow("iso", changed, 1), result);
        EXPECT_EQ(changed, counted);
        first.SetValue(0.0);
        second.SetValue(0.0);
        EXPECT_EQ(TransferDetail::TransferFromWindow(list, "iso", changed, 1), result);
        EXPECT_EQ(changed, counted);
    };
    expect(true, true);
    b = 0.0;
    expect(true, false);
    a = 0.0;
    expect(false, false);

    first.SetValue(8.0);
    TransferDetail::TransferToWindow(list, "iso", 1);
    EXPECT_EQ(a, 8.0);
    first.SetValue(9.0);
    container.TransferToWindow("iso", 1);
    EXPECT_EQ(a, 9.0);
    container.Clear();
    first.SetValue(1.0);
    container.TransferToWindow("iso", 1);
    EXPECT_EQ(a, 9.0) << "a cleared container binds nothing";
}

class BindingWindowTest : public GuiTest
{};

TEST_F(BindingWindowTest, RangeFlagsComeFromTheValidator)
{
    double value = 50.0;
    DetailData detail("x");
    auto* field = new wxTextCtrl(m_frame, wxID_ANY);
    field->SetValidator(DoubleValidator(&value, TvTextCtrlFormat::General, 2, CheckMin | CheckMax, 0, 10, 0));
    field->GetValidator()->TransferToWindow();
    TransferDetailT<double> typed(1, &value, field, &detail);
    TransferDetail untyped(1, &value, field, &detail);
    for (TransferDetailBase* binding :
         {static_cast<TransferDetailBase*>(&typed), static_cast<TransferDetailBase*>(&untyped)}) {
        detail.SetRangeFlag(0);
        binding->TransferRangeFlags();
        EXPECT_EQ(detail.GetRangeFlag(), 1);
    }
    wxString text;
    DetailData name("name", DetailType::String);
    TransferDetail other(1, &text, field, &name);
    other.TransferRangeFlags();
    EXPECT_EQ(name.GetRangeFlag(), 0) << "a text has no range";
}

TEST_F(BindingWindowTest, UntypedDatesReachTheirPicker)
{
    wxDateTime value;
    DetailData detail("date", DetailType::Date);
    detail.SetValue(wxDateTime(21, wxDateTime::Nov, 2026));
    auto* picker = new wxDatePickerCtrl(m_frame, wxID_ANY);
    TransferDetail binding(1, &value, picker, &detail);
    binding.TransferToWindow("iso", 1);
    EXPECT_EQ(picker->GetValue().FormatISODate(), "2026-11-21");
}

TEST_F(BindingWindowTest, TwoStateButtonShowsItsDetail)
{
    DetailData detail("state", DetailType::Bool);
    const wxBitmap yes(16, 16);
    const wxBitmap no(24, 24);
    auto* button = new TwoStateBitmapButton(m_frame, wxID_ANY, &detail, {yes, no});
    EXPECT_FALSE(button->GetState());
    EXPECT_EQ(button->GetBitmap().GetWidth(), 24);
    detail.SetValue(true);
    button->TransferDetailToWindow();
    EXPECT_TRUE(button->GetState());
    EXPECT_EQ(button->GetBitmap().GetWidth(), 16);
}

}  // namespace
