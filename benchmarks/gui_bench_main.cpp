// SPDX-License-Identifier: MIT
// Runs the benchmarks of a program inside the toolkit.
#include "gui_base/support/image_loader.h"
#include "tncommon/data_dir.h"

#include <benchmark/benchmark.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/log.h>

class BenchApp : public wxApp
{
public:
    bool OnInit() override
    {
        // The toolkit's own log would show what was reported in a box, and wait.
        delete wxLog::SetActiveTarget(new wxLogStderr);
        ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
        return true;
    }
    int OnRun() override
    {
        wxEventLoop loop;
        const wxEventLoopActivator activate(&loop);
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    }
};

wxIMPLEMENT_APP_NO_MAIN(BenchApp);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    return wxEntry(argc, argv);
}
