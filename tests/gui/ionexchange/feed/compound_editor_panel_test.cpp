// SPDX-License-Identifier: MIT
// The compound editor as its user drives it.
#include "gui_base/ionexchange/feed/compound_editor_panel.h"

#include "gui_base/ionexchange/feed/compound_editor_dialog.h"
#include "gui_base/ionexchange/feed/compound_element_listctrl.h"
#include "gui_base/ionexchange/feed/formula_textctrl.h"
#include "tests/support/gui_test.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/clipbrd.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <cmath>

namespace {

using namespace gui_test;

class CompoundEditorTest : public GuiTest
{
protected:
    void TearDown() override
    {
        m_dialog.reset();
        GuiTest::TearDown();
    }
    CompoundEditorDialog& Open(const Compound& compound = {})
    {
        m_dialog = std::make_unique<CompoundEditorDialog>(compound, m_frame, wxID_ANY, "Compound editor",
                                                          wxPoint(10, 10));
        m_dialog->Show();
        Pump();
        return *m_dialog;
    }
    template <typename Control>
    Control& Find(const wxString& name, int index = 0)
    {
        return gui_test::Find<Control>(m_dialog->GetPanel(), name, index);
    }
    wxTextCtrl& Field(const wxString& name) { return Find<wxTextCtrl>(name); }
    std::string Text(const wxString& name) { return Field(name).GetValue().utf8_string(); }
    void Choose(const wxString& name, int entry)
    {
        auto& choice = Find<wxChoice>(name);
        choice.SetSelection(entry);
        wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
        event.SetEventObject(&choice);
        choice.ProcessWindowEvent(event);
        Pump();
    }
    void ExpectBox(const wxString& title, const wxString& message, int answer)
    {
        m_dialogs.Expect([=](wxDialog& dialog) {
            const auto* box = dynamic_cast<wxMessageDialog*>(&dialog);
            EXPECT_TRUE(box != nullptr && box->GetCaption() == title && box->GetMessage() == message)
                << dialog.GetTitle().utf8_string();
            return answer;
        });
    }
    wxString Column(long row, int column)
    {
        return Find<CompoundElementListCtrl>("Elements").GetItemText(row, column);
    }
    static Compound Phosphoric()
    {
        return Compound({.id = 42,
                         .baseElement = "P",
                         .name = "phosphoric acid",
                         .formula = "H3PO4",
                         .pKa = 2.15,
                         .valency = 3,
                         .oxidationNrCommon = 5,
                         .conjugate = 2,
                         .ionicCharge = 0,
                         .category = "Acid"});
    }

