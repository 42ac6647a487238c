// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/auto_combobox_combination.h"
#include "gui_base/input/combinations/combo_combination.h"
#include "gui_base/input/controls/tv_listview_combopopup.h"
#include "gui_base/input/events.h"
#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/textctrl.h>

#include <memory>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;
using Heard = std::vector<std::pair<int, wxString>>;

class ListCombinationTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_sizer = new wxBoxSizer(wxVERTICAL);
        m_panel->SetSizer(m_sizer);
        m_panel->Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) {
            m_heard.emplace_back(event.GetId(), event.GetString());
        });
        m_panel->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { ++m_leaked; });
    }
    void Show(wxSizer* row)
    {
        m_sizer->Add(row);
        m_other = new wxTextCtrl(m_panel, wxID_ANY);
        m_sizer->Add(m_other);
        m_panel->Layout();
        Pump();
    }

    wxPanel* m_panel = nullptr;
    wxSizer* m_sizer = nullptr;
    wxTextCtrl* m_other = nullptr;
    Heard m_heard;
    int m_leaked = 0;
};

class AutoComboBoxCombinationTest : public ListCombinationTest
{
protected:
    void SetUp() override
    {
        ListCombinationTest::SetUp();
        m_detail.SetValue("de");
        m_row = std::make_unique<tvAutoComboBoxCombination>(
            m_panel, 720, "Value", ":",
            tvAutoComboBox::Entries{{"at", "Austria"}, {"de", "Germany"}, {"gr", "Greece"}}, &m_detail);
        Show(m_row->GetSizer());
    }
    wxString Shown() const { return m_row->GetComboBox()->GetValue(); }

    DetailData m_detail{"liquid/country", DetailType::String};
    std::unique_ptr<tvAutoComboBoxCombination> m_row;
};

TEST_F(AutoComboBoxCombinationTest, TypedSearchIsStoredWhenItIsDone)
{
    EXPECT_EQ(Shown(), "Germany");
    Focus(*m_row->GetComboBox());
    Press('A', wxMOD_CONTROL);
    Type("gre");
    EXPECT_EQ(Shown(), "Greece") << "proposed";
    EXPECT_EQ(m_detail.GetStringValue(), "de") << "not chosen yet";
    EXPECT_TRUE(m_heard.empty());
    Press(WXK_TAB);
    EXPECT_EQ(m_detail.GetStringValue(), "gr");
    EXPECT_EQ(m_heard, (Heard{{720, "gr"}}));

    Focus(*m_row->GetComboBox());
    Press('A', wxMOD_CONTROL);
    Type("au");
    Press(WXK_RETURN);
    EXPECT_EQ(m_heard, (Heard{{720, "gr"}, {720, "at"}}));
    Focus(*m_other);
    EXPECT_EQ(m_heard.size(), 2u) << "told once";
    EXPECT_EQ(m_leaked, 0);
}

TEST_F(AutoComboBoxCombinationTest, ForeignTextStoresNothing)
{
    Focus(*m_row->GetComboBox());
    Press('A', wxMOD_CONTROL);
    Type("zz");
    Press(WXK_TAB);
    EXPECT_EQ(Shown(), "Germany");
    EXPECT_EQ(m_detail.GetStringValue(), "de");
    EXPECT_TRUE(m_heard.empty());

    m_detail.SetValue("xx");
    m_row->TransferDetailToWindow();
    EXPECT_EQ(Shown(), "");
    Focus(*m_row->GetComboBox());
    Press(WXK_TAB);
    EXPECT_EQ(m_detail.GetStringValue(), "xx") << "passing through chooses nothing";
    EXPECT_TRUE(m_heard.empty());
}

TEST_F(AutoComboBoxCombinationTest, LanguageAndEntriesKeepTheChoice)
{
    {
        const TestCatalogue german(Entries{{"Value", "Land"}, {"Germany", "Deutschland"}});
        for (const char* system : {"iso", "us", "imperial"}) {
            m_row->UpdateUnit(system);
            EXPECT_EQ(m_row->GetLabel()->GetLabelText(), "Land:");
            EXPECT_EQ(Shown(), "Deutschland");
        }
    }
    m_row->SetEntries({{"de", "Bundesrepublik"}, {"ch", "Schweiz"}});
    EXPECT_EQ(Shown(), "Bundesrepublik");
    EXPECT_EQ(m_detail.GetStringValue(), "de");
    EXPECT_TRUE(m_heard.empty());
    tvAutoComboBox* box = m_row->GetComboBox();
    m_row.reset();
    box->SelectWithEvent(1);
    EXPECT_EQ(m_leaked, 1) << "the box is on its own";
    EXPECT_THROW(tvAutoComboBoxCombination(m_panel, 1, "", "", {}, nullptr), std::runtime_error);
}

