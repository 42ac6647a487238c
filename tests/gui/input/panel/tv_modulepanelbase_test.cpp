// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/tv_modulepanelbase.h"

#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/input/validation/double_validator.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"

#include <wx/sizer.h>

#include <optional>
#include <stdexcept>

namespace {

using namespace gui_test;

/// A module with one temperature, one label and a record of what the base class asked for.
class RecordingPanel : public ModulePanelBase
{
public:
    RecordingPanel(Project* project, wxWindow* parent, DetailData& detail)
        : ModulePanelBase(project, parent), m_detail(detail)
    {
        Create();
    }
    ~RecordingPanel() override { DestroyChildren(); }

    using ModulePanelBase::BindControlToOnFieldUpdate;
    using ModulePanelBase::GetCurrentDisplayUnitSystem;
    using ModulePanelBase::RecreatePanel;
    using ModulePanelBase::UpdateLimitsFromDetail;

    std::vector<std::string> calls;
    std::string failure;
    TvTextCtrl* field = nullptr;
    TvTextCtrl* second = nullptr;
    TvValidatedDoubleTextCtrl* validated = nullptr;
    TvStaticText* label = nullptr;
    double value = 0.0;
    double currency = 1.0;

protected:
    double GetCurrencyFactor() const override { return currency; }
    long GetPanelProjectStatus() override { return 3; }
    void DoResetPanelStatus() override { calls.push_back("reset status"); }
    void DoResetMessages() override { calls.push_back("reset messages"); }
    void DoCreateControls() override
    {
        calls.push_back("create");
        label = AddLocalizable(new TvStaticText(this, wxID_ANY, "Value", ":"));
        field = new TvTextCtrl(this, wxID_ANY);
        second = new TvTextCtrl(this, wxID_ANY);
        validated = new TvValidatedDoubleTextCtrl({.parent = this, .detail = &m_detail});
        AddToDetailContainerWindows(validated);
        AddToDetailContainerWindows(nullptr);
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* window : GetChildren())
            sizer->Add(window);
        SetSizer(sizer);
    }
    void DoSetTransferDetails() override
    {
        calls.push_back("bindings");
        AddTransfer(TransferDetail(3, &value, field, &m_detail));
    }
    void DoSetValidators() override
    {
        calls.push_back("validators");
        field->SetValidator(
            DoubleValidator(&value, TvTextCtrlFormat::General, 6, CheckMin | CheckMax, 0, 100, 0));
        second->SetValidator(DoubleValidator(&m_unbound));
    }
    void DoBindEvents() override { calls.push_back("events"); }
    void DoPrepare() override { calls.push_back("prepare"); }
    void DoUpdateUnits() override { calls.push_back("units"); }
    void DoLocalize() override { calls.push_back("localize"); }
    void DoUpdateValues() override
    {
        calls.push_back("values");
        if (!failure.empty())
            throw std::runtime_error(failure);
        ModulePanelBase::DoUpdateValues();
    }
    void DoUpdateValidators() override { calls.push_back("limits"); }
    void DoConnectTvTextCtrlsToStatusbar() override
    {
        calls.push_back("status bar");
        SetupInputControl(field);
        SetupInputControl(second);
        SetupInputControl(validated);
    }
    void DoSendVisualizeMessageEvent() override { calls.push_back("visualize"); }

private:
    DetailData& m_detail;
    double m_unbound = 0.0;
};

class ModulePanelTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_detail.SetValue(20.0);
        m_project.SetChanged(false);
        m_frame->Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) {
            ++m_notified;
            EXPECT_EQ(event.GetId(), wxID_ANY);
        });
    }
    RecordingPanel* Make(Project* project)
    {
        auto* panel = new RecordingPanel(project, m_frame, m_detail);
        m_frame->SendSizeEvent();
        Pump();
        return panel;
    }

    iex::IEXProject m_project;
    DetailData m_detail{"t", DetailType::Double, "°C"};
    int m_notified = 0;
};

