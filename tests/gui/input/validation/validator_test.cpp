// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/events.h"
#include "tests/support/gui_test.h"

#include <wx/dcclient.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

using namespace gui_test;
using enum TvTextCtrlFormat;

const wxColour kBelow(128, 192, 255);
const wxColour kAbove(255, 160, 144);

class ValidatorTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
    }

    TvTextCtrl* Field(const wxValidator& validator)
    {
        auto* field = new TvTextCtrl(m_panel, wxID_ANY, "", wxPoint(10, 10 + 40 * m_count++), wxSize(120, -1),
                                     0, validator);
        field->SetStatusBar(m_frame->GetStatusBar());
        return field;
    }

    static void Commit(TvTextCtrl& field, const wxString& text)
    {
        field.ChangeValue(text);
        field.MarkDirty();
        field.GetValidator()->TransferFromWindow();
    }

    static int RangeFlag(TvTextCtrl& field)
    {
        return dynamic_cast<NumericValidator&>(*field.GetValidator()).GetRangeFlag();
    }

    wxPanel* m_panel = nullptr;
    int m_count = 0;
};

TEST_F(ValidatorTest, DoubleLimitsColourOrClamp)
{
    constexpr int kBoth = CheckMin | CheckMax;
    enum Colour
    {
        Default,
        Below,
        Above
    };
    struct Case
    {
        const char* text;
        int flags;
        double min, max;
        double expected;
        int rangeFlag;
        Colour colour;
    };
    const double kMax = std::numeric_limits<double>::max();
    const std::vector<Case> cases{
        {"50", kBoth, 0, 100, 50, 0, Default},
        {"100", kBoth, 0, 100, 100, 0, Default},
        {"100.001", kBoth, 0, 100, 100.001, 1, Above},
        {"100.0000001", kBoth, 0, 100, 100.0000001, 1, Above},
        // Rounding goes upward for the minimum as well: -0.001 reads as 0.
        {"-0.001", kBoth, 0, 100, -0.001, 0, Default},
        {"-0.01", kBoth, 0, 100, -0.01, -1, Below},
        {"0", CheckMinExclusive, 0, 100, 0, -1, Below},
        {"100", CheckMaxExclusive, 0, 100, 100, 1, Above},
        {"5", kBoth, 10, 1, 5, 1, Above},
        {"-5", kBoth | ClampToLimits, 0, 100, 0, 0, Default},
        {"500", kBoth | ClampToLimits, 0, 100, 100, 0, Default},
        {"500", 0, 0, 100, 500, 0, Default},
        {"", kBoth, 0, 100, 7, 0, Default},
        {"   ", kBoth, 0, 100, 7, 0, Default},
        {"1e400", kBoth, 0, 100, kMax, 1, Above},
        {"abc", kBoth, 0, 100, 42, 0, Default},
    };
    for (const auto& c : cases) {
        double value = 42.0;
        TvTextCtrl* field = Field(DoubleValidator(&value, General, 2, c.flags, c.min, c.max, 7.0));
        Commit(*field, c.text);
        EXPECT_EQ(value, c.expected) << c.text;
        EXPECT_EQ(RangeFlag(*field), c.rangeFlag) << c.text;
        const wxColour expected = c.colour == Below   ? kBelow
                                  : c.colour == Above ? kAbove
                                                      : TvTextCtrl::EditableColour();
        EXPECT_EQ(field->GetBackgroundColour(), expected) << c.text;
        field->Destroy();
    }
}

TEST_F(ValidatorTest, ATextThatIsNoNumberIsReported)
{
    wxValidator::SuppressBellOnError();
    double value = 42.0;
    std::vector<std::string> messages;
    m_frame->Bind(tv_MESSAGE, [&](MessageEvent& event) { messages = event.GetMessages(); });
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 2, 0, 0, 0, 0));
    field->SetName("Sodium");
    Commit(*field, "12 apples");
    Pump();
    EXPECT_EQ(messages,
              std::vector<std::string>{"Sodium: \"12 apples\" is no number; the value stays as it was"});
    EXPECT_EQ(value, 42.0);
    TvTextCtrl* amount = Field(DoubleValidator(&value, General, 2, DetectionLimits, 0, 0, 0));
    amount->SetName("Sodium");
    Commit(*amount, "-5");
    Pump();
    EXPECT_EQ(messages, std::vector<std::string>{"Sodium: \"-5\" is below 0; the value stays as it was"});
    EXPECT_EQ(value, 42.0);
    long lines = 3;
    int count = 0;
    m_frame->Bind(tv_MESSAGE, [&](MessageEvent& event) {
        ++count;
        event.Skip();
    });
    TvTextCtrl* whole = Field(IntegerValidator(&lines, Fixed, 0, 0, 0, 5));
    whole->SetName("Lines");
    // As a panel does: the key commits, and so does the panel with all its fields.
    whole->Bind(wxEVT_TEXT_ENTER, [whole](wxCommandEvent&) { whole->TransferDataFromWindow(); });
    Enter(*whole, "1e");
    Pump();
    EXPECT_EQ(messages, std::vector<std::string>{"Lines: \"1e\" is no number; the value becomes 0"});
    EXPECT_EQ(count, 1);
    EXPECT_EQ(lines, 0);
    wxValidator::SuppressBellOnError(false);
}

