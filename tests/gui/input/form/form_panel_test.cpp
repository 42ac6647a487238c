// SPDX-License-Identifier: MIT
// Panels and blocks that are tables of rows.
#include "gui_base/input/form/form_panel.h"

#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/events.h"
#include "gui_base/input/form/form_block.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/units/unit_system_manager.h"
#include "tests/support/gui_test.h"

#include <array>
#include <cmath>

namespace {

using namespace gui_test;

std::vector<std::pair<wxString, wxString>> Kinds()
{
    return {{"a", "First"}, {"b", "Second"}};
}

std::vector<wxString> Pressures()
{
    return {"bar", "psi"};
}

constexpr std::array kRows{
    FormRow{.key = "flow", .label = "Flow"},
    FormRow{.key = "factor", .label = "Factor:", .limits = FormLimits{0.0, 2.0}, .precision = 2},
    FormRow{.key = "lines", .label = "Lines", .format = TvTextCtrlFormat::Fixed},
    FormRow{.key = "note", .label = "Note"},
    FormRow{.key = "active", .label = "Active"},
    FormRow{.key = "day", .label = "Day"},
    FormRow{.key = "kind", .label = "Kind", .field = FormField::Choice, .items = Kinds},
    FormRow{.key = "pressure",
            .label = "Pressure",
            .unitKey = "pressure.unit",
            .units = Pressures,
            .limits = FormLimits{0.0, 10.0}},
    FormRow{.key = "twice", .label = "Twice", .field = FormField::Result},
    FormRow{.key = "remarks", .label = "Remarks", .lines = 3},
};

void FillDetails(DetailList& details)
{
    details.Add(DetailData("flow", DetailType::Double, "m3/h")).SetLimits(0.0, 100.0, "m3/h");
    details.Add(DetailData("factor"));
    details.Add(DetailData("lines", DetailType::Long)).SetLimits(1.0, 9.0, {});
    details.Add(DetailData("note", DetailType::String));
    details.Add(DetailData("remarks", DetailType::String));
    details.Add(DetailData("active", DetailType::Bool));
    details.Add(DetailData("day", DetailType::Date));
    details.Add(DetailData("kind", DetailType::String)).SetValue("a");
    details.Add(DetailData("pressure")).SetLimits(std::nullopt, std::nullopt, "bar");
    details.Add(DetailData("pressure.unit", DetailType::String)).SetValue("bar");
    details.Add(DetailData("twice", DetailType::Double, "m3/h"));
}

class ThreeColumnForm : public FormPanel
{
public:
    ThreeColumnForm(Project* project, DetailList& details, wxWindow* parent)
        : FormPanel(project, details, parent), m_details(details)
    {
        Create();
    }
    using FormPanel::GetFields;
    using FormPanel::RecreatePanel;

protected:
    void DoCreateForm() override
    {
        auto* grid = NewGrid();
        GetFields().AddRows(this, *grid, kRows);
        SetSizer(grid);
    }
    void DoUpdateValues() override
    {
        m_details.At("twice").SetValue(2.0 * m_details.At("flow").GetDoubleValue());
    }

private:
    DetailList& m_details;
};

class FormPanelTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        FillDetails(m_details);
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { ++m_notified; });
        m_panel = new ThreeColumnForm(&m_project, m_details, m_frame);
        m_frame->SendSizeEvent();
        Pump();
    }
    DetailData& Detail(const char* key) { return m_details.At(key); }
    TvTextCtrl& Field(const char* key) { return *m_panel->GetFields().FindField(key); }
    wxString Hint(int field) { return m_frame->GetStatusBar()->GetStatusText(field); }
    int Notified() { return std::exchange(m_notified, 0); }

    iex::IEXProject m_project;
    DetailList m_details;
    ThreeColumnForm* m_panel = nullptr;
    int m_notified = 0;
};

TEST_F(FormPanelTest, EnterBeginsALineWhereATextHasSeveral)
{
    TvTextCtrl& field = Field("remarks");
    Focus(field);
    Type("one");
    Press(WXK_RETURN);
    Type("two");
    EXPECT_EQ(Detail("remarks").GetStdStringValue(), "") << "only what is left is stored";
    Press(WXK_TAB);
    EXPECT_FALSE(field.HasFocus());
    EXPECT_EQ(Detail("remarks").GetStdStringValue(), "one\ntwo");
    EXPECT_EQ(field.GetValue(), "one\ntwo");
    EXPECT_GT(field.GetSize().y, 2 * Field("note").GetCharHeight());
}