TEST_F(ModulePanelTest, IsCreatedInAFixedOrder)
{
    RecordingPanel* panel = Make(&m_project);
    EXPECT_EQ(panel->calls, (std::vector<std::string>{"reset status", "create", "visualize", "bindings",
                                                      "validators", "status bar", "events", "visualize",
                                                      "prepare", "limits", "units", "visualize"}));
    EXPECT_EQ(m_project.GetStatus(), 3);
    EXPECT_EQ(panel->field->GetValue(), "20");
    EXPECT_EQ(panel->validated->GetValue(), "20");

    m_project.ResetStatus(5);
    auto* later = Make(&m_project);
    EXPECT_EQ(later->calls.front(), "create") << "a project further on is not touched";
    EXPECT_EQ(m_project.GetStatus(), 5);
}

TEST_F(ModulePanelTest, OneCommitSynchronisesAndTellsTheHostOnce)
{
    RecordingPanel* panel = Make(&m_project);
    panel->calls.clear();
    m_project.ResetStatus(9);
    gui_test::Enter(*panel->field, "150");
    EXPECT_EQ(m_detail.GetDoubleValue(), 150.0);
    EXPECT_EQ(m_detail.GetRangeFlag(), 1);
    EXPECT_EQ(panel->calls, (std::vector<std::string>{"reset messages", "limits", "values", "limits",
                                                      "reset status", "visualize", "visualize"}));
    EXPECT_EQ(m_project.GetStatus(), 3);
    EXPECT_TRUE(m_project.IsChanged());
    EXPECT_EQ(m_notified, 1);
    EXPECT_EQ(panel->validated->GetValue(), "150") << "a field that refreshes itself shows the new value";
    EXPECT_FALSE(panel->FocusDetail({{}, "t"})) << "a detail that is not of the project";
}

TEST_F(ModulePanelTest, AFieldWithItsOwnBindingTellsTheHostOnce)
{
    RecordingPanel* panel = Make(&m_project);
    gui_test::Enter(*panel->validated, "30");
    Pump();
    EXPECT_EQ(m_notified, 1);
    EXPECT_TRUE(m_project.IsChanged());
}

TEST_F(ModulePanelTest, AnUnchangedCommitStillCountsAsChange)
{
    RecordingPanel* panel = Make(&m_project);
    gui_test::Enter(*panel->field, "20");
    EXPECT_EQ(m_notified, 1);
    EXPECT_TRUE(m_project.IsChanged());
}

TEST_F(ModulePanelTest, MenuCommandsCommitTheFocusedField)
{
    RecordingPanel* panel = Make(&m_project);
    Focus(*panel->field);
    panel->field->SelectAll();
    Type("33");
    CommitFocusedField();
    Pump();
    EXPECT_EQ(m_detail.GetDoubleValue(), 33.0);
    EXPECT_EQ(m_notified, 1);
    CommitFocusedField();
    Focus(*panel->second);
    Pump();
    EXPECT_EQ(m_notified, 1) << "committed once";
}

TEST_F(ModulePanelTest, ChangesOfControlsReachTheHostOnce)
{
    RecordingPanel* panel = Make(&m_project);
    auto* choice = new tvChoice({{1, "one"}}, nullptr, panel, wxID_ANY);
    const auto send = [&] {
        m_notified = 0;
        wxCommandEvent event(tvCHANGE_EVENT, choice->GetId());
        event.SetEventObject(choice);
        choice->GetEventHandler()->ProcessEvent(event);
        Pump();
        return m_notified;
    };
    panel->BindControlToOnFieldUpdate(tvCHANGE_EVENT, choice->GetId(), choice->GetId());
    EXPECT_EQ(send(), 1);
}