TEST_F(ValidatorTest, IntegerCutsOffAndSaturates)
{
    const std::vector<std::pair<const char*, long>> cases{{"12", 12},
                                                          {"12.7", 12},
                                                          {"-12.7", -12},
                                                          {"1e12", 2147483647},
                                                          {"1000000000000", 2147483647},
                                                          {"-1e12", -2147483648L},
                                                          {"2e3", 2000},
                                                          {"x", 0},
                                                          {"", 5}};
    for (const auto& [text, expected] : cases) {
        long value = 1;
        TvTextCtrl* field = Field(IntegerValidator(&value, Fixed, 0, 0, 0, 5));
        Commit(*field, text);
        EXPECT_EQ(value, expected) << text;
        field->GetValidator()->TransferToWindow();
        EXPECT_EQ(field->GetValue(), wxString::Format("%ld", expected));
        field->Destroy();
    }
}

TEST_F(ValidatorTest, TemperatureComparesInTheUnitOfItsValue)
{
    const Temperature min(0, TemperatureUnit::Celsius);
    const Temperature max(100, TemperatureUnit::Celsius);
    struct Case
    {
        TemperatureUnit unit;
        const char* text;
        int flags;
        double expected;
        int rangeFlag;
    };
    const std::vector<Case> cases{
        {TemperatureUnit::Celsius, "101", CheckMax, 101, 1},
        {TemperatureUnit::Fahrenheit, "101", CheckMax, 101, 0},
        {TemperatureUnit::Fahrenheit, "31", CheckMin, 31, -1},
        {TemperatureUnit::Fahrenheit, "500", CheckMax | ClampToLimits, 212, 0},
        {TemperatureUnit::Kelvin, "1", CheckMin | ClampToLimits, 273.15, 0},
    };
    for (const auto& c : cases) {
        Temperature value(20, c.unit);
        TvTextCtrl* field = Field(TemperatureValidator(&value, General, 4, c.flags, min, max, {}));
        Commit(*field, c.text);
        EXPECT_NEAR(value.GetValue(), c.expected, 1e-9) << c.text;
        EXPECT_EQ(value.GetUnit(), c.unit);
        EXPECT_EQ(RangeFlag(*field), c.rangeFlag) << c.text;
        field->Destroy();
    }
}

TEST_F(ValidatorTest, ShowsWhatIsKnown)
{
    double value = 0.0;
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 4, ZeroAsEmpty | CheckMax, 0, 10, 0));
    const auto shown = [&](double v) {
        value = v;
        field->GetValidator()->TransferToWindow();
        return field->GetValue();
    };
    EXPECT_EQ(shown(2.5), "2.5");
    EXPECT_EQ(shown(20.0), "20");
    EXPECT_EQ(RangeFlag(*field), 1);
    EXPECT_EQ(shown(std::nan("")), "");
    EXPECT_EQ(RangeFlag(*field), 0) << "an unknown value violates nothing";
    EXPECT_EQ(shown(0.0), "");
    EXPECT_FALSE(field->IsModified());
}

