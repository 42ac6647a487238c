// SPDX-License-Identifier: MIT
#include "gui_base/graphics/diagrams/diagram_page.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/sizer.h>

#include <string>

namespace {

/// The page of all diagrams of five waters, in view.
class DiagramsPage
{
public:
    DiagramsPage()
    {
        {
            const ProjectEdit edit(m_project);
            while (m_project.GetLiquidCount() < 5)
                m_project.AddLiquid("Water " + std::to_string(m_project.GetLiquidCount() + 1));
        }
        for (std::size_t i = 0; i < m_project.GetLiquidCount(); ++i) {
            const ProjectEdit edit(m_project);
            for (const char* ion : {"ca", "mg", "na", "hco3", "so4", "cl"})
                At(i, ion).SetValue(20.0 + 10.0 * static_cast<double>(i));
        }
        m_frame = new wxFrame(nullptr, wxID_ANY, "diagrams", wxPoint(0, 0), wxSize(1200, 800));
        m_frame->SetSizer(new wxBoxSizer(wxVERTICAL));
        m_page = new DiagramPage(m_project, m_frame);
        m_frame->GetSizer()->Add(m_page, 1, wxEXPAND);
        m_frame->Show();
        m_frame->Layout();
        wxYield();
    }
    ~DiagramsPage()
    {
        m_frame->Destroy();
        wxYield();
    }
    DetailData& At(std::size_t water, const std::string& ion)
    {
        return m_project.GetLiquid(water).GetDetails()->At("liquid/" + ion + ".orig");
    }
    void Paint() { m_page->Update(); }

private:
    iex::IEXProject m_project;
    wxFrame* m_frame = nullptr;
    DiagramPage* m_page = nullptr;
};

/// Until the page has its new diagrams; they are painted when the screen wants them.
void BM_EditToDiagrams(benchmark::State& state)
{
    DiagramsPage page;
    double calcium = 20.0;
    for (auto _ : state) {
        calcium = calcium == 20.0 ? 30.0 : 20.0;
        page.At(0, "ca").SetValue(calcium);
    }
}
BENCHMARK(BM_EditToDiagrams)->Unit(benchmark::kMillisecond);

/// The same until all four are painted.
void BM_EditToPaintedDiagrams(benchmark::State& state)
{
    DiagramsPage page;
    double calcium = 20.0;
    for (auto _ : state) {
        calcium = calcium == 20.0 ? 30.0 : 20.0;
        page.At(0, "ca").SetValue(calcium);
        page.Paint();
        wxYield();
    }
}
BENCHMARK(BM_EditToPaintedDiagrams)->Unit(benchmark::kMillisecond);

}  // namespace
