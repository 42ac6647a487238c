// SPDX-License-Identifier: MIT
// Controls and combinations of them.
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/combinations/input_combination_ion_concentration.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_double_slider.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/double_validator.h"
#include "tests/contract/input_framework_fixture.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

namespace {

using namespace gui_test;

TEST_F(InputFramework, TextAndUnitControls)
{
    TvTextCtrl text(m_panel, wxID_ANY, "x", wxDefaultPosition, wxDefaultSize, wxTE_READONLY,
                    wxDefaultValidator, "text");
    EXPECT_TRUE(text.HasFlag(wxTE_PROCESS_ENTER));
    EXPECT_FALSE(text.IsEditable());
    text.SetHint("hint");
    text.Localize("iso");
    text.SetEditable(true);
    text.ChangeValue("y");
    text.SetStatusBar(nullptr);
    EXPECT_TRUE(text.TransferDataToWindow());

    ValidatedDoubleTextCtrlConfig config;
    EXPECT_EQ(config.maxValue, 999999.0);
    EXPECT_EQ(config.validatorFlags, 53);
    config.parent = m_panel;
    config.detail = &m_number;
    TvValidatedDoubleTextCtrl number(config);
    number.Localize(wxString("us"));
    number.Localize("us");
    number.UpdateValidator("us");
    EXPECT_TRUE(number.TransferDataToWindow());
    EXPECT_TRUE(number.TransferDataFromWindow());
    number.SetToDefault();
    number.TransferDetailToWindow();

    ValidatedTextCtrlConfig textConfig{
        m_panel, -1, wxDefaultPosition, wxDefaultSize, 0, "name", "text", &m_text, 1, nullptr};
    TvValidatedTextCtrl validated(textConfig);
    validated.Localize(wxString("us"));
    EXPECT_EQ(validated.GetUnit(), "us");
    validated.SetToDefault();
    EXPECT_EQ(m_text.GetStringValue(), "text");

    TvUnitLabel unit(m_panel, "bar", false, true, ":", wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "unit");
    unit.Localize("us");
    unit.SetIsoUnit("m3");
    unit.SetFontUnderlined(true);
    TvStatusBar bar(m_frame, wxID_ANY, 0, "bar");
    bar.SetFieldsCount(2);
    bar.SetStatusText("Value", 1);
    bar.Localize();
}

TEST_F(InputFramework, LocalizableControls)
{
    TvStaticText label(m_panel, wxID_ANY, "Value", ":");
    TvStaticText full(m_panel, wxID_ANY, "Value", wxDefaultPosition, wxDefaultSize, 0, "name", ":", "tip");
    full.SetLabelText("Other");
    full.SetSuffix("!");
    full.SetTranslatableToolTip("tip");
    TvButton button(m_panel, wxID_ANY, "Press", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                    "button");
    const TvStaticBoxSizer box(wxVERTICAL, m_panel, "Box");
    TvCheckBox check(m_panel, wxID_ANY, "Check", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                     "check", &m_switch, "!");
    check.SetDetailValue(true);
    check.SetValueDetail(&m_switch);
    check.TransferDetailToWindow();
    check.Localize("iso");
    check.Localize();
    check.SetFontWeight(wxFONTWEIGHT_BOLD);
    EXPECT_TRUE(check.GetValue());
    const std::vector<std::pair<long, wxString>> items{{1, "one"}, {2, "two"}};
    tvChoice choice(items, nullptr, m_panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0,
                    wxDefaultValidator, "choice");
    choice.Set(items);
    choice.Localize("iso");
    choice.SetDefault(2);
    EXPECT_EQ(choice.GetID(), 2);
    EXPECT_EQ(choice.GetSelectedData().second, "two");
    choice.SetStringSelectionFromUnlocalized("one");
    EXPECT_EQ(choice.GetStringUnlocalized(), "one");
    choice.TransferDetailToWindow();
}

TEST_F(InputFramework, Combinations)
{
    DetailData unit("unit", DetailType::String);
    DetailData output("output");
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    m_panel->SetSizer(sizer);
    const std::vector<std::pair<long, wxString>> units{{1, "bar"}, {2, "psi"}};
    InputCombinationUnitChoice choice(m_panel, 501, "Pressure", units, &m_number, &unit, sizer, 0.0, 10.0, 3,
                                      TvTextCtrlFormat::General, CheckMin | CheckMax, wxSize(90, -1),
                                      *wxYELLOW, 0, 1, "name", wxSizerFlags(), wxSizerFlags(),
                                      wxSizerFlags());
    choice.SetMinMax(0.0, 5.0);
    choice.TransferDetailToWindow();
    choice.UpdateUnit("us");
    const std::vector<wxString> texts{"mg/l", "meq/l"};
    InputCombinationIonConcentrationCtrl own(m_panel, 502, "Calcium", ":", &m_number, &unit, &output, texts,
                                             nullptr, 0.0, 100.0, wxDefaultPosition, wxDefaultSize, 0);
    sizer->Add(own.GetSizer());
    InputCombinationIonConcentrationCtrl placed(m_panel, 503, "Calcium", ":", &m_number, &unit, &output,
                                                sizer, texts, nullptr, 0.0, 100.0, wxDefaultPosition,
                                                wxDefaultSize, 0);
    for (DetailContainerWindow* window : std::initializer_list<DetailContainerWindow*>{&own, &placed}) {
        window->TransferDetailToWindow();
        window->UpdateUnit("iso");
    }
}

TEST_F(InputFramework, SliderAndNotebook)
{
    TvDoubleSlider slider(m_panel, wxID_ANY, 2, 150, 0, 1000, wxDefaultPosition, wxDefaultSize,
                          wxSL_HORIZONTAL | wxSL_MIN_MAX_LABELS | wxSL_VALUE_LABEL, wxDefaultValidator,
                          "slider");
    EXPECT_EQ(slider.GetDoubleValue(), 1.5);
    EXPECT_EQ(slider.FromDoubleValue(0.129), 12);
    slider.SetRange(0, 2000);
    slider.SetPageSize(100);
    slider.SetValue(500);
    EXPECT_EQ(slider.GetValue(), 500);
    AuiNotebook book(m_panel, wxID_ANY, wxDefaultPosition, wxSize(200, 100), wxAUI_NB_DEFAULT_STYLE);
    book.AddPage(new wxPanel(&book), "one");
    const wxString layout = book.SavePerspective();
    EXPECT_TRUE(book.LoadPerspective(layout));
    EXPECT_EQ(book.SavePerspective(), layout);
    const AuiNotebook empty;
}

}  // namespace