TEST_F(ValidatorTest, FollowsTheLocaleOfNumbers)
{
    const std::vector<std::tuple<const char*, const char*, double, const char*>> cases{
        {"de_DE.UTF-8", "1.234,5", 1234.5, "1.234,500"},
        {"en_US.UTF-8", "1,234.5", 1234.5, "1,234.500"},
        {"fr_FR.UTF-8", "1\u202f234,5", 1234.5, "1\u202f234,500"},
        {"fr_FR.UTF-8", "1234.5", 1234.5, "1\u202f234,500"},
        {"de_DE.UTF-8", "1234.5", 12345.0, "12.345,000"},
        {"C", "1234.5", 1234.5, "1234.500"},
        {"C", "1234,5", 1234.5, "1234.500"},
    };
    for (const auto& [locale, text, expected, shown] : cases) {
        const LocaleGuard guard(locale);
        double value = 0.0;
        TvTextCtrl* field = Field(DoubleValidator(&value, Fixed, 3, GroupThousands, 0, 0, 0));
        Commit(*field, wxString::FromUTF8(text));
        EXPECT_EQ(value, expected) << locale;
        field->GetValidator()->TransferToWindow();
        EXPECT_EQ(field->GetValue().utf8_string(), shown) << locale;
        field->Destroy();
    }
}

TEST_F(ValidatorTest, ClonesAndAssignmentsKeepEverythingAndListenForThemselves)
{
    double value = 5.0;
    DoubleValidator original(&value, Fixed, 1, CheckMin, 3, 9, 0);
    double other = 0.0;
    DoubleValidator assigned(&other);
    assigned = original;
    TvTextCtrl* first = Field(original);
    TvTextCtrl* second = Field(assigned);
    for (TvTextCtrl* field : {first, second}) {
        value = 5.0;
        field->GetValidator()->TransferToWindow();
        EXPECT_EQ(field->GetValue(), "5.0");
        gui_test::Enter(*field, "2");
        EXPECT_EQ(value, 2.0);
        EXPECT_EQ(RangeFlag(*field), -1);
    }
}

TEST_F(ValidatorTest, KeysAreFiltered)
{
    wxValidator::SuppressBellOnError();
    double value = 0.0;
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 6, 0, 0, 0, 0));
    Focus(*field);
    Type("a1x2.b5e+3,z-E");
    EXPECT_EQ(field->GetValue(), "12.5e+3,-E");
    Press(WXK_BACK);
    EXPECT_EQ(field->GetValue(), "12.5e+3,-");

    wxString text;
    TvTextCtrl* plain = Field(TextEnterValidator(&text));
    gui_test::Enter(*plain, "any text");
    EXPECT_EQ(text, "any text");
    wxValidator::SuppressBellOnError(false);
}

TEST_F(ValidatorTest, StatusBarShowsLimitsAndValueWhileFocused)
{
    double value = 12.345678;
    TvTextCtrl* field =
        Field(DoubleValidator(&value, Fixed, 2, CheckMin | CheckMax | ShowPreciseValue, 0.5, 100, 0));
    TvTextCtrl* bare = Field(DoubleValidator(&value, Fixed, 2, 0, 0, 0, 0));
    wxStatusBar* bar = m_frame->GetStatusBar();
    bar->SetFieldsCount(5);
    bar->SetStatusText("something else", 4);
    Focus(*field);
    EXPECT_EQ(bar->GetStatusText(0), "Min: 0.5");
    EXPECT_EQ(bar->GetStatusText(1), "Max: 100");
    EXPECT_EQ(bar->GetStatusText(2), "Value: 12.3457");
    Focus(*bare);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(bar->GetStatusText(i), "") << "field " << i;
}

TEST_F(ValidatorTest, FocusLossAndEnterCommitOnce)
{
    double value = 1.0;
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 6, 0, 0, 0, 0));
    TvTextCtrl* next = Field(TextEnterValidator(nullptr));
    int commits = 0;
    double committed = 0.0;
    m_panel->Bind(wxEVT_TEXT_ENTER, [&](wxCommandEvent& event) {
        ++commits;
        EXPECT_EQ(event.GetId(), field->GetId());
        EXPECT_EQ(event.GetEventObject(), field);
        field->GetValidator()->TransferFromWindow();
        committed = value;
        field->GetValidator()->TransferToWindow();
    });
    Focus(*field);
    Focus(*next);
    EXPECT_EQ(commits, 0) << "nothing was edited";
    gui_test::Enter(*field, "2.5");
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(committed, 2.5);
    Focus(*field);
    field->SelectAll();
    Type("3.5");
    Press(WXK_RETURN);
    EXPECT_EQ(commits, 2);
    EXPECT_EQ(committed, 3.5);
    Focus(*next);
    EXPECT_EQ(commits, 2) << "Enter has committed already";
}

