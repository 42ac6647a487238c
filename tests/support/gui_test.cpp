// SPDX-License-Identifier: MIT
#include "tests/support/gui_test.h"

#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/support/image_loader.h"
#include "tncommon/data_dir.h"

#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/panel.h>
#include <wx/progdlg.h>
#include <wx/radiobut.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/translation.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <clocale>
#include <cstdint>
#include <memory>

namespace gui_test {

void Pump()
{
    for (int i = 0; i < 3; ++i) {
        wxTheApp->Yield();
        wxTheApp->ProcessIdle();
    }
}

bool PumpUntil(const std::function<bool()>& done)
{
    wxStopWatch watch;
    while (!done()) {
        if (watch.Time() > 2000)
            return false;
        Pump();
        wxMilliSleep(2);
    }
    return true;
}

void Type(const wxString& asciiText)
{
    wxUIActionSimulator simulator;
    simulator.Text(asciiText.utf8_str());
    Pump();
}

void Press(int key, int modifiers)
{
    wxUIActionSimulator simulator;
    simulator.Char(key, modifiers);
    Pump();
}

void Focus(wxWindow& window)
{
    window.SetFocus();
    EXPECT_TRUE(PumpUntil([&window] { return window.HasFocus(); })) << window.GetName();
}

void Click(wxWindow& window)
{
    wxUIActionSimulator simulator;
    const wxRect area = window.GetScreenRect();
    simulator.MouseMove(area.GetPosition() + wxPoint(area.width / 2, area.height / 2));
    Pump();
    simulator.MouseClick();
    Pump();
}

void Enter(wxTextCtrl& field, const wxString& asciiText)
{
    Focus(field);
    field.SelectAll();
    if (asciiText.empty())
        Press(WXK_DELETE);
    else
        Type(asciiText);
    Press(WXK_TAB);
    EXPECT_TRUE(PumpUntil([&field] { return !field.HasFocus(); })) << field.GetName();
}

wxString detail::AccessibleName(const wxWindow& window)
{
    const bool isLabelled = dynamic_cast<const wxCheckBox*>(&window) != nullptr ||
                            dynamic_cast<const wxRadioButton*>(&window) != nullptr;
    return isLabelled ? wxControl::RemoveMnemonics(window.GetLabel()) : window.GetName();
}

bool ChooseFile(wxFileDialog& dialog, const std::filesystem::path& path)
{
    // The toolkit's dialog knows its path only while it is shown.
    const wxString wanted = wxString::FromUTF8(path.string());
    dialog.Show();
    Pump();
    dialog.SetPath(wanted);
    const bool taken = PumpUntil([&] { return dialog.GetPath() == wanted; });
    EXPECT_TRUE(taken) << path << " " << dialog.GetPath().utf8_string();
    return taken;
}

LocaleGuard::LocaleGuard(const std::string& name) : m_previous(std::setlocale(LC_ALL, nullptr))
{
    EXPECT_NE(std::setlocale(LC_ALL, name.c_str()), nullptr) << "no locale " << name;
}

LocaleGuard::~LocaleGuard()
{
    std::setlocale(LC_ALL, m_previous.c_str());
}

DialogAnswers::~DialogAnswers()
{
    EXPECT_TRUE(m_answers.empty()) << "an expected dialog was not shown";
    Unregister();
}

int DialogAnswers::Enter(wxDialog* dialog)
{
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << dialog->GetTitle().utf8_string();
        return wxID_CANCEL;
    }
    Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    return answer(*dialog);
}

CancelsProgress::CancelsProgress()
{
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Look(); });
    m_timer.Start(1);
}

void CancelsProgress::Look()
{
    for (wxWindow* window : wxTopLevelWindows) {
        wxWindow* button = dynamic_cast<wxGenericProgressDialog*>(window) != nullptr
                               ? window->FindWindow(wxID_CANCEL)
                               : nullptr;
        if (button == nullptr || m_count > 0)
            continue;
        ++m_count;
        wxCommandEvent event(wxEVT_BUTTON, wxID_CANCEL);
        event.SetEventObject(button);
        window->GetEventHandler()->ProcessEvent(event);
    }
}