TEST_F(FormPanelTest, TypedTextsAreStoredAndShown)
{
    struct Case
    {
        const char* key;
        const char* typed;
        const char* stored;
        const char* shown;
        int rangeFlag;
    };
    const std::array cases{
        Case{"flow", "12.5", "1.25000000000000E+001", "12.5", 0},
        Case{"flow", "101", "1.01000000000000E+002", "101", 1},
        Case{"flow", "1-2", "1.01000000000000E+002", "101", 1},
        Case{"flow", "", "", "", 0},
        Case{"factor", "-1", "-1.00000000000000E+000", "-1", -1},
        Case{"factor", "1.25", "1.25000000000000E+000", "1.25", 0},
        Case{"lines", "3", "3", "3", 0},
        Case{"lines", "12", "12", "12", 1},
        Case{"note", "two words", "two words", "two words", 0},
        Case{"pressure", "11", "1.10000000000000E+001", "11", 1},
        Case{"pressure", "5", "5.00000000000000E+000", "5", 0},
    };
    for (const Case& row : cases) {
        const std::string where = std::string(row.key) + " <- " + row.typed;
        Enter(Field(row.key), row.typed);
        Pump();
        const bool isUnknown = std::isnan(Detail(row.key).GetDoubleValue());
        EXPECT_EQ(isUnknown ? "" : Detail(row.key).GetValueAsString(), row.stored) << where;
        EXPECT_EQ(Field(row.key).GetValue(), row.shown) << where;
        EXPECT_EQ(Detail(row.key).GetRangeFlag(), row.rangeFlag) << where;
        EXPECT_EQ(Field(row.key).GetBackgroundColour() != TvTextCtrl::EditableColour(), row.rangeFlag != 0)
            << where;
        EXPECT_EQ(Notified(), 1) << where;
    }
    EXPECT_TRUE(m_project.IsChanged());
    Enter(Field("flow"), "4");
    EXPECT_EQ(Field("twice").GetValue(), "8") << "an edit recalculates";
    EXPECT_FALSE(Field("twice").IsEditable());
}

TEST_F(FormPanelTest, ChosenValuesAreStoredAndShown)
{
    Click(Find<TvCheckBox>(*m_panel, "Active"));
    EXPECT_TRUE(Detail("active").GetBoolValue());
    Focus(Find<tvChoiceAdv>(*m_panel, "Kind"));
    Press(WXK_DOWN);
    EXPECT_EQ(Detail("kind").GetStringValue(), "b");
    EXPECT_EQ(Notified(), 2);

    Enter(Field("pressure"), "5");
    Focus(Find<tvUnitChoice>(*m_panel, "Pressure, Unit"));
    Press(WXK_DOWN);
    EXPECT_EQ(Detail("pressure.unit").GetStringValue(), "psi");
    EXPECT_EQ(Field("pressure").GetValue(), "5") << "another unit, the same number";
    EXPECT_EQ(Field("pressure").GetName(), "Pressure [psi]");
    Enter(Field("pressure"), "145.2");
    EXPECT_EQ(Detail("pressure").GetRangeFlag(), 1) << "more than 10 bar";
    Notified();

    // And the other way round, as after an undo.
    Detail("active").SetValue(false);
    Detail("day").SetValue(wxDateTime(3, wxDateTime::May, 2021));
    Detail("kind").SetValue("a");
    Detail("pressure.unit").SetValue("bar");
    Detail("note").SetValue("other");
    m_panel->TransferDetailsToWindow();
    EXPECT_FALSE(Find<TvCheckBox>(*m_panel, "Active").GetValue());
    EXPECT_TRUE(
        Find<TvDatePickerCtrl>(*m_panel, "Day").GetValue().IsSameDate(wxDateTime(3, wxDateTime::May, 2021)));
    EXPECT_EQ(Find<tvChoiceAdv>(*m_panel, "Kind").GetKey(), "a");
    EXPECT_EQ(Find<tvUnitChoice>(*m_panel, "Pressure, Unit").GetStringSelection(), "bar");
    EXPECT_EQ(Field("note").GetValue(), "other");
    EXPECT_EQ(Notified(), 0);
}

TEST_F(FormPanelTest, UnitSystemsConvertValuesLimitsAndNames)
{
    const std::vector<std::pair<std::string, wxString>> systems{
        {"us", "gpm"}, {"imperial", "igpm"}, {"iso", wxString::FromUTF8("m\u00b3/h")}};
    for (const auto& [system, unit] : systems) {
        m_project.SetUnitSystemDisplay(system);
        m_panel->UpdateUnits(true);
        EXPECT_EQ(Field("flow").GetName(), "Flow [" + unit + "]");
        EXPECT_EQ(Find<TvUnitLabel>(*m_panel).GetLabelText(), unit);
        const double most = UnitSystemManager::FromISO("m3/h", system, 100.0);
        Focus(Field("flow"));
        EXPECT_EQ(Hint(0), "Min: 0 " + unit);
        double hinted = 0.0;
        EXPECT_TRUE(Hint(1).AfterFirst(' ').BeforeFirst(' ').ToCDouble(&hinted)) << Hint(1);
        EXPECT_NEAR(hinted, most, 0.001 * most);
        EXPECT_EQ(Hint(1).AfterLast(' '), unit);
        for (const double part : {0.99, 1.01}) {
            Enter(Field("flow"), wxString::FromCDouble(most * part, 4));
            EXPECT_NEAR(Detail("flow").GetDoubleValue(), 100.0 * part, 1e-3) << system;
            EXPECT_EQ(Detail("flow").GetRangeFlag(), part > 1.0 ? 1 : 0) << system;
        }
        EXPECT_EQ(Field("factor").GetName(), "Factor") << "without its colon";
        Focus(Field("factor"));
        EXPECT_EQ(Hint(1), "Max: 2") << "a number alone";
    }
    Focus(Field("pressure"));
    EXPECT_EQ(Hint(1), "Max: 10 bar");
    Focus(Find<tvUnitChoice>(*m_panel, "Pressure, Unit"));
    Press(WXK_DOWN);
    Focus(Field("pressure"));
    EXPECT_EQ(Hint(1).AfterLast(' '), "psi") << "in the unit that was chosen";
}