TEST_F(ModulePanelTest, AChangeThatNobodyAnsweredClimbsToTheHost)
{
    wxPanel* host = MakePanel();
    auto* panel = new RecordingPanel(&m_project, host, m_detail);
    auto* between = new wxPanel(panel);
    auto* choice = new tvChoice({{1, "one"}}, nullptr, between, wxID_ANY);
    std::vector<std::string> heard;
    const auto hear = [&](wxWindow& window, const char* name, bool climbs) {
        window.Bind(tvCHANGE_EVENT, [&heard, name, climbs](wxCommandEvent& event) {
            heard.push_back(event.GetId() == wxID_ANY ? std::string(name) + " any" : name);
            event.Skip(climbs);
        });
    };
    hear(*host, "host", false);
    hear(*between, "between", true);
    // Events follow each other at the same place of the stack.
    std::optional<wxCommandEvent> event;
    const auto send = [&](wxWindow& window, wxEventType type) {
        heard.clear();
        event.emplace(type, window.GetId());
        event->SetEventObject(&window);
        window.GetEventHandler()->ProcessEvent(*event);
        Pump();
        return heard;
    };
    using Heard = std::vector<std::string>;
    EXPECT_EQ(send(*panel->field, wxEVT_TEXT_ENTER), (Heard{"host any"}));
    EXPECT_EQ(send(*choice, tvCHANGE_EVENT), (Heard{"between", "host"})) << "nobody answered it";
    EXPECT_EQ(send(*panel->validated, tvCHANGE_EVENT), Heard()) << "its commit was answered";
    auto* alone = new TvValidatedDoubleTextCtrl({.parent = panel, .detail = &m_detail});
    EXPECT_EQ(send(*alone, tvCHANGE_EVENT), (Heard{"host"})) << "the panel does not answer its commits";
    panel->BindControlToOnFieldUpdate(wxEVT_TEXT_ENTER, alone->GetId(), alone->GetId());
    EXPECT_EQ(send(*alone, wxEVT_TEXT_ENTER), (Heard{"host any"}));
    EXPECT_EQ(send(*alone, tvCHANGE_EVENT), Heard()) << "now it does";
    panel->BindControlToOnFieldUpdate(tvCHANGE_EVENT, choice->GetId(), choice->GetId());
    EXPECT_EQ(send(*choice, tvCHANGE_EVENT), (Heard{"between", "host any"}));
}

