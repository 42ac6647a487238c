// SPDX-License-Identifier: MIT
// What programs that use the input framework rely on: constructors with all their arguments, operations and
// hooks as they are called and overridden outside. A changed signature does not compile here.
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "gui_base/dialogs/tv_report_controller.h"
#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/binding/transfer_container.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/binding/two_state_bitmap_button.h"
#include "gui_base/input/combinations/input_combination_ion_concentration.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_double_slider.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/panel/tv_modulepanelbase.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/image_loader.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/gui_test.h"
#include "tncommon/data_dir.h"

#include <wx/artprov.h>
#include <wx/datectrl.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

namespace {

using namespace gui_test;

class InputFramework : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
    }
    iex::IEXProject m_project;
    wxPanel* m_panel = nullptr;
    DetailData m_number{"number", DetailType::Double, "bar"};
    DetailData m_text{"text", DetailType::String};
    DetailData m_switch{"switch", DetailType::Bool};
};

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

/// A module of somebody else, with every hook taken over.
class OwnModule : public ModulePanelBase
{
public:
    OwnModule(Project* project, wxWindow* parent)
        : ModulePanelBase(project, parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "own")
    {
        Create();
    }
    void SetStatusBar(wxStatusBar* bar) override { ModulePanelBase::SetStatusBar(bar); }
    void ShowWhatIf() override {}
    void TransferDetailsToWindow() override { ModulePanelBase::TransferDetailsToWindow(); }
    void UpdateUnits(bool transferValues) override { ModulePanelBase::UpdateUnits(transferValues); }
    void Localize(const std::string& unitSystem) override { ModulePanelBase::Localize(unitSystem); }
    void UseAll()
    {
        BindControlToOnFieldUpdate(static_cast<DataBaseCombination*>(nullptr), tvCHANGE_EVENT);
        BindControlToOnFieldUpdate(static_cast<wxPanel*>(this), tvCHANGE_EVENT);
        BindControlToOnFieldUpdate(tvCHANGE_EVENT, 7000, 7001);
        ConnectControlToStatusBar(m_field);
        ConnectControlToStatusBar(static_cast<DataBaseCombination*>(nullptr));
        DetailData limits("limits", DetailType::Double, "bar");
        UpdateLimitsFromDetail(m_field, &limits);
        EXPECT_EQ(GetCurrentDisplayUnitSystem(), "iso");
        EXPECT_EQ(GetUnitSystemDisplay(), "iso");
        int width = 0;
        int height = 0;
        GetTextFieldSize("text", width, height);
        EXPECT_GT(width, 0);
        EXPECT_FALSE(IsProjectStatusLowerThanPanelStatus());
        ResetProjectStatus();
        EXPECT_LE(GetProjectStatus(), GetPanelProjectStatus());
        SendChangeEvent();
        TransferDetailsFromWindow();
        SetDefaultScrollRate();
        CalculateDesign();
        EXPECT_EQ(GetStatusBarUnchecked(), GetStatusBar());
        AddToDetailContainerWindows(nullptr);
        ClearTransferDetails();
        ClearLocalizableControls();
        RecreatePanel();
    }

protected:
    void DoTransferDetailsToWindows() override { ModulePanelBase::DoTransferDetailsToWindows(); }
    long GetPanelProjectStatus() override { return 0; }
    void DoUpdateProjectStatus() override {}
    void DoResetPanelStatus() override {}
    void DoResetMessages() override {}
    void DoCreateControls() override { m_field = new TvTextCtrl(this, wxID_ANY); }
    void DoSetTransferDetails() override {}
    void DoSetValidators() override { m_field->SetValidator(DoubleValidator(&m_value)); }
    void DoBindEvents() override { SetupInputControl(m_field); }
    void DoPrepare() override {}
    void DoUpdateUnits() override {}
    void DoLocalize() override {}
    void DoUpdateValues() override { CalculateDesign(); }
    void DoConnectTvTextCtrlsToStatusbar() override {}
    void DoSendVisualizeMessageEvent() override {}
    bool DoValidate() override { return true; }
    void DoUpdateValidators() override {}
    bool DoHasWhatIf() override { return true; }
    double GetCurrencyFactor() const override { return 1.0; }
    void Prepare() override { ModulePanelBase::Prepare(); }

private:
    TvTextCtrl* m_field = nullptr;
    double m_value = 0.0;
};

