// SPDX-License-Identifier: MIT
#pragma once

/// What tests of windows share: a frame with a status bar under a running toolkit, real keys and clicks, and
/// dialogs that must be expected. A display is needed; without one the test program fails at its start.

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/string.h>
#include <wx/timer.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

class wxFileDialog;
class wxPanel;
class wxTextCtrl;

namespace gui_test {

/// Lets the toolkit work off what is pending.
void Pump();
/// Pumps until `done`, for at most two seconds; returns whether it came true.
bool PumpUntil(const std::function<bool()>& done);

void Type(const wxString& asciiText);
void Press(int key, int modifiers = 0);
void Focus(wxWindow& window);
void Click(wxWindow& window);
/// Focuses the field, replaces its text by typing and leaves it with Tab.
void Enter(wxTextCtrl& field, const wxString& asciiText);

/// The control of that type and accessible name within a window, as a screen reader finds it; the first one
/// of the type without a name, the `index`th where several fit. Throws when there is none.
template <typename Control>
Control& Find(wxWindow& window, const wxString& name = {}, int index = 0);

/// Chooses a file as the user would; false, with a failed test, when the dialog does not take it.
bool ChooseFile(wxFileDialog& dialog, const std::filesystem::path& path);

namespace detail {

/// A check box or a radio button is known by its label.
wxString AccessibleName(const wxWindow& window);

template <typename Control>
Control* FindBelow(wxWindow& window, const wxString& name, int& index)
{
    for (wxWindow* child : window.GetChildren()) {
        auto* control = dynamic_cast<Control*>(child);
        const bool fits = control != nullptr && (name.empty() || AccessibleName(*child) == name);
        if (fits && index-- == 0)
            return control;
        if (Control* found = FindBelow<Control>(*child, name, index))
            return found;
    }
    return nullptr;
}

}  // namespace detail

template <typename Control>
Control& Find(wxWindow& window, const wxString& name, int index)
{
    if (Control* found = detail::FindBelow<Control>(window, name, index))
        return *found;
    throw std::runtime_error("no control " + name.utf8_string());
}

/// The first control of that type that shows a label.
template <typename Control>
Control& Labelled(wxWindow& window, const wxString& label)
{
    for (int index = 0;; ++index) {
        auto& control = Find<Control>(window, {}, index);
        if (control.GetLabel() == label)
            return control;
    }
}

/// A number locale of the C library ("de_DE.UTF-8") for the life of the object. Fails the test when there is
/// none.
class LocaleGuard
{
public:
    explicit LocaleGuard(const std::string& name);
    ~LocaleGuard();

private:
    std::string m_previous;
};

/// Answers the modal dialogs that a test expects, in order; any other dialog fails the test and is closed.
class DialogAnswers : public wxModalDialogHook
{
public:
    using Answer = std::function<int(wxDialog&)>;

    DialogAnswers() { Register(); }
    ~DialogAnswers() override;
    void Expect(Answer answer) { m_answers.push_back(std::move(answer)); }

protected:
    int Enter(wxDialog* dialog) override;

private:
    std::deque<Answer> m_answers;
};

/// Presses the cancel button of the first progress window, as soon as it is there.
class CancelsProgress
{
public:
    CancelsProgress();
    /// How often it was pressed.
    int Count() const { return m_count; }

private:
    void Look();

    wxTimer m_timer;
    int m_count = 0;
};

/// A frame with a status bar of three fields, shown.
class GuiTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;
    /// A panel that fills the frame.
    wxPanel* MakePanel();

    wxFrame* m_frame = nullptr;
    DialogAnswers m_dialogs;
};

/// A catalogue in memory, in effect until the object goes.
class TestCatalogue
{
public:
    struct Language
    {
        wxString code;
    };
    /// For German.
    explicit TestCatalogue(std::vector<std::pair<std::string, std::string>> entries);
    /// Without texts.
    explicit TestCatalogue(const Language& language);
    TestCatalogue(const TestCatalogue&) = delete;
    ~TestCatalogue();

private:
    static void Use(std::vector<std::pair<std::string, std::string>> entries, const wxString& language);
};

}  // namespace gui_test
