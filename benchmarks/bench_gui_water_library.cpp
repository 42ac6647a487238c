// SPDX-License-Identifier: MIT
// A user's library of 100,000 waters over 200 countries: opening it, selecting a country of 5,000, sorting,
// and saving one water.
#include "dbinterfaces/project_database.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <wx/frame.h>
#include <wx/utils.h>

#include <clocale>
#include <cstdlib>
#include <random>

namespace {

constexpr int kCountries = 200;
constexpr int kWaters = 100'000;
constexpr int kLargest = 5'000;

/// Fills the tables past the facade: 100,000 calls would take longer than all that is measured.
void Fill(const std::string& file)
{
    soci::session session(*soci::factory_sqlite3(), "dbname=\"" + file + "\"");
    soci::transaction transaction(session);
    std::mt19937 random(1);
    int id = 0;
    for (int country = 0; country < kCountries; ++country) {
        const int countryId = country + 2;
        const std::string name = fmt::format("Country {:03}", country);
        session << "INSERT INTO tarnvik_water_country (id, category_id, name) VALUES (:id, 1, :name)",
            soci::use(countryId), soci::use(name);
        const int count = country == 0 ? kLargest : (kWaters - kLargest) / (kCountries - 1);
        for (int i = 0; i < count; ++i) {
            ++id;
            const std::string place = fmt::format("Place {}", random() % 1000);
            const std::string source = fmt::format("Well {} of the waterworks", random() % 100'000);
            session << "INSERT INTO tarnvik_water (id, country_id, place, source) VALUES (:i, :c, :p, :s)",
                soci::use(id), soci::use(countryId), soci::use(place), soci::use(source);
        }
    }
    session << "UPDATE tarnvik_counter SET last_id = 1000000";
    transaction.commit();
}

/// The library and a frame for its dialogs, made once.
struct Library
{
    Library()
    {
        // Sorting costs more in a locale than in none.
        std::setlocale(LC_ALL, "");
        setenv("TARNVIK_USER_DATA", (folder / "user").c_str(), 1);
        const std::string file = (folder / "waters.db").string();
        ProjectDatabase::Open(file);
        Fill(file);
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(600, 800));
        frame->Show();
        wxYield();
    }
    static Library& Get()
    {
        static auto* library = new Library;  // the toolkit is gone when statics are
        return *library;
    }

    support::TempFolder folder;
    wxFrame* frame;
    Logger logger;
};

void BM_OpenTreeAndList(benchmark::State& state)
{
    Library& library = Library::Get();
    for (auto _ : state) {
        auto* dialog = new WaterLibDialog(library.logger, library.frame);
        dialog->Show();
        wxYield();
        state.PauseTiming();
        dialog->Destroy();
        wxYield();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenTreeAndList)->Unit(benchmark::kMillisecond);

/// A shown dialog, and the largest country in its tree.
struct OpenDialog
{
    OpenDialog() : dialog(Library::Get().logger, Library::Get().frame)
    {
        dialog.Show();
        wxYield();
        tree = dynamic_cast<wxTreeCtrl*>(wxWindow::FindWindowByName("Library", &dialog));
        wxTreeItemIdValue cookie;
        largest = tree->GetFirstChild(tree->GetLastChild(tree->GetRootItem()), cookie);
    }
    void SelectLargest()
    {
        tree->UnselectAll();
        tree->SelectItem(largest);
        if (dialog.GetWaterList().GetItemCount() != kLargest)
            std::abort();
        dialog.GetWaterList().Update();
        wxYield();
    }
    WaterLibDialog dialog;
    wxTreeCtrl* tree = nullptr;
    wxTreeItemId largest;
};

void BM_SelectCountryOf5000(benchmark::State& state)
{
    OpenDialog open;
    for (auto _ : state)
        open.SelectLargest();
}
BENCHMARK(BM_SelectCountryOf5000)->Unit(benchmark::kMillisecond);

void BM_Sort5000(benchmark::State& state)
{
    OpenDialog open;
    open.SelectLargest();
    int column = 0;
    for (auto _ : state) {
        column = column == 1 ? 2 : 1;
        open.dialog.SortWaterListbyColumn(column);
        open.dialog.GetWaterList().Update();
        wxYield();
    }
}
BENCHMARK(BM_Sort5000)->Unit(benchmark::kMillisecond);

/// The page of a feed water beside that of its analysis alone.
template <typename Panel>
void BM_BuildPage(benchmark::State& state)
{
    Library& library = Library::Get();
    iex::IEXProject project;
    for (auto _ : state) {
        auto* panel = new Panel(&project, 0, library.frame, wxID_ANY, nullptr);
        wxYield();
        state.PauseTiming();
        panel->Destroy();
        wxYield();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildPage<WaterAnalysisPanel>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildPage<FeedWaterPanel>)->Unit(benchmark::kMillisecond);

void BM_SaveWater(benchmark::State& state)
{
    Library::Get();
    LiquidData liquid;
    liquid.FindDetail("liquid/country")->SetValue("FR");
    liquid.FindDetail("liquid/water.source")->SetValue("Bench");
    int number = 0;
    for (auto& [key, detail] : *liquid.GetDetails()) {
        if (detail.GetType() == DetailType::Double)
            detail.SetValue(1.0 + ++number);
    }
    const bool overwrite = state.range(0) != 0;
    for (auto _ : state) {
        liquid.FindDetail("liquid/place")->SetValue(overwrite ? 0 : ++number);
        if (!WaterLibDialog::SaveLiquid(&liquid))
            std::abort();
    }
}
BENCHMARK(BM_SaveWater)->ArgName("overwrite")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