TEST_F(ValidatorTest, NothingIsCommittedWhileWindowsGo)
{
    double value = 1.0;
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 6, 0, 0, 0, 0));
    int commits = 0;
    m_panel->Bind(wxEVT_TEXT_ENTER, [&](wxCommandEvent&) { ++commits; });
    Focus(*field);
    Type("9");
    m_panel->Destroy();
    Pump();
    EXPECT_EQ(commits, 0);
    EXPECT_EQ(value, 1.0);
}

TEST_F(ValidatorTest, AStatusBarMayGoFirst)
{
    double value = 1.0;
    auto* bar = new TvStatusBar(m_panel);
    TvTextCtrl* field = Field(DoubleValidator(&value, General, 6, CheckMin, 0, 0, 0));
    field->SetStatusBar(bar);
    Field(TextEnterValidator(nullptr));
    bar->Destroy();
    Focus(*field);
    gui_test::Enter(*field, "2");
    EXPECT_EQ(value, 2.0);
}

/// Numbers with an exponent, of which a cut text would tell another size.
struct LongNumber
{
    double value;
    int precision;
    TvTextCtrlFormat format;
    const char* text;
};
constexpr std::array kLongNumbers{
    LongNumber{1.234e8, 3, General, "1.234e+08"},
    LongNumber{-1.23456789e-12, 6, General, "-1.234568e-12"},
    LongNumber{1e300, 4, Scientific, "1.0000e+300"},
    LongNumber{-123456789.0, 2, Fixed, "-123456789.00"},
    LongNumber{9.87654321e8, 8, General, "9.87654321e+08"},
};

TEST_F(ValidatorTest, AFieldIsAsWideAsItsNumber)
{
    constexpr int kUsual = 63;
    double value = 1.0;
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    m_panel->SetSizer(row);
    for (const LongNumber& number : kLongNumbers) {
        auto* field = new TvTextCtrl(m_panel, wxID_ANY, "", wxDefaultPosition, wxSize(kUsual, -1), wxTE_RIGHT,
                                     DoubleValidator(&value, number.format, number.precision));
        row->Add(field);
        m_panel->Layout();
        for (const double shown : {number.value, 1.0, number.value}) {
            value = shown;
            field->TransferDataToWindow();
            const int needed = field->GetSizeFromTextSize(field->GetTextExtent(field->GetValue()).x).x;
            EXPECT_LE(needed, field->GetSize().x) << number.text;
            if (shown == number.value) {
                EXPECT_EQ(field->GetValue(), number.text);
            } else if (field->GetValue().length() <= 6) {
                EXPECT_EQ(field->GetSize().x, kUsual) << "usual again after " << number.text;
            }
        }
    }
}

TEST_F(ValidatorTest, AColumnIsAsWideAsItsLongestNumber)
{
    constexpr int kUsual = 40;
    auto* grid = new wxGrid(m_panel, wxID_ANY);
    grid->CreateGrid(2, 2);
    auto* list = new wxListView(m_panel, wxID_ANY);
    for (int column = 0; column < 2; ++column) {
        grid->SetColSize(column, kUsual);
        list->AppendColumn("x", wxLIST_FORMAT_RIGHT, kUsual);
    }
    wxClientDC dc(grid->GetGridWindow());
    dc.SetFont(grid->GetDefaultCellFont());
    int last = 0;
    for (const LongNumber& number : kLongNumbers) {
        grid->SetCellValue(0, 0, "1");
        grid->SetCellValue(1, 0, number.text);
        list->SetItem(list->InsertItem(list->GetItemCount(), ""), 1, number.text);
        number_room::GrowColumn(*grid, 0, 0, 1);
        number_room::GrowColumn(*list, 1);
        EXPECT_GT(grid->GetColSize(0), dc.GetTextExtent(number.text).x) << number.text;
        EXPECT_GT(list->GetColumnWidth(1), list->GetTextExtent(number.text).x) << number.text;
        EXPECT_GE(grid->GetColSize(0), last) << "what is wide stays wide";
        last = grid->GetColSize(0);
    }
    EXPECT_EQ(grid->GetColSize(1), kUsual);
    EXPECT_EQ(list->GetColumnWidth(0), kUsual);
    list->SetItem(0, 0, "1");
    number_room::GrowColumn(*list, 0);
    EXPECT_EQ(list->GetColumnWidth(0), kUsual) << "never narrower";
}

}  // namespace