TEST_F(FormPanelTest, LanguageRenamesFieldsAndItems)
{
    const TestCatalogue german({{"Flow", "Volumenstrom"}, {"Kind", "Art"}, {"Second", "Zweite"}});
    m_panel->Localize("iso");
    EXPECT_EQ(Field("flow").GetName(), wxString::FromUTF8("Volumenstrom [m\u00b3/h]"));
    EXPECT_EQ(Find<tvChoiceAdv>(*m_panel, "Art").GetString(1), "Zweite");
}

TEST_F(FormPanelTest, TabFollowsTheRowsAndPassesResultsBy)
{
    Focus(Field("flow"));
    std::vector<wxWindow*> reached;
    for (int i = 0; i < 4; ++i) {
        Press(WXK_TAB);
        reached.push_back(wxWindow::FindFocus());
    }
    EXPECT_EQ(reached, (std::vector<wxWindow*>{&Field("factor"), &Field("lines"), &Field("note"),
                                               &Find<TvCheckBox>(*m_panel, "Active")}));
    Focus(Field("pressure"));
    Press(WXK_TAB);
    Press(WXK_TAB);
    EXPECT_NE(wxWindow::FindFocus(), &Field("twice"));
}

TEST_F(FormPanelTest, ARecreatedFormAnswersOnce)
{
    m_panel->RecreatePanel();
    Pump();
    Notified();
    Click(Find<TvCheckBox>(*m_panel, "Active"));
    Enter(Field("flow"), "7");
    EXPECT_EQ(Detail("flow").GetDoubleValue(), 7.0);
    EXPECT_EQ(Notified(), 2);
}

TEST_F(FormPanelTest, ARowIsWholeAsLongAsItsControl)
{
    wxPanel* panel = MakePanel();
    auto fields = std::make_unique<FieldSet>(m_details);
    wxWindow* field = fields->CreateField(panel, kRows[0]);
    fields->SetValidators();
    fields.reset();
    Enter(dynamic_cast<wxTextCtrl&>(*field), "3");
    EXPECT_EQ(Detail("flow").GetDoubleValue(), 0.0) << "nobody is left to store it";
    panel->Destroy();
    Pump();

    FieldSet missing(m_details);
    EXPECT_THROW(missing.CreateField(m_frame, {.key = "nowhere", .label = "x"}), std::runtime_error);
    EXPECT_THROW(missing.CreateField(m_frame, kRows[7]), std::logic_error) << "a unit stands beside it";
}

class TwoRowBlock : public FormBlock
{
public:
    TwoRowBlock(DetailList* details, wxWindow* parent) : FormBlock(details, parent)
    {
        auto* grid = form::NewGrid(*this);
        GetFields().AddRows(this, *grid, std::span(kRows).subspan(3, 2));
        SetSizer(grid);
        CompleteForm();
    }
};

TEST_F(FormPanelTest, ABlockTellsOfChangesOnly)
{
    wxPanel* parent = MakePanel();
    auto* block = new TwoRowBlock(&m_details, parent);
    std::vector<int> heard;
    parent->Bind(tvCHANGE_EVENT, [&heard](wxCommandEvent& event) { heard.push_back(event.GetId()); });
    parent->Fit();
    block->Fit();
    m_panel->Hide();
    Pump();
    for (const char* typed : {"one", "one", "two"})
        Enter(*block->FindField("note"), typed);
    Pump();
    EXPECT_EQ(Detail("note").GetStringValue(), "two");
    EXPECT_EQ(heard, std::vector<int>(2, block->GetId())) << "the same text is no change";
    int told = 0;
    block->SetOnChange([&told] { ++told; });
    Focus(Find<TvCheckBox>(*block, "Active"));
    Press(WXK_SPACE);
    EXPECT_TRUE(Detail("active").GetBoolValue());
    EXPECT_EQ(told, 1);
    EXPECT_EQ(heard.size(), 2u) << "the handler hears in place of the parent";
}

}  // namespace