    std::unique_ptr<CompoundEditorDialog> m_dialog;
};

TEST_F(CompoundEditorTest, ShowsACompoundWithAllThatFollows)
{
    Open(Phosphoric());
    const std::pair<const char*, const char*> texts[] = {{"Name", "phosphoric acid"},
                                                         {"Category", "Acid"},
                                                         {"Formula", "H3PO4"},
                                                         {"Valency", "3"},
                                                         {"pKa", "2.15"},
                                                         {"Oxidation number", "5"},
                                                         {"Molweight [g/mol]", "97.994"},
                                                         {"Ka", "7.079e-03"},
                                                         {"pKb", "11.85"},
                                                         {"Kb", "1.413e-12"},
                                                         {"Molweight fraction base element [%]", "31.61"},
                                                         {"Ionic charge", "0"}};
    for (const auto& [name, text] : texts)
        EXPECT_EQ(Text(name), text) << name;
    for (const char* name : {"Molweight [g/mol]", "Ka", "pKb", "Kb", "Molweight fraction base element [%]"})
        EXPECT_FALSE(Field(name).IsEditable()) << name;
    EXPECT_EQ(Find<wxChoice>("Acid/Base").GetStringSelection(), "Weak acid");
    EXPECT_EQ(Find<wxChoice>("E-1 Oxidation numbers").GetStringSelection(), "+5");

    const auto& list = Find<CompoundElementListCtrl>("Elements");
    ASSERT_EQ(list.GetItemCount(), 3);
    EXPECT_EQ(list.GetColumnCount(), 13);
    const char* const phosphorus[] = {"P",  "phosphorus", "1", "30.974", "nonmetal", "15", "[Ne] 3s2 3p3",
                                      "15", "VA",         "3", "solid",  "-3 +3 +5", "5"};
    for (int column = 0; column < 13; ++column)
        EXPECT_EQ(Column(1, column).utf8_string(), phosphorus[column]) << column;
    EXPECT_EQ(Column(2, CompoundElementListCtrl::Count), "4");
    EXPECT_EQ(Column(0, CompoundElementListCtrl::OxidationNumber), "");
    EXPECT_TRUE(m_dialog->GetPanel().GetData().compound == Phosphoric()) << "showing changes nothing";
}

TEST_F(CompoundEditorTest, FollowsEveryEdit)
{
    Open();
    Focus(Field("Formula"));
    Type("Na2SO4");
    Pump();
    EXPECT_EQ(Text("Molweight [g/mol]"), "142.036");
    EXPECT_EQ(Text("Molweight fraction base element [%]"), "32.37");
    EXPECT_EQ(Find<CompoundElementListCtrl>("Elements").GetItemCount(), 3);
    Enter(Field("pKa"), "9.25");
    Pump();
    EXPECT_EQ(Text("pKb"), "4.75");
    Enter(Field("Ionic charge"), "2");
    Choose("Ionic charge", 1);
    Choose("Acid/Base", 4);
    EXPECT_EQ(m_dialog->GetPanel().GetData().compound.GetIonicCharge(), -2);
    EXPECT_EQ(m_dialog->GetPanel().GetData().compound.acidBase, AcidBase::WeakBase);

    // Sulfur becomes the base element, and one of its oxidation numbers is chosen.
    wxListEvent activated(wxEVT_LIST_ITEM_ACTIVATED);
    activated.m_itemIndex = 1;
    Find<CompoundElementListCtrl>("Elements").ProcessWindowEvent(activated);
    Pump();
    EXPECT_EQ(Text("Molweight fraction base element [%]"), "22.57");
    ASSERT_EQ(Find<wxChoice>("E-1 Oxidation numbers").GetCount(), 3U);
    Choose("E-1 Oxidation numbers", 2);
    EXPECT_EQ(Text("Oxidation number"), "6");
    EXPECT_EQ(Column(1, CompoundElementListCtrl::OxidationNumber), "6");

    Focus(Field("pKa"));
    Type("\b\b\b\b");
    Press('A', wxMOD_CONTROL);
    Press(WXK_DELETE);
    Press(WXK_TAB);
    Pump();
    EXPECT_EQ(Text("Ka"), "");
    EXPECT_TRUE(std::isnan(m_dialog->GetPanel().GetData().compound.pKa));
}

TEST_F(CompoundEditorTest, ColoursWhatCannotBeRead)
{
    Open();
    auto& field = Find<FormulaTextCtrl>("Formula");
    const auto colours = [&field](long position) {
        wxTextAttr style;
        field.GetStyle(position, style);
        return style.GetBackgroundColour();
    };
    Focus(field);
    Type("NaXy2O");
    Pump();
    EXPECT_EQ(colours(2), FormulaTextCtrl::FaultColour());
    EXPECT_EQ(colours(3), FormulaTextCtrl::FaultColour());
    EXPECT_NE(colours(0), FormulaTextCtrl::FaultColour());
    EXPECT_NE(colours(5), FormulaTextCtrl::FaultColour());
    EXPECT_EQ(Text("Molweight [g/mol]"), "");
    EXPECT_EQ(Find<wxStaticText>("staticText", 3).GetLabelText(), "\"Xy\" is no element");

    field.SetValue(wxString::FromUTF8("CuSO4·5H2O0"));  // two bytes, one character
    Pump();
    EXPECT_EQ(colours(10), FormulaTextCtrl::FaultColour());
    EXPECT_NE(colours(9), FormulaTextCtrl::FaultColour());
    field.SetValue("H99999999999");
    Pump();
    EXPECT_EQ(Find<CompoundElementListCtrl>("Elements").GetItemCount(), 0);
    field.SetValue(wxString::FromUTF8("CuSO4·5H2O"));
    Pump();
    EXPECT_NE(colours(2), FormulaTextCtrl::FaultColour());
    EXPECT_EQ(Text("Molweight [g/mol]"), "249.677");
}

TEST_F(CompoundEditorTest, KeepsTheFormulaOneLine)
{
    Open();
    auto& field = Find<FormulaTextCtrl>("Formula");
    Focus(field);
    Type("H2");
    Press(WXK_RETURN);
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->SetData(new wxTextDataObject(" O2\r\n"));
    wxTheClipboard->Close();
    Press('V', wxMOD_CONTROL);
    EXPECT_TRUE(PumpUntil([&field] { return field.GetValue() == "H2O2"; })) << field.GetValue().utf8_string();
    Press(WXK_TAB);
    Pump();
    EXPECT_TRUE(Field("Valency").HasFocus());
    Press(WXK_TAB, wxMOD_SHIFT);
    Pump();
    EXPECT_TRUE(field.HasFocus());
}

TEST_F(CompoundEditorTest, SavesOnlyWithNameAndFormula)
{
    CompoundEditorDialog& dialog = Open();
    auto& save = *dynamic_cast<wxButton*>(dialog.FindWindow(wxID_SAVE));
    ExpectBox("Error", "Please enter a name", wxID_OK);
    Click(save);
    Pump();
    Enter(Field("Name"), "salt");
    ExpectBox("Error", "Please enter a formula", wxID_OK);
    Focus(Field("Valency"));
    Press('S', wxMOD_CONTROL);
    Pump();
    EXPECT_TRUE(dialog.IsShown());
    Find<FormulaTextCtrl>("Formula").SetValue("NaCl");
    // What is being typed counts.
    Focus(Field("Valency"));
    Press('A', wxMOD_CONTROL);
    Type("1");
    Press('S', wxMOD_CONTROL);
    Pump();
    EXPECT_FALSE(dialog.IsShown());
    EXPECT_EQ(dialog.GetReturnCode(), wxID_OK);
    EXPECT_EQ(dialog.GetCompound().name, "salt");
    EXPECT_EQ(dialog.GetCompound().valency, 1);
    EXPECT_EQ(dialog.GetCompound().ToRecord().baseElement, "Na");
    EXPECT_EQ(dialog.GetCompound().id, -1);
}

TEST_F(CompoundEditorTest, AsksBeforeItForgetsChanges)
{
    // Also records that no field would have made like that.
    Compound odd = Phosphoric();
    odd.name = " acid ";
    odd.category = "Acid\n";
    odd.valency = -2147483647 - 1;
    odd.SetFormula("H3 PO4");
    for (const Compound& compound : {Phosphoric(), Compound(), odd}) {
        CompoundEditorDialog& dialog = Open(compound);
        dialog.Close();
        Pump();
        EXPECT_FALSE(dialog.IsShown()) << "nothing was changed";
    }

    CompoundEditorDialog& changed = Open(Phosphoric());
    Enter(Field("Name"), "other");
    ExpectBox("Close editor", "There are unsaved changes. Do you really want to close?", wxID_NO);
    Press(WXK_ESCAPE);
    Pump();
    EXPECT_TRUE(changed.IsShown());
    ExpectBox("Close editor", "There are unsaved changes. Do you really want to close?", wxID_YES);
    changed.Close();
    Pump();
    EXPECT_FALSE(changed.IsShown());
    EXPECT_EQ(changed.GetReturnCode(), wxID_CANCEL);
    EXPECT_TRUE(changed.GetCompound() == Phosphoric());
}

TEST_F(CompoundEditorTest, ClearsAllButTheIdentifier)
{
    CompoundEditorDialog& dialog = Open(Phosphoric());
    auto& clear = *dynamic_cast<wxButton*>(dialog.FindWindow(wxID_CLEAR));
    EXPECT_TRUE(clear.IsEnabled());
    Click(clear);
    Pump();
    EXPECT_EQ(Text("Name") + Text("Formula") + Text("pKa") + Text("Molweight [g/mol]"), "");
    EXPECT_EQ(dialog.GetPanel().GetData().compound.id, 42);
    EXPECT_FALSE(clear.IsEnabled());
}

TEST_F(CompoundEditorTest, ReadsAndShowsNumbersInTheLocale)
{
    const LocaleGuard locale("de_DE.UTF-8");
    Open(Phosphoric());
    EXPECT_EQ(Text("pKa"), "2,15");
    EXPECT_EQ(Text("Molweight [g/mol]"), "97,994");
    Enter(Field("pKa"), "4,756");
    Pump();
    EXPECT_EQ(m_dialog->GetPanel().GetData().compound.pKa, 4.756);
}

}  // namespace
