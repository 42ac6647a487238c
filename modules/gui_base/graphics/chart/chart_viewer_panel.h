// SPDX-License-Identifier: MIT
#pragma once

/// The view of the charts of resins: what is drawn can be chosen beside the chart, which is shown in a viewer
/// and exported. It decides nothing: a controller fills it by its Do… operations and draws anew whenever it
/// is told of a choice. GUI thread only.

#include "chartdir/draw_area.h"
#include "gui_base/graphics/chart/chart_parameter_panels.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_choice.h"
#include "projectbase/curves/curve_calculations.h"
#include "wxchartdir/wx_chart_viewer.h"

#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

class TvButton;
class wxStatusBar;

/// What the user chose, as the integer of a tvCHART_SELECTION_EVENT.
enum class ChartSelection : int
{
    DiagramType,
    Medium,
    Resin,
    Range,
    Parameter
};
/// The user chose something; processed by the panel and ends there.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHART_SELECTION_EVENT, wxCommandEvent);

class GUI_BASE_EXPORT ChartViewerPanel : public wxScrolled<wxPanel>
{
public:
    using Choices = std::vector<std::pair<long, wxString>>;
    using SetParameters =
        std::vector<std::variant<Temperature, std::tuple<Temperature, curve_calculations::Viscosity>>>;

    /// Pairs of an identifier and a source label for each of the choices, of which the first is selected.
    ChartViewerPanel(const Choices& diagramTypes, const Choices& media, const Choices& resins,
                     wxWindow* parent, int id, const wxPoint& pos = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL);

    DIAGRAM_TYPE DoGetDiagramTypeSelection() const;
    MEDIUM DoGetMediumSelection() const;
    void DoSetMediumSelection(MEDIUM medium) const;
    void DoEnableMediumSelection(bool isEnabled) const;
    /// The source label of the resin; empty where there is none.
    std::string DoGetResinSelection() const;

    /// The range of the abscissa, in the unit that is shown; not a number for an emptied field.
    double DoGetStartValue() const { return m_start; }
    void DoSetStartValue(double value);
    double DoGetEndValue() const { return m_end; }
    void DoSetEndValue(double value);
    void DoUpdateRangeUnit(const wxString& unit);

    /// One for each curve, as the inputs that are shown have them.
    SetParameters DoGetSetParameter() const;
    void DoUpdateSetLabels(const wxString& label) const;
    void DoUpdateSetUnits(const wxString& unit) const;
    void DoUseTemperaturePanel();
    void DoUseViscosityAndTemperaturePanel();

    /// Shows a chart; what was zoomed to stays in view with `keepsView`.
    void DoShowChart(std::shared_ptr<chartdir::XYChart> chart, bool keepsView);
    /// Reports a message (UTF-8) to the user.
    void DoShowErrorMessage(const std::string& message) const;

    wxChartViewer& GetViewer() const { return *m_viewer; }
    /// Fields in reading order.
    std::vector<TvTextCtrl*> GetFields() const;
    void Localize(const std::string& unitSystem);

private:
    void CreateControls(const Choices& diagramTypes, const Choices& media, const Choices& resins);
    wxSizer* CreateSelection(const Choices& diagramTypes, const Choices& media, const Choices& resins);
    wxSizer* CreateRange();
    wxSizer* CreateParameter();
    wxSizer* CreateExport();
    tvChoice* AddChoice(wxWindow* parent, wxSizer& grid, const wxString& label, const Choices& items,
                        ChartSelection selection);
    TvTextCtrl* AddRangeField(wxWindow* parent, wxSizer& grid, const wxString& label, double* value);
    template <typename Control>
    Control* AddLocalizable(Control* control);
    void LoadLogos();
    void FitInputs();
    void UpdateNames();
    void UseParameterPanel(ChartViewerParameterPanel& used);
    void Tell(ChartSelection selection);
    void OnWheelOverInputs(wxMouseEvent& event);
    void OnExport();
    void OnCopy();

    double m_start = 0.0;
    double m_end = 0.0;
    wxString m_rangeUnit;
    wxChartViewer* m_viewer = nullptr;
    wxScrolledWindow* m_inputs = nullptr;
    int m_wheelTurn = 0;
    tvChoice* m_diagramType = nullptr;
    tvChoice* m_medium = nullptr;
    tvChoice* m_resin = nullptr;
    TvTextCtrl* m_startField = nullptr;
    TvTextCtrl* m_endField = nullptr;
    wxStaticText* m_startUnit = nullptr;
    wxStaticText* m_endUnit = nullptr;
    ChartViewerNonWaterParameterPdPanel* m_temperatures = nullptr;
    ChartViewerWaterParameterPdPanel* m_viscosities = nullptr;
    ChartViewerParameterPanel* m_parameters = nullptr;  ///< the one of both that is shown
    std::shared_ptr<chartdir::DrawArea> m_tarnvikLogo;
    std::shared_ptr<chartdir::DrawArea> m_morvaneLogo;
    std::vector<std::pair<wxWindow*, wxString>> m_named;
    std::vector<std::shared_ptr<LocalizableControl>> m_localizables;
};
