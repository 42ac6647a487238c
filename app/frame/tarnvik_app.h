// SPDX-License-Identifier: MIT
#pragma once

#include "app/tour/tour.h"
#include "gui_base/messages/user_message.h"

#include <wx/app.h>

#include <filesystem>
#include <string>

namespace app {

class MainFrame;

/// The program with its window.
class TarnvikApp : public wxApp
{
public:
    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;
    /// An exception that nobody caught is reported; the program goes on.
    bool OnExceptionInMainLoop() override;
    void OnInitCmdLine(wxCmdLineParser& parser) override;
    bool OnCmdLineParsed(wxCmdLineParser& parser) override;

    /// The file that the window opens with, as the system gave it: not every name of a file is a text.
    static void SetFile(std::filesystem::path file) { FileOfStart() = std::move(file); }

private:
    static std::filesystem::path& FileOfStart();
    void OpenWindow(const UserMessage& problem);
    /// Prints the memory that the program holds, in KiB, and ends it.
    void ReportStart();
    /// Takes the pictures of one look and ends the program.
    void RunTourLook();

    bool m_measureStart = false;
    std::string m_tourFolder;
    std::string m_tourLook;
    TourPart m_tourPart = TourPart::All;
    int m_exitCode = 0;
    MainFrame* m_frame = nullptr;
};

/// What every start needs before windows are made: the locale of the system for numbers, images, settings.
/// Returns a message when the user database cannot be used; the program then runs without it. Throws
/// DatabaseError when the program's own data are missing.
UserMessage InitProgram();

}  // namespace app