TEST_F(ModulePanelTest, AnExceptionIsLoggedAndThePanelStaysUsable)
{
    RecordingPanel* panel = Make(&m_project);
    std::vector<std::string> log;
    m_project.GetLogger().SetSink([&log](const Logger::Entry& entry) { log.push_back(entry.text); });
    panel->failure = "no such ion";
    gui_test::Enter(*panel->field, "40");
    EXPECT_EQ(log, std::vector<std::string>{"ModulePanelBase::SynchronizeProject: no such ion"});
    EXPECT_FALSE(panel->IsFrozen());
    panel->failure.clear();
    gui_test::Enter(*panel->field, "41");
    EXPECT_EQ(m_detail.GetDoubleValue(), 41.0);
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(ModulePanelTest, UnitSystemAndLanguageSwitchWhileItRuns)
{
    RecordingPanel* panel = Make(&m_project);
    panel->calls.clear();
    m_project.SetUnitSystemDisplay("us");
    wxCommandEvent units(tvCHANGEUNITSYSTEM_EVENT);
    panel->GetEventHandler()->ProcessEvent(units);
    EXPECT_EQ(panel->field->GetValue(), "68");
    EXPECT_EQ(panel->calls, (std::vector<std::string>{"limits", "units", "visualize"}));

    const TestCatalogue german(std::vector<std::pair<std::string, std::string>>{{"Value", "Wert"}});
    wxCommandEvent language(tvLOCALIZE_EVENT);
    panel->GetEventHandler()->ProcessEvent(language);
    EXPECT_EQ(panel->label->GetLabelText(), "Wert:");

    // A value keeps every digit through the units, since it is never read back from its text.
    m_detail.SetValue(20.123456789012);
    for (const char* system : {"iso", "us", "imperial", "iso"}) {
        m_project.SetUnitSystemDisplay(system);
        panel->UpdateUnits(true);
    }
    EXPECT_EQ(m_detail.GetDoubleValue(), 20.123456789012);
}

TEST_F(ModulePanelTest, RecreationLeavesNothingOfThePreviousBuild)
{
    RecordingPanel* panel = Make(&m_project);
    for (int i = 0; i < 3; ++i)
        panel->RecreatePanel();
    Pump();
    panel->calls.clear();
    m_notified = 0;
    gui_test::Enter(*panel->field, "50");
    EXPECT_EQ(m_detail.GetDoubleValue(), 50.0);
    EXPECT_EQ(m_notified, 1);
    panel->calls.clear();
    wxCommandEvent units(tvCHANGEUNITSYSTEM_EVENT);
    panel->GetEventHandler()->ProcessEvent(units);
    EXPECT_EQ(std::count(panel->calls.begin(), panel->calls.end(), "units"), 1)
        << "the base events are bound once";
}

TEST_F(ModulePanelTest, WithoutAProjectItShowsIsoUnits)
{
    m_project.ResetStatus(7);
    RecordingPanel* panel = Make(nullptr);
    EXPECT_EQ(panel->GetCurrentDisplayUnitSystem(), "iso");
    EXPECT_EQ(panel->calls.front(), "create");
    gui_test::Enter(*panel->field, "25");
    EXPECT_EQ(m_detail.GetDoubleValue(), 25.0);
    EXPECT_EQ(m_project.GetStatus(), 7);
}

TEST_F(ModulePanelTest, MoneyIsConvertedAtTheFieldAlone)
{
    m_detail = DetailData("cost", DetailType::Double, "EUR/m3");
    m_detail.SetValue(10.0);
    RecordingPanel* panel = Make(&m_project);
    EXPECT_EQ(panel->field->GetValue(), "10");
    panel->currency = 1.5;
    panel->TransferDetailsToWindow();
    EXPECT_EQ(panel->field->GetValue(), "15");
    panel->field->Bind(wxEVT_TEXT_ENTER, [panel](wxCommandEvent&) { panel->SynchronizeProject(); });
    Enter(*panel->field, "30");
    EXPECT_EQ(m_detail.GetDoubleValue(), 20.0);
    EXPECT_EQ(panel->field->GetValue(), "30");
}

TEST_F(ModulePanelTest, LimitsFollowTheDetail)
{
    RecordingPanel* panel = Make(&m_project);
    m_project.SetUnitSystemDisplay("us");
    m_detail.SetLimits(0.0, 10.0, "°C");
    panel->UpdateUnits(true);
    panel->UpdateLimitsFromDetail(panel->field, &m_detail);
    auto& validator = dynamic_cast<DoubleValidator&>(*panel->field->GetValidator());
    EXPECT_EQ(validator.GetMinValue(), 32.0);
    EXPECT_EQ(validator.GetMaxValue(), 50.0);
    EXPECT_EQ(validator.GetRangeFlag(), 1) << "20 °C is shown and checked anew";
    const DetailData unitless("x");
    panel->UpdateLimitsFromDetail(panel->field, &unitless);
    panel->UpdateLimitsFromDetail(nullptr, &m_detail);
    EXPECT_EQ(validator.GetMaxValue(), 50.0);
}

TEST_F(ModulePanelTest, GoesWhileAFieldIsBeingEdited)
{
    RecordingPanel* panel = Make(&m_project);
    Focus(*panel->field);
    Type("7");
    panel->Destroy();
    Pump();
    EXPECT_EQ(m_detail.GetDoubleValue(), 20.0);
    EXPECT_EQ(m_notified, 0);
}

}  // namespace