TEST_F(InputFramework, ModulePanels)
{
    auto* module = new OwnModule(&m_project, m_panel);
    module->UseAll();
    module->SetTransferDetails();
    module->SetValidators();
    module->BindEvents();
    module->UpdateValues();
    module->ConnectTvTextCtrlsToStatusbar();
    module->SendVisualizeMessageEvent();
    module->ResetMessages();
    EXPECT_TRUE(module->HasWhatIf());
    EXPECT_TRUE(module->Validate());
    module->SynchronizeProject();
    module->UpdateProjectStatus();
    for (const wxEventTypeTag<wxCommandEvent>& type :
         {tvCHANGE_EVENT, tvCHANGEUNITSYSTEM_EVENT, tvLOCALIZE_EVENT, tvCHANGEUNITSYSTEMPRINTOUT_EVENT,
          tvACTIVATECURRENTTREEITEM_EVENT, tvCHANGEWINDOWNAME_EVENT, tvCLOSEPROJECT_EVENT,
          tvUPDATEPROJECTLIST_EVENT})
        events::SendEvent(module, type, wxID_ANY, 0, "text");
    Pump();
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

TEST_F(InputFramework, MessagesAndSmallDialogs)
{
    const MessageEvent message(tv_MESSAGE, 1, "iex", "iso", {"one"});
    const std::string module = message.GetModuleType();
    const std::string units = message.GetUnitSystem();
    const std::vector<std::string> texts = message.GetMessages();
    EXPECT_EQ(module + units + texts.front(), "iexisoone");
    const VisualizeMessageEvent visualize(tvVISUALIZE_MESSAGE, 1, "iex", "iso", {"one"});
    const wxString shown = visualize.GetModuleType() + visualize.GetUnitSystem();
    EXPECT_EQ(shown, "iexiso");
    const std::unique_ptr<wxEvent> clone(visualize.Clone());
    EXPECT_EQ(dynamic_cast<const VisualizeMessageEvent&>(*clone).GetMessages(), visualize.GetMessages());
    const events::WindowNotification notification(m_frame, tvCHANGE_EVENT);
    notification.Send(tvCHANGE_EVENT, 1, 2, "text");

    InfoMessageDialog info("message", m_frame, wxID_ANY, "title", wxDefaultPosition, wxDefaultSize,
                           wxDEFAULT_DIALOG_STYLE, "info");
    EXPECT_FALSE(info.GetDontShowAgainValue());
    const wxString choices[] = {"one", "two"};
    TvMultiChoiceDialog multi(m_frame, "message", "caption", 2, choices, wxCHOICEDLG_STYLE,
                              wxDefaultPosition);
    wxCommandEvent press(wxEVT_BUTTON);
    multi.OnSelectAll(press);
    multi.TransferDataFromWindow();
    EXPECT_EQ(multi.GetSelections().size(), 2u);
    multi.OnDeselectAll(press);
    multi.TransferDataFromWindow();
    EXPECT_TRUE(multi.GetSelections().empty());
    const PageSelectionDialog pages({{"one", 1}, {"two", 2}}, m_frame, wxID_ANY, "title", wxDefaultPosition,
                                    wxDefaultSize, wxDEFAULT_DIALOG_STYLE);
    EXPECT_EQ(pages.GetActiveReports().size(), 2u);
    const std::vector<ReportPage> reportPages = pages.GetActiveReports();
    const PageSelectionPanel content(reportPages, 5, m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0,
                                     "pages");
    EXPECT_EQ(content.GetChosen().size(), 2u);
    wxFileName (FileNameCreator::*ask)(wxWindow*, const wxString&, const wxString&, const wxString&,
                                       const wxString&, const wxString&) const = &FileNameCreator::operator();
    EXPECT_NE(ask, nullptr);
    const TvReportController report(m_frame);
    auto* editor = new TvGridCellChoiceEditor({{"id", "text"}}, false);
    EXPECT_EQ(editor->GetChoices().size(), 1u);
    editor->DecRef();
    wxImage image;
    EXPECT_FALSE(ImageLoader::LoadImageResource(image, "nosuch", wxBITMAP_TYPE_PNG));
    EXPECT_FALSE(ImageLoader::LoadImageResource("nosuch").IsOk());
    EXPECT_FALSE(ImageLoader::LoadBitmapResource("nosuch").IsOk());
    EXPECT_FALSE(ImageLoader::FromBase64("!").IsOk());
    ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
    EXPECT_THROW(TVHelpFileProvider("", "tarnvik6.htb"), std::exception);
    const std::vector<std::pair<wxString, wxString>> countries = gui_utils::GetCountries();
    EXPECT_GT(countries.size(), 200u);
}

}  // namespace
