// SPDX-License-Identifier: MIT
// What a project is called, for whom it is and who made it: the first page of the report.
#include "app/modules/base/module.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/form/form_panel.h"
#include "gui_base/report/report_page_source.h"
#include "projectbase/details/date_text.h"
#include "projectbase/project/project.h"

#include <wx/statbox.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace app {

namespace {

constexpr int kLeastFieldWidth = 240;
/// Longer lines are hard to read.
constexpr int kMostFieldWidth = 720;

constexpr std::array kRows{
    FormRow{.key = "project/title", .label = wxTRANSLATE("Title")},
    FormRow{.key = "project/customer", .label = wxTRANSLATE("Customer")},
    FormRow{.key = "project/plant", .label = wxTRANSLATE("Plant")},
    FormRow{.key = "project/author", .label = wxTRANSLATE("Author")},
    FormRow{.key = "project/date", .label = wxTRANSLATE("Date")},
    FormRow{.key = "project/revision", .label = wxTRANSLATE("Revision")},
    FormRow{.key = "project/comments", .label = wxTRANSLATE("Comments"), .lines = 5},
};

bool IsRow(const std::string& key)
{
    return std::ranges::any_of(kRows, [&key](const FormRow& row) { return key == row.key; });
}

class ProjectPanel : public FormPanel
{
public:
    ProjectPanel(Project& project, wxWindow* parent) : FormPanel(&project, project.GetDetails(), parent)
    {
        Create();
    }

protected:
    void DoCreateForm() override
    {
        GetFields().SetFieldWidth(kLeastFieldWidth);
        GetFields().SetLabelSuffix(":");
        auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Project")));
        auto* grid = NewGrid();
        GetFields().AddRows(box->GetStaticBox(), *grid, kRows);
        const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(2 * form::kGap));
        box->Add(grid, spaced);
        auto* outer = new wxBoxSizer(wxVERTICAL);
        outer->Add(box, spaced);
        SetSizer(outer);
    }
    void DoArrange(int width) override
    {
        if (GetSizer() == nullptr)
            return;
        const int least = FromDIP(kLeastFieldWidth);
        SetFieldWidths(least);
        FormPanel::DoArrange(width);
        const int spare = width - GetSizer()->CalcMin().x;
        SetFieldWidths(std::clamp(least + spare, least, FromDIP(kMostFieldWidth)));
    }
    // What a project is called has no part in its calculation.
    long GetPanelProjectStatus() override { return GetProjectStatus(); }
    bool DoConcerns(const ProjectChanges& changes) override { return changes.Touches({}); }

private:
    void SetFieldWidths(int width)
    {
        for (const FormRow& row : kRows) {
            if (TvTextCtrl* const field = GetFields().FindField(row.key))
                field->SetMinSize(wxSize(width, field->GetMinSize().y));
        }
    }
};

class ProjectReport : public ReportPageSource
{
public:
    explicit ProjectReport(const Project& project) : m_project(project) {}

    /// A project of which nothing is told has no page.
    std::vector<ReportPage> GetReportPages(const ReportContext& context) const override
    {
        if (Rows(context).empty())
            return {};
        return {{.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Project"))),
                 .id = 0,
                 .name = "project"}};
    }

    report::Section BuildReportPage(int id, const ReportContext& context) const override
    {
        if (id != 0)
            throw std::out_of_range("ProjectReport::BuildReportPage: there is no such page");
        report::Table table{.columns = {{}, {.stretch = 1.0}}, .showTitles = false};
        table.rows = Rows(context);
        report::Section section{.title = context.Translated(wxTRANSLATE("Project")), .isFrontSheet = true};
        section.blocks.push_back(std::move(table));
        return section;
    }

private:
    std::vector<report::Row> Rows(const ReportContext& context) const
    {
        std::vector<report::Row> rows;
        for (const FormRow& row : kRows) {
            const DetailData& detail = m_project.GetDetails().At(row.key);
            const std::string text = detail.GetType() == DetailType::Date
                                         ? DateText(detail.GetDateValue()).utf8_string()
                                         : detail.GetStdStringValue();
            if (!text.empty())
                rows.push_back({.cells = {{.text = context.Translated(row.label)}, {.text = text}}});
        }
        return rows;
    }

    const Project& m_project;
};

}  // namespace

Module ProjectModule()
{
    return {.id = "project",
            .title = wxTRANSLATE("Project"),
            .icon = "/icons/project.svg",
            .helpPage = "project.html",
            .isFor = [](const Project&) { return true; },
            .holds =
                [](const Project&, const OwnerNode&, const DetailAddress& address) {
                    return address.owner == DetailOwner() && IsRow(address.key);
                },
            .makePage = [](const PageContext& context, OwnerNode&) -> ModulePage {
                return {.panel = new ProjectPanel(context.project, context.parent)};
            },
            .makeReport = [](const Project& project) -> std::unique_ptr<ReportPageSource> {
                return std::make_unique<ProjectReport>(project);
            }};
}

}  // namespace app
