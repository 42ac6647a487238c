// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_double_slider.h"

#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/valgen.h>

#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>

namespace {

using namespace gui_test;

class DoubleSliderTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
    }
    TvDoubleSlider* Make(int decimals, int value, int min, int max, long style = wxSL_LABELS)
    {
        auto* slider = new TvDoubleSlider(m_panel, wxID_ANY, decimals, value, min, max, wxPoint(20, 20),
                                          wxSize(300, 60), style);
        Pump();
        return slider;
    }
    template <typename Control>
    static std::vector<Control*> ChildrenOf(wxWindow& window)
    {
        std::vector<Control*> found;
        for (wxWindow* child : window.GetChildren())
            if (auto* control = dynamic_cast<Control*>(child))
                found.push_back(control);
        return found;
    }
    static wxSlider& Inner(wxWindow& slider) { return *ChildrenOf<wxSlider>(slider).at(0); }
    /// The texts of the labels from left to right.
    static std::vector<std::string> Labels(wxWindow& slider)
    {
        std::map<int, std::string> texts;
        for (const auto* label : ChildrenOf<wxStaticText>(slider))
            texts[label->GetPosition().x] = label->GetLabelText().utf8_string();
        std::vector<std::string> ordered;
        for (const auto& [x, text] : texts)
            ordered.push_back(text);
        return ordered;
    }
    using Texts = std::vector<std::string>;
    wxPanel* m_panel = nullptr;
};

TEST_F(DoubleSliderTest, LabelsShowScaledValues)
{
    struct Case
    {
        int decimals;
        Texts labels;
        double value;
    };
    const std::vector<Case> cases{{2, {"-5.00", "12.34", "99.99"}, 12.34},
                                  {0, {"-500", "1234", "9999"}, 1234.0},
                                  {5, {"-0.00500", "0.01234", "0.09999"}, 0.01234},
                                  // The factor is 10^-1, the labels show no decimals.
                                  {-1, {"-5000", "12340", "99990"}, 12340.0}};
    for (const auto& c : cases) {
        auto* slider = Make(c.decimals, 1234, -500, 9999);
        EXPECT_EQ(Labels(*slider), c.labels) << c.decimals;
        EXPECT_EQ(slider->GetValue(), 1234);
        EXPECT_DOUBLE_EQ(slider->GetDoubleValue(), c.value) << c.decimals;
    }
    {
        const LocaleGuard german("de_DE.UTF-8");
        EXPECT_EQ(Labels(*Make(1, 5, 0, 10)), (Texts{"0,0", "0,5", "1,0"}));
    }
    EXPECT_EQ(Labels(*Make(1, 5, 0, 10, wxSL_MIN_MAX_LABELS)), (Texts{"0.0", "0.5", "1.0"}));
}

TEST_F(DoubleSliderTest, SetValueAndRangeRewriteTheLabels)
{
    auto* slider = Make(1, 50, 0, 100);
    slider->SetValue(71);
    EXPECT_EQ(Labels(*slider), (Texts{"0.0", "7.1", "10.0"}));
    slider->SetRange(10, 60);
    EXPECT_EQ(Labels(*slider), (Texts{"1.0", "6.0", "6.0"}));
    EXPECT_EQ(slider->GetValue(), 60);
    slider->SetValue(5);
    EXPECT_EQ(slider->GetValue(), 10);
    EXPECT_EQ(Labels(*slider), (Texts{"1.0", "1.0", "6.0"}));
    EXPECT_THROW(slider->SetRange(2, 1), std::invalid_argument);
    EXPECT_THROW(Make(1, 0, 2, 1), std::invalid_argument);
    EXPECT_EQ(Labels(*slider), (Texts{"1.0", "1.0", "6.0"}));
}

TEST_F(DoubleSliderTest, WithoutLabelStylesItIsAPlainSlider)
{
    auto* slider = Make(2, 10, 0, 100, wxSL_HORIZONTAL);
    EXPECT_TRUE(Labels(*slider).empty());
    slider->SetValue(20);
    slider->SetRange(0, 200);
    EXPECT_EQ(slider->GetValue(), 20);
    EXPECT_FALSE(Inner(*Make(2, 10, 0, 100)).HasFlag(wxSL_LABELS)) << "the slider itself would show integers";
}

TEST_F(DoubleSliderTest, DecimalValuesAreTruncated)
{
    const double kInfinity = std::numeric_limits<double>::infinity();
    struct Case
    {
        int decimals;
        double value;
        int expected;
    };
    const std::vector<Case> cases{{2, 0.129, 12},        {2, -0.129, -12},
                                  {0, 7.9, 7},           {3, 0.5, 500},
                                  {-1, 99.0, 9},         {2, std::nan(""), 0},
                                  {2, 1e30, 2147483647}, {2, -kInfinity, std::numeric_limits<int>::min()}};
    for (const auto& c : cases)
        EXPECT_EQ(Make(c.decimals, 0, 0, 10)->FromDoubleValue(c.value), c.expected) << c.value;
}

TEST_F(DoubleSliderTest, KeysMoveItAndTheEventsClimb)
{
    auto* slider = Make(2, 50, 0, 100);
    slider->SetPageSize(25);
    std::vector<int> heard;
    m_panel->Bind(wxEVT_SLIDER, [&](wxCommandEvent& event) {
        EXPECT_EQ(event.GetId(), slider->GetId());
        heard.push_back(event.GetInt());
    });
    slider->SetValue(60);
    EXPECT_TRUE(heard.empty()) << "only the user's moves are told";
    slider->SetFocus();
    ASSERT_TRUE(PumpUntil([&] { return Inner(*slider).HasFocus(); }));
    Press(WXK_RIGHT);
    EXPECT_EQ(slider->GetValue(), 61);
    EXPECT_EQ(Labels(*slider), (Texts{"0.00", "0.61", "1.00"}));
    Press(WXK_PAGEDOWN);
    EXPECT_EQ(slider->GetValue(), 86);
    Press(WXK_END);
    EXPECT_EQ(Labels(*slider).at(1), "1.00");
    EXPECT_EQ(heard, (std::vector<int>{61, 86, 100}));
}

TEST_F(DoubleSliderTest, TheWheelLeavesAnUnfocusedSliderAlone)
{
    auto* slider = Make(2, 50, 0, 100);
    auto* other = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 100));
    int scrolled = 0;
    m_panel->Bind(wxEVT_MOUSEWHEEL, [&](wxMouseEvent&) { ++scrolled; });
    Focus(*other);
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.SetEventObject(&Inner(*slider));
    Inner(*slider).GetEventHandler()->ProcessEvent(wheel);
    EXPECT_EQ(scrolled, 1);
    EXPECT_EQ(slider->GetValue(), 50);
}

TEST_F(DoubleSliderTest, ShowsTheVariableOfItsValidator)
{
    int variable = 30;
    auto* slider = new TvDoubleSlider(m_panel, wxID_ANY, 1, 0, 0, 100, wxPoint(20, 20), wxSize(300, 60),
                                      wxSL_LABELS, wxGenericValidator(&variable));
    EXPECT_TRUE(m_panel->TransferDataToWindow());
    EXPECT_EQ(Labels(*slider).at(1), "3.0");
    slider->SetValue(45);
    EXPECT_TRUE(m_panel->TransferDataFromWindow());
    EXPECT_EQ(variable, 45);
}

}  // namespace
