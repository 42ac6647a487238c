// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/collapsible_box.h"

#include "gui_base/input/controls/kept_boxes.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/collpane.h>
#include <wx/statbox.h>

namespace {

/// In DIP: what the frame of an empty box takes.
constexpr int kFrame = 8;

/// A box whose title is a window.
class TitledBox : public wxStaticBox
{
public:
    using wxStaticBox::wxStaticBox;

    void SetOwner(CollapsibleBox& owner) { m_owner = &owner; }
    CollapsibleBox& GetOwner() const { return *m_owner; }

private:
    CollapsibleBox* m_owner = nullptr;

#ifdef __WXGTK__
protected:
    // The toolkit takes every title for a text with an access key.
    bool GTKWidgetNeedsMnemonic() const override
    {
        return false;
    }
#endif
};

}  // namespace

struct CollapsibleBox::Parts
{
    explicit Parts(wxWindow* parent)
        : title(new wxButton(parent, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize,
                             wxBU_EXACTFIT | wxBORDER_NONE)),
          box(new TitledBox(parent, wxID_ANY, title))
    {}

    wxButton* title;
    TitledBox* box;
};

CollapsibleBox::CollapsibleBox(int orient, wxWindow* parent, const wxString& label)
    : CollapsibleBox(orient, Parts(parent), label)
{}

CollapsibleBox::CollapsibleBox(int orient, const Parts& parts, const wxString& label)
    : TvStaticBoxSizer(orient, parts.box), m_title(parts.title), m_source(label)
{
    parts.box->SetOwner(*this);
    ShowTitle();
    m_title->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        Collapse(!m_isCollapsed);
        kept_boxes::Keep(m_source, m_isCollapsed);
    });
}

void CollapsibleBox::TakeKeptState()
{
    if (kept_boxes::IsKept(m_source)) {
        m_isCollapsed = true;
        ShowItems();
        ShowTitle();
    }
}

void CollapsibleBox::Collapse(bool collapse)
{
    if (m_isCollapsed == collapse)
        return;
    m_isCollapsed = collapse;
    ShowItems();
    ShowTitle();
    wxCollapsiblePaneEvent event(GetStaticBox(), GetStaticBox()->GetId(), collapse);
    GetStaticBox()->HandleWindowEvent(event);
}

void CollapsibleBox::Open(wxWindow& box)
{
    if (const auto* titled = dynamic_cast<TitledBox*>(&box))
        titled->GetOwner().Collapse(false);
}

void CollapsibleBox::ShowItems()
{
    for (wxSizerItem* item : GetChildren())
        item->Show(!m_isCollapsed);
}

void CollapsibleBox::ShowTitle()
{
    const wxString title = i18n::Translated(m_source);
    m_title->SetLabel(wxString::FromUTF8(m_isCollapsed ? "▸ " : "▾ ") + wxControl::EscapeMnemonics(title));
    accessibility::SetName(*m_title, title);
    accessibility::SetName(*GetStaticBox(), title);
    m_title->InvalidateBestSize();
    m_title->SetSize(m_title->GetBestSize());
    // The toolkit draws the frame below the title, also of an empty box.
    SetMinSize(wxSize(-1, m_title->GetBestSize().y + GetStaticBox()->FromDIP(kFrame)));
}

void CollapsibleBox::Localize(const std::string&)
{
    ShowTitle();
}

int CollapsibleBox::GetTitleWidth() const
{
    return m_title->GetBestSize().x;
}