class ComboCombinationTest : public ListCombinationTest
{
protected:
    /// Resins with their capacity (eq/l) and the flow they allow (m3/h).
    void Fill(ComboCombination& row)
    {
        row.AppendColumn("Name");
        row.AppendColumn("Flow", wxLIST_FORMAT_RIGHT);
        row.InsertUnit(1, "m3/h");
        row.InsertItem(-1, "Weak", "7");
        row.InsertItem(-1, "Strong", "9");
        row.InsertItem(0, "Mixed", "8");
        row.SetItem(0, 1, 1.0);
        row.SetItem(1, 1, 2.0);
        row.SetItem(2, 1, 1234.5);
    }
    static wxString Cells(const ComboCombination& row, int column)
    {
        wxString text;
        for (long i = 0; i < row.GetItemCount(); ++i)
            text += row.GetList()->GetItemText(i, column) + ";";
        return text;
    }
    static wxString Heading(const ComboCombination& row, int column)
    {
        wxListItem item;
        item.SetMask(wxLIST_MASK_TEXT);
        row.GetList()->GetColumn(column, item);
        return item.GetText();
    }
};

TEST_F(ComboCombinationTest, KeysChooseAndStore)
{
    DetailData number("resin", DetailType::Long);
    number.SetValue(9L);
    ComboCombination row(m_panel, 730, "Value", ":", &number, nullptr, wxSize(160, -1));
    Fill(row);
    row.SetToDetailValue();
    Show(row.GetSizer());
    EXPECT_EQ(row.GetSelection(), 2);
    EXPECT_EQ(row.GetCombo()->GetValue(), "Strong");

    Focus(*m_other);
    Press(WXK_TAB, wxMOD_SHIFT);
    ASSERT_TRUE(row.GetCombo()->HasFocus()) << "in the Tab order";
    Press(WXK_UP);
    EXPECT_FALSE(row.GetCombo()->IsPopupShown());
    EXPECT_EQ(number.GetLongValue(), 7);
    EXPECT_EQ(row.GetCombo()->GetValue(), "Weak");
    row.GetCombo()->Popup();
    ASSERT_TRUE(PumpUntil([&row] { return row.GetList()->IsShownOnScreen(); }));
    Press(WXK_UP);
    Press(WXK_RETURN);
    ASSERT_TRUE(PumpUntil([&row] { return !row.GetCombo()->IsPopupShown(); }));
    EXPECT_EQ(number.GetLongValue(), 8);
    EXPECT_EQ(m_heard, (Heard{{730, "7"}, {730, "8"}}));
    EXPECT_EQ(m_leaked, 0);

    number.SetValue(5L);
    row.TransferDetailToWindow();
    EXPECT_EQ(row.GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(row.GetCombo()->GetValue(), "");
    row.Select(1);
    row.InsertItem(0, "New");
    EXPECT_EQ(row.GetSelection(), 2);
    EXPECT_EQ(number.GetLongValue(), 5) << "shown, not stored";
    EXPECT_THROW(row.SetItem(9, 0, "x"), std::out_of_range);
    row.DeleteAllItems();
    EXPECT_EQ(row.GetCombo()->GetValue(), "");
}

TEST_F(ComboCombinationTest, UnitsAndLanguageOfTheColumns)
{
    DetailData key("resin", DetailType::String);
    key.SetValue("7");
    ComboCombination row(m_panel, 731, "Value", ":", &key);
    m_sizer->Add(row.GetSizer());
    Fill(row);
    row.SetToDetailValue();
    EXPECT_EQ(Heading(row, 1), wxString::FromUTF8("Flow [m³/h]"));
    EXPECT_EQ(Cells(row, 1), "1;2;1234.5;");

    row.UpdateUnit("us");
    EXPECT_EQ(Heading(row, 1), "Flow [gpm]");
    EXPECT_EQ(Cells(row, 1).BeforeFirst(';'), "4.4029");
    const int before = row.GetList()->GetColumnWidth(1);
    row.GetList()->SetColumnWidth(1, 3);
    row.AdjustColumnsWidth();
    EXPECT_GT(row.GetList()->GetColumnWidth(1), 3);
    EXPECT_GT(before, 0);

    const TestCatalogue german(Entries{{"Flow", "Durchfluss"}, {"Weak", "Schwach"}});
    row.UpdateUnit("iso");
    EXPECT_EQ(Heading(row, 1), wxString::FromUTF8("Durchfluss [m³/h]"));
    EXPECT_EQ(Cells(row, 0), "Mixed;Schwach;Strong;");
    EXPECT_EQ(row.GetCombo()->GetValue(), "Schwach");
    EXPECT_EQ(row.InsertColumn(0, "First"), 0);
    EXPECT_EQ(Heading(row, 2), wxString::FromUTF8("Durchfluss [m³/h]"));
    EXPECT_EQ(Cells(row, 0), ";;;");
    EXPECT_EQ(key.GetStringValue(), "7");
}

}  // namespace
