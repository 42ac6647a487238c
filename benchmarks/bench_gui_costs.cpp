// SPDX-License-Identifier: MIT
// The page of the costs: from an edit of the design to what it shows, and from one currency to another.
#include "dbinterfaces/project_database.h"
#include "gui_base/ionexchange/costs/irx_costpanel.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/sizer.h>

namespace {

class CostsPage
{
public:
    CostsPage()
    {
        ProjectDatabase::Open("sqlite3://" + (m_folder / "user.db").string());
        ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"USD", 1.25}});
        support::SetWater(m_project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
        support::SetFlow(m_project);
        support::Put(m_project, "", "cost/op.cost.regen1", 0.5);
        m_frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(1400, 900));
        m_frame->SetSizer(new wxBoxSizer(wxVERTICAL));
        m_panel = new IRXCostsPanel(&m_project, m_frame);
        m_frame->GetSizer()->Add(m_panel, 1, wxEXPAND);
        m_frame->Show();
        m_frame->Layout();
        wxYield();
    }
    ~CostsPage()
    {
        m_frame->Destroy();
        wxYield();
        ProjectDatabase::Close();
    }
    iex::IEXProject& GetProject() { return m_project; }
    IRXCostsPanel& GetPanel() { return *m_panel; }

private:
    support::TempFolder m_folder;
    iex::IEXProject m_project{"DEMI"};
    wxFrame* m_frame = nullptr;
    IRXCostsPanel* m_panel = nullptr;
};

void BM_DesignToCosts(benchmark::State& state)
{
    CostsPage page;
    double hours = 12.0;
    for (auto _ : state) {
        hours = hours == 12.0 ? 13.0 : 12.0;
        support::Put(page.GetProject(), "", "project/lz", hours);
    }
}
BENCHMARK(BM_DesignToCosts)->Unit(benchmark::kMillisecond);

void BM_RefreshCosts(benchmark::State& state)
{
    CostsPage page;
    for (auto _ : state)
        page.GetPanel().UpdateUnits(true);
}
BENCHMARK(BM_RefreshCosts)->Unit(benchmark::kMillisecond);

/// All of it anew: units, limits, values, names, layout.
void BM_SwitchUnits(benchmark::State& state)
{
    CostsPage page;
    bool isIso = true;
    for (auto _ : state) {
        isIso = !isIso;
        page.GetProject().SetUnitSystemDisplay(isIso ? "iso" : "us");
        page.GetPanel().UpdateUnits(true);
    }
}
BENCHMARK(BM_SwitchUnits)->Unit(benchmark::kMillisecond);

/// Without the write of the user's choice.
void BM_SwitchCurrency(benchmark::State& state)
{
    CostsPage page;
    const ProjectDatabase::Transaction unsaved;
    bool isEuro = true;
    for (auto _ : state) {
        isEuro = !isEuro;
        ProjectDatabase::SetUserParameter(costs::kCurrencyParameter, isEuro ? "EUR" : "USD");
        page.GetPanel().UpdateCurrencyDisplay();
    }
}
BENCHMARK(BM_SwitchCurrency)->Unit(benchmark::kMillisecond);

}  // namespace
