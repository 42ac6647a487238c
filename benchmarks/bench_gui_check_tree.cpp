// SPDX-License-Identifier: MIT
// Checking every item of a tree of 10,000, beside the bare calls in a frozen tree.
#include "gui_base/input/controls/check_tree.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/utils.h>
#include <wx/wupdlock.h>

#include <vector>

namespace {

constexpr int kBranches = 100;
constexpr int kLeaves = 99;

/// A shown tree of kBranches * (kLeaves + 1) + 1 items, of which some are expanded.
struct Tree
{
    Tree()
    {
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(600, 800));
        tree = new wxCheckTreeCtrl(frame);
        root = tree->AddRoot("root", false);
        items.push_back(root);
        for (int i = 0; i < kBranches; ++i) {
            const wxTreeItemId branch = tree->AppendItem(root, wxString::Format("branch %d", i), false);
            items.push_back(branch);
            for (int k = 0; k < kLeaves; ++k)
                items.push_back(tree->AppendItem(branch, wxString::Format("leaf %d", k), false));
        }
        tree->Expand(root);
        frame->Show();
        wxYield();
    }
    ~Tree()
    {
        frame->Destroy();
        wxYield();
    }
    wxFrame* frame;
    wxCheckTreeCtrl* tree;
    wxTreeItemId root;
    std::vector<wxTreeItemId> items;
};

void BM_BareImagesInFrozenTree(benchmark::State& state)
{
    const Tree window;
    bool check = false;
    for (auto _ : state) {
        check = !check;
        const int image = check ? wxCKTR_CHECKED : wxCKTR_UNCHECKED;
        const wxWindowUpdateLocker frozen(window.tree);
        for (const wxTreeItemId& item : window.items) {
            window.tree->SetItemImage(item, image, wxTreeItemIcon_Normal);
            window.tree->SetItemImage(item, image, wxTreeItemIcon_Selected);
        }
    }
}
BENCHMARK(BM_BareImagesInFrozenTree)->Unit(benchmark::kMillisecond);

void BM_RecursiveCheckOfRoot(benchmark::State& state)
{
    const Tree window;
    bool check = false;
    for (auto _ : state) {
        check = !check;
        window.tree->RecursiveCheck(window.root, check);
    }
}
BENCHMARK(BM_RecursiveCheckOfRoot)->Unit(benchmark::kMillisecond);

}  // namespace
