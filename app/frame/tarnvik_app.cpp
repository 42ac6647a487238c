// SPDX-License-Identifier: MIT
#include "app/frame/tarnvik_app.h"

#include "app/document/templates.h"
#include "app/frame/database_wait.h"
#include "app/frame/main_frame.h"
#include "app/frame/session_end.h"
#include "app/language/language.h"
#include "app/tour/tour.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/network/network.h"
#include "gui_base/support/density.h"
#include "gui_base/support/image_loader.h"
#include "projectbase/settings/settings.h"
#include "tncommon/data_dir.h"

#include <wx/cmdline.h>
#include <wx/log.h>
#include <wx/uilocale.h>

#include <chrono>
#include <exception>
#include <fstream>
#include <iomanip>
#include <iostream>

namespace app {
namespace {}  // namespace

UserMessage InitProgram()
{
    // Numbers follow the user's system; only the language of texts can be switched later.
    wxUILocale::UseDefault();
    ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
    // The rest of the program takes them for granted.
    MasterDatabase::GetPlantTypes();
    ProjectDatabase::SetWaitIndicator(ShowDatabaseWait);
    std::exception_ptr problem;
    try {
        ProjectDatabase::OpenConfigured();
        Settings::Load();
    } catch (const std::exception&) {
        problem = std::current_exception();
    }
    Network::Initialize();
    density::Set(density::DensityOf(Settings::GetSetting("density").GetStdStringValue()));
    const wxString language = Settings::GetSetting("language").GetStringValue();
    SwitchLanguage(language.empty() ? SystemLanguage() : language);
    try {
        if (problem)
            std::rethrow_exception(problem);
        return {};
    } catch (const std::exception& error) {
        return MessageOf(error);
    }
}

std::filesystem::path& TarnvikApp::FileOfStart()
{
    static std::filesystem::path file;
    return file;
}

bool TarnvikApp::OnInit()
{
    SetAppName("tarnvik");
    SetAppDisplayName("Tarnvik");
    if (!wxApp::OnInit())
        return false;
    try {
        const UserMessage problem = InitProgram();
        if (m_tourFolder.empty()) {
            OpenWindow(problem);
        } else {
            // Between its windows the tour has none.
            SetExitOnFrameDelete(false);
            CallAfter([this] { RunTourLook(); });
        }
        return true;
    } catch (const std::exception& error) {
        dialogs::ShowMessage(nullptr, MessageOf(error), "Tarnvik", wxICON_ERROR);
        return false;
    }
}

void TarnvikApp::OpenWindow(const UserMessage& problem)
{
    m_frame = new MainFrame(std::make_unique<Document>(NewEmptyProject()));
    m_frame->GetProject().SetUnitSystemDisplay(Settings::GetSetting("unit.system").GetStdStringValue());
    if (!problem.text.empty())
        m_frame->GetMessageArea().AddMessage(MessageArea::Severity::Error, problem);
    if (!FileOfStart().empty())
        m_frame->Files().Open(FileOfStart());
    else
        m_frame->ShowStart();
    m_frame->Show();
    KeepWorkAtSessionEnd(*m_frame);
    if (m_measureStart)
        m_frame->CallAfter([this] { ReportStart(); });
    else
        m_frame->CallAfter([frame = m_frame] { frame->Files().OfferRecovery(); });
}

void TarnvikApp::RunTourLook()
{
    try {
        TakeTour(m_tourFolder, m_tourLook, m_tourPart);
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        m_exitCode = 1;
    }
    ExitMainLoop();
}

int TarnvikApp::OnRun()
{
    const int code = wxApp::OnRun();
    return m_exitCode != 0 ? m_exitCode : code;
}

void TarnvikApp::ReportStart()
{
    m_frame->Update();
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:"))
            std::cout << std::stol(line.substr(6)) << std::endl;
    }
    // On the clock that whoever started the program reads, too: what follows is no part of the start.
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    std::cout << std::fixed << std::chrono::duration<double>(now).count() << std::endl;
    m_frame->Close(true);
}

int TarnvikApp::OnExit()
{
    Network::Terminate();
    ProjectDatabase::Close();
    return wxApp::OnExit();
}

bool TarnvikApp::OnExceptionInMainLoop()
{
    try {
        throw;
    } catch (const std::exception& error) {
        wxLogError("%s", MessageOf(error).text);
    } catch (...) {
        wxLogError("Unknown exception");
    }
    return true;
}

void TarnvikApp::OnInitCmdLine(wxCmdLineParser& parser)
{
    wxApp::OnInitCmdLine(parser);
    // For the benchmark of the start: ends the program as soon as its window can be used.
    parser.AddSwitch(wxString(), "measure-start", wxString(), wxCMD_LINE_HIDDEN);
    // One look of the tour, which runs the program once for each.
    parser.AddLongOption("tour", wxString(), wxCMD_LINE_VAL_STRING, wxCMD_LINE_HIDDEN);
    parser.AddLongOption("tour-look", wxString(), wxCMD_LINE_VAL_STRING, wxCMD_LINE_HIDDEN);
    parser.AddSwitch(wxString(), "tour-modules", wxString(), wxCMD_LINE_HIDDEN);
    parser.AddParam("FILE", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
}

bool TarnvikApp::OnCmdLineParsed(wxCmdLineParser& parser)
{
    m_measureStart = parser.Found("measure-start");
    wxString text;
    if (parser.Found("tour", &text))
        m_tourFolder = text.utf8_string();
    if (parser.Found("tour-look", &text))
        m_tourLook = text.utf8_string();
    m_tourPart = parser.Found("tour-modules") ? TourPart::Modules : TourPart::All;
    return wxApp::OnCmdLineParsed(parser);
}

}  // namespace app
