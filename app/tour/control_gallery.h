// SPDX-License-Identifier: MIT
#pragma once

/// The controls of the library as the tour shows them: each in every state that it can have.

#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace app {

enum class SpecimenState : unsigned
{
    Normal = 1,
    ReadOnly = 2,
    Below = 4,
    Above = 8,
    Disabled = 16,
    Focused = 32
};

/// One control in one state, and what it is bound to.
class Specimen
{
public:
    Specimen(wxWindow* parent, wxSizer& sizer, SpecimenState state)
        : m_parent(parent), m_sizer(sizer), m_state(state)
    {}
    Specimen(const Specimen&) = delete;

    wxWindow* GetParent() const { return m_parent; }
    wxSizer& GetSizer() { return m_sizer; }
    SpecimenState GetState() const { return m_state; }

    /// A number with the limits 1 and 10, outside them where the state says so.
    DetailData* NewNumber(const std::string& name = "number", const std::string& unit = {});
    DetailData* NewText(const std::string& name, const std::string& value);
    DetailData* NewDetail(const std::string& name, DetailType type);
    /// Adds a control to the row; the first one added gets the focus in the picture of that state.
    template <typename Control>
    Control* Add(Control* control)
    {
        m_sizer.Add(control, wxSizerFlags().CenterVertical().Border(wxRIGHT, 4));
        SetFocusWindow(control);
        return control;
    }
    void SetFocusWindow(wxWindow* window)
    {
        if (m_focus == nullptr)
            m_focus = window;
    }
    wxWindow* GetFocusWindow() const { return m_focus; }
    template <typename Combination>
    Combination* Keep(std::unique_ptr<Combination> combination)
    {
        Combination* kept = combination.get();
        m_combinations.push_back(std::move(combination));
        return kept;
    }

private:
    wxWindow* m_parent;
    wxSizer& m_sizer;
    SpecimenState m_state;
    wxWindow* m_focus = nullptr;
    std::deque<DetailData> m_details;
    std::vector<std::unique_ptr<DetailContainerWindow>> m_combinations;
};

struct Exhibit
{
    const char* name;  ///< part of the picture's file name
    unsigned states;   ///< bits of SpecimenState
    void (*build)(Specimen& specimen);
};

const std::vector<Exhibit>& ControlExhibits();

/// Caption of a state in the gallery.
const char* StateCaption(SpecimenState state);

}  // namespace app
