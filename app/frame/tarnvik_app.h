// SPDX-License-Identifier: MIT
#pragma once

#include "app/tour/tour.h"

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

private:
    /// Prints the memory that the program holds, in KiB, and ends it.
    void ReportStart();
    /// Takes the pictures of one look and ends the program.
    void RunTourLook();

    std::string m_file;
    bool m_measureStart = false;
    std::string m_tourFolder;
    std::string m_tourLook;
    TourPart m_tourPart = TourPart::All;
    int m_exitCode = 0;
    std::string m_databaseError;
    MainFrame* m_frame = nullptr;
};

/// What every start needs before windows are made: the locale of the system for numbers, images, settings.
/// `error` receives a text when the user database cannot be used; the program then runs without it.
void InitProgram(std::string& error);

}  // namespace app
