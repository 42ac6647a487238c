// SPDX-License-Identifier: MIT
#pragma once

/// What a plant costs: prices of resins, equipment, chemicals and waters, what the product water comes to,
/// and the costs of the plant's life; in the currency that the user chose. Quantities follow the design.
///
/// The currency on display is a setting of the user; that of the project with its own rate is written by the
/// two buttons only. Amounts are converted when they are shown and typed, and kept in euro. GUI thread only.

#include "gui_base/input/combinations/auto_combobox_combination.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/ionexchange/costs/cost_form_panel.h"
#include "gui_base/network/currency_table.h"

#include <wx/stattext.h>

class IRXChemicalCostsPanel;
class wxChartViewer;

class GUI_BASE_EXPORT IRXCostsPanel : public CostFormPanel
{
public:
    /// `Create` follows.
    IRXCostsPanel();
    /// The project outlives the panel. With `isCalculated` the costs are calculated at once.
    IRXCostsPanel(iex::IEXProject* project, wxWindow* parent, int id = wxID_ANY,
                  const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                  long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL, bool isCalculated = true);
    ~IRXCostsPanel() override;
    void Create(iex::IEXProject* project, wxWindow* parent, int id = wxID_ANY,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                long style = wxTAB_TRAVERSAL | wxHSCROLL | wxVSCROLL, bool isCalculated = true);

    void TransferDetailsToWindow() override;
    void UpdateUnits(bool transferValues) override;
    void UpdateCurrencyDisplay() override;
    void Localize(const std::string& unitSystem) override;
    bool FocusDetail(const DetailAddress& address) override;

    /// Calculates a project that is ready for it, and shows the costs. The project counts as unchanged then;
    /// what its document has to save is the document's affair.
    void CalculateCost();

    /// The field of a detail, or null.
    TvTextCtrl* FindField(const std::string& key) const;
    const wxChartViewer& GetChart() const { return *m_chart; }

protected:
    void Prepare() override;
    void DoCreateForm() override;
    void DoSetResults() override;
    void DoTransferDetailsToWindows() override;
    void DoLocalize() override;
    void DoUpdateUnits() override;
    bool DoHasWhatIf() override;

private:
    using Rows = std::span<const FormRow>;
    void AddSection(const char* title, std::initializer_list<wxSizer*> boxes);
    wxSizer* MakeBox(const char* title, Rows rows);
    wxSizer* MakeResins();
    wxSizer* MakeCosts();
    wxSizer* MakeChart();
    /// Draws the years of the plant's life, where they or what they are shown by changed.
    void ShowChart();
    void ShowNote(wxStaticText& note, const wxString& text);
    void ShowResinNote();

    // The currencies.
    wxSizer* MakeCurrency();
    wxWindow* MakeListedRate(wxWindow* parent, wxSizer& grid);
    void MakeProjectRate(wxWindow* parent, wxSizer& grid);
    TvButton* NewButton(wxWindow* parent, const char* label, const char* tip,
                        void (IRXCostsPanel::*action)());
    /// Reads currencies, their rates, and which of them the user chose.
    void LoadCurrencies();
    void OnCurrencySelected();
    void OnUpdateRatesClick();
    void OnCopyRateClick();
    void OnSetRateClick();
    void OnConversionRateUpdate();
    void UpdateCurrencyLabels();
    /// Shows the rates of the chosen currency, and all money by them with `showsAmounts`.
    void UpdateCurrencyConversionInfo(bool showsAmounts);
    /// Writes the rate that the project brings with it.
    void SetProjectRate(double rate);
    std::string ChosenCode() const { return m_chosen.GetStdStringValue(); }
    double ListedRate() const;
    double ProjectRate() const;

    bool m_isCalculated = true;
    IRXChemicalCostsPanel* m_chemicals = nullptr;
    CostTable* m_resins = nullptr;
    wxChartViewer* m_chart = nullptr;
    /// What the chart was made of.
    std::vector<double> m_charted;
    wxString m_chartedTexts;
    wxStaticText* m_resinNote = nullptr;

    std::vector<currency_table::Currency> m_currencies;
    DetailData m_chosen;  ///< code of the currency that the user chose
    std::unique_ptr<tvAutoComboBoxCombination> m_choice;
    wxTextCtrl* m_listedRate = nullptr;
    wxTextCtrl* m_projectRate = nullptr;
    std::vector<wxStaticText*> m_codes;
    TvButton* m_copy = nullptr;
    TvButton* m_set = nullptr;
    wxStaticText* m_currencyNote = nullptr;
};
