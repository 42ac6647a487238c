// SPDX-License-Identifier: MIT
// Runs the benchmarks of a program inside the toolkit.
#include "gui_base/support/image_loader.h"
#include "tncommon/data_dir.h"

#include <benchmark/benchmark.h>
#include <wx/app.h>
#include <wx/evtloop.h>

class BenchApp : public wxApp
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