void GuiTest::SetUp()
{
    m_frame = new wxFrame(nullptr, wxID_ANY, "test", wxPoint(0, 0), wxSize(1500, 1100));
    auto* statusBar = new TvStatusBar(m_frame);
    statusBar->SetFieldsCount(3);
    m_frame->SetStatusBar(statusBar);
    m_frame->Show();
    m_frame->Raise();
    Pump();
}

wxPanel* GuiTest::MakePanel()
{
    auto* panel = new wxPanel(m_frame);
    m_frame->SendSizeEvent();
    Pump();
    return panel;
}

void GuiTest::TearDown()
{
    m_frame->Destroy();
    Pump();
}

namespace {

/// The bytes of a message catalogue as gettext lays them out.
std::string MoFile(std::vector<std::pair<std::string, std::string>> entries)
{
    entries.emplace_back("", "Content-Type: text/plain; charset=UTF-8\n");
    std::sort(entries.begin(), entries.end());
    const auto count = static_cast<std::uint32_t>(entries.size());
    constexpr std::uint32_t kHeader = 28;
    std::vector<std::uint32_t> words{0x950412de, 0, count, kHeader, kHeader + 8 * count, 0, 0};
    std::string texts;
    const std::uint32_t base = kHeader + 16 * count;
    const auto index = [&](const std::string& text) {
        words.push_back(static_cast<std::uint32_t>(text.size()));
        words.push_back(base + static_cast<std::uint32_t>(texts.size()));
        texts += text;
        texts += '\0';
    };
    for (const auto& [source, translation] : entries)
        index(source);
    for (const auto& [source, translation] : entries)
        index(translation);
    std::string file(reinterpret_cast<const char*>(words.data()), words.size() * sizeof(std::uint32_t));
    return file + texts;
}

class MemoryLoader : public wxTranslationsLoader
{
public:
    MemoryLoader(std::string file, wxString language)
        : m_file(std::move(file)), m_language(std::move(language))
    {}
    wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString&) override
    {
        return wxMsgCatalog::CreateFromData(wxScopedCharBuffer::CreateNonOwned(m_file.data(), m_file.size()),
                                            domain);
    }
    wxArrayString GetAvailableTranslations(const wxString&) const override
    {
        wxArrayString languages;
        languages.Add(m_language);
        return languages;
    }

private:
    std::string m_file;
    wxString m_language;
};

}  // namespace

TestCatalogue::TestCatalogue(std::vector<std::pair<std::string, std::string>> entries)
{
    Use(std::move(entries), "de");
}

TestCatalogue::TestCatalogue(const Language& language)
{
    Use({}, language.code);
}

void TestCatalogue::Use(std::vector<std::pair<std::string, std::string>> entries, const wxString& language)
{
    auto* translations = new wxTranslations;
    translations->SetLoader(new MemoryLoader(MoFile(std::move(entries)), language));
    translations->SetLanguage(language);
    wxTranslations::Set(translations);
    EXPECT_TRUE(translations->AddCatalog("test"));
}

TestCatalogue::~TestCatalogue()
{
    wxTranslations::Set(new wxTranslations);
}

/// Runs the tests inside the toolkit's main loop.
class TestApp : public wxApp
{
public:
    bool OnInit() override
    {
        ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
        return true;
    }
    int OnRun() override
    {
        wxEventLoop loop;
        const wxEventLoopActivator activate(&loop);
        return RUN_ALL_TESTS();
    }
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override
    {
        ADD_FAILURE() << "toolkit assertion " << wxString(condition).utf8_string() << " in "
                      << wxString(function).utf8_string() << " (" << wxString(file).utf8_string() << ":"
                      << line << ") "
                      << (message != nullptr ? wxString(message).utf8_string() : std::string());
    }
};

}  // namespace gui_test

wxIMPLEMENT_APP_NO_MAIN(gui_test::TestApp);

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return wxEntry(argc, argv);
}
