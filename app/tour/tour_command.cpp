// SPDX-License-Identifier: MIT
#include "app/tour/tour_command.h"

#include "tncommon/files.h"

#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <array>
#include <filesystem>
#include <iostream>
#include <span>

namespace app {
namespace {

namespace fs = std::filesystem;

struct Look
{
    const char* name;
    const char* theme;
    const char* scale;
};

constexpr std::array kLooks{
    Look{"light-1x", "Adwaita", "1"},
    Look{"light-2x", "Adwaita", "2"},
    Look{"dark-1x", "Adwaita:dark", "1"},
    Look{"dark-2x", "Adwaita:dark", "2"},
};

/// A folder that goes with the object.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        const fs::path file = tncommon::Files::CreateTempFile("tarnvik-tour");
        m_path = file.string() + ".d";
        fs::create_directory(m_path);
        fs::permissions(m_path, fs::perms::owner_all);
        fs::remove(file);
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const fs::path& GetPath() const { return m_path; }

private:
    fs::path m_path;
};

bool TakeLook(const Look& look, const fs::path& folder, bool onlyModules)
{
    const ScratchFolder userData;
    wxExecuteEnv environment;
    wxGetEnvMap(&environment.env);
    environment.env["GTK_THEME"] = look.theme;
    environment.env["GDK_SCALE"] = look.scale;
    environment.env["TARNVIK_USER_DATA"] = wxString::FromUTF8(userData.GetPath().string());
    const wxString program = wxStandardPaths::Get().GetExecutablePath();
    const wxString target = wxString::FromUTF8(folder.string());
    const wxString name = look.name;
    const std::array<const wchar_t*, 7> words{program.wc_str(), L"--tour",
                                              target.wc_str(),  L"--tour-look",
                                              name.wc_str(),    onlyModules ? L"--tour-modules" : nullptr,
                                              nullptr};
    return wxExecute(words.data(), wxEXEC_SYNC, nullptr, &environment) == 0;
}

std::size_t CountPictures(const fs::path& folder)
{
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        count += entry.path().extension() == ".png" ? 1 : 0;
    return count;
}

}  // namespace

int RunTour(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        out << "usage: tarnvik tour DIR [--modules]\n"
               "\n"
               "Takes a picture of every control and module under the current display and puts them into "
               "DIR.\n"
               "\n"
               "  --modules  takes those of the modules alone, light and at scale 1\n";
        return 0;
    }
    const bool onlyModules = args.size() == 2 && args[1] == "--modules";
    if (args.size() != (onlyModules ? 2U : 1U) || args[0].empty() || args[0].starts_with('-')) {
        err << "tarnvik tour: name one folder for the pictures\n";
        return 2;
    }
    const fs::path folder = args[0];
    try {
        fs::create_directories(folder);
        for (const Look& look : std::span(kLooks).first(onlyModules ? 1 : kLooks.size())) {
            if (TakeLook(look, folder, onlyModules))
                continue;
            err << "tarnvik tour: the pictures \"" << look.name << "\" could not be taken\n";
            return 1;
        }
        out << CountPictures(folder) << " pictures in " << folder.string() << '\n';
        return 0;
    } catch (const fs::filesystem_error& error) {
        err << "tarnvik tour: " << error.what() << '\n';
        return 1;
    }
}

}  // namespace app
