// SPDX-License-Identifier: MIT
// Bindings, and validators with every hook taken over.
#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/binding/two_state_bitmap_button.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "tests/contract/input_framework_fixture.h"

#include <wx/artprov.h>
#include <wx/datectrl.h>

namespace {

using namespace gui_test;

class CountingBinding : public TransferDetailBase
{
public:
    explicit CountingBinding(int* calls) : m_calls(calls) {}
    bool TransferFromWindow(const wxString&, bool& changed, double) override
    {
        ++*m_calls;
        changed = true;
        return true;
    }
    void TransferToWindow(const wxString&, double) override { ++*m_calls; }
    void TransferRangeFlags() override { ++*m_calls; }

private:
    int* m_calls;
};

TEST_F(InputFramework, Bindings)
{
    double number = 2.0;
    long whole = 3;
    bool flag = true;
    wxDateTime date = wxDateTime::Today();
    wxString text = "x";
    DetailData wholeDetail("whole", DetailType::Long);
    DetailData dateDetail("date", DetailType::Date);
    TransferContainer container;
    container.AddTransfer(std::make_unique<TransferDetailT<double>>(1, &number, m_panel, &m_number));
    container.AddTransfer(std::make_unique<TransferDetailT<long>>(1, &whole, m_panel, &wholeDetail));
    container.AddTransfer(std::make_unique<TransferDetailT<bool>>(3, &flag, m_panel, &m_switch));
    container.AddTransfer(std::make_unique<TransferDetailT<wxDateTime>>(1, &date, m_panel, &dateDetail));
    container.AddTransfer(std::make_unique<TransferDetailT<wxString>>(1, &text, m_panel, &m_text));
    bool changed = false;
    EXPECT_TRUE(container.TransferFromWindow("iso", changed, 1.0));
    EXPECT_TRUE(changed);
    container.TransferToWindow("us", 1.0);
    container.TransferRangeFlags();
    container.Clear();

    int calls = 0;
    container.AddTransfer(std::make_unique<CountingBinding>(&calls));
    EXPECT_TRUE(container.TransferFromWindow("iso", changed, 1.0));
    container.TransferToWindow("iso", 1.0);
    container.TransferRangeFlags();
    EXPECT_EQ(calls, 3);

    TransferDetail untyped(1, &number, m_panel, &m_number);
    const TransferDetail copy(untyped);
    untyped = copy;
    std::vector<std::unique_ptr<TransferDetail>> bindings;
    bindings.push_back(std::make_unique<TransferDetail>(untyped));
    number = 5.0;
    EXPECT_TRUE(TransferDetail::TransferFromWindow(bindings, "iso", changed, 1.0));
    TransferDetail::TransferToWindow(bindings, "iso", 1.0);
    TransferDetail::TransferRangeFlags(bindings);
    EXPECT_EQ(m_number.GetDoubleValue(), 5.0);
}

/// A combination of somebody else.
class OwnCombination : public DataBaseCombination
{
public:
    void TransferDetailToWindow() override {}
    void UpdateUnit(const std::string&) override {}
};

TEST_F(InputFramework, ControlsThatKnowTheirDetail)
{
    const OwnCombination combination;
    const OwnCombination copy(combination);
    const DetailContainerWindow& base = copy;
    static_cast<void>(base);
    const wxBitmap bitmap = wxArtProvider::GetBitmap(wxART_NEW);
    TwoStateBitmapButton button(m_panel, wxID_ANY, &m_switch, StateBitmaps(bitmap, bitmap), wxDefaultPosition,
                                wxDefaultSize, 0);
    DetailContainerWindow* window = &button;
    window->TransferDetailToWindow();
    window->UpdateUnit("us");
}

/// Every hook of the validators can be taken over.
class OwnValidator : public NumericValidator
{
public:
    OwnValidator() : NumericValidator(TvTextCtrlFormat::General, CheckMin) {}

protected:
    Validator* DoClone() const override { return new OwnValidator(*this); }
    void DoTransferFromWindow() override {}
    void DoTransferToWindow() override {}
    void UpdateStatusbar() override { SetStatusbarText("own", 0); }
    bool IsAllowedKey(int key) const override { return key == 'x'; }
    void ConvertStringToValue() override {}
    wxString DoFormatValueAsString(int) override { return "x"; }
    void SetValueToUndef() override {}
    bool IsValueNumeric() const override { return HasFlag(CheckMin) && GetFlags() == CheckMin; }
    bool IsValueLesserMininum() const override { return IsControlEmpty(); }
    bool IsValueLesserOrEqualMininum() const override { return IsControlModified(); }
    void SetValueToMinimum() override { SetControlValue(GetControlValue()); }
    bool IsValueGreaterMaximum() const override { return false; }
    bool IsValueGreaterOrEqualMaximum() const override { return false; }
    void SetValueToMaximum() override { SetControlBackgroundColor(*wxRED); }
    bool IsValueZero() const override { return false; }
    wxString FormatMinValueAsString() override { return "0"; }
    wxString FormatMaxValueAsString() override { return "1"; }
};

TEST_F(InputFramework, Validators)
{
    double number = 150.0;
    long whole = 3;
    Temperature temperature(20.0, TemperatureUnit::Celsius);
    wxString text;
    const DoubleValidator doubles(&number, TvTextCtrlFormat::General, 6, CheckMin | CheckMax, 0.0, 100.0,
                                  0.0);
    EXPECT_EQ(doubles.GetMinValue(), 0.0);
    EXPECT_EQ(doubles.GetMaxValue(), 100.0);
    const IntegerValidator wholes(&whole, TvTextCtrlFormat::Fixed, CheckMin, 0L, 9L, 1L);
    const TemperatureValidator temperatures(&temperature, TvTextCtrlFormat::General, 4, CheckMax,
                                            Temperature(0.0, TemperatureUnit::Celsius),
                                            Temperature(90.0, TemperatureUnit::Celsius), Temperature());
    EXPECT_EQ(temperatures.GetMaxValue().GetValue(), 90.0);
    EXPECT_EQ(temperatures.GetMinValue().GetValue(), 0.0);
    EXPECT_EQ(temperatures.GetValue().GetValue(), 20.0);
    const TextEnterValidator texts(&text);
    for (const wxValidator* validator :
         std::initializer_list<const wxValidator*>{&doubles, &wholes, &temperatures, &texts}) {
        auto* field = new TvTextCtrl(m_panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0,
                                     *validator, "field");
        auto& own = dynamic_cast<Validator&>(*field->GetValidator());
        own.SetStatusBar(m_frame->GetStatusBar());
        own.SetDefaultColor(*wxWHITE);
        EXPECT_TRUE(own.TransferToWindow());
        EXPECT_TRUE(own.TransferFromWindow());
        EXPECT_TRUE(own.Validate(field));
    }
    EXPECT_EQ(CheckMin | CheckMinExclusive | CheckMax | CheckMaxExclusive | ClampToLimits | TrimZeros |
                  ZeroAsEmpty | GroupThousands | ShowPreciseValue,
              1 + 2 + 4 + 8 + 16 + 32 + 64 + 256 + 512);
    auto* field = new TvTextCtrl(m_panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0,
                                 OwnValidator(), "own");
    EXPECT_EQ(dynamic_cast<NumericValidator&>(*field->GetValidator()).FormatValueAsString(2), "x");
}

}  // namespace
