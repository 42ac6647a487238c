// SPDX-License-Identifier: MIT
#pragma once

/// The foot of the window: one line that counts what is wrong and tells the newest message, and below it,
/// when it is open, the list of all. It opens by itself when something new is told, and closes when all that
/// opened it is settled.

#include "app/frame/message_area.h"

#include <wx/panel.h>

#include <functional>

class wxButton;
class wxStaticBitmap;
class wxStaticText;

namespace app {

class MessageStrip : public wxPanel
{
public:
    explicit MessageStrip(wxWindow* parent);

    MessageArea& GetList() { return *m_list; }
    /// Called when the strip has become higher or lower.
    void SetOnToggled(std::function<void()> onToggled) { m_onToggled = std::move(onToggled); }
    bool IsExpanded() const { return m_isExpanded; }
    /// The user's own choice: stays until the next one, or something new is told.
    void Toggle();
    void Localize();

    /// In pixels: of the line alone, of the open strip, and of the strip as it is.
    int GetStripHeight() const;
    int GetExpandedHeight() const { return m_expandedHeight; }
    void SetExpandedHeight(int height);
    int GetHeight() const { return m_isExpanded ? m_expandedHeight : GetStripHeight(); }
    /// The user has dragged the upper edge.
    void SetHeight(int height);

private:
    void Expand(bool expand);
    void OnMessagesChanged(bool isNew);
    void ShowCount();

    wxButton* m_count = nullptr;
    wxStaticBitmap* m_symbol = nullptr;
    wxStaticText* m_newest = nullptr;
    MessageArea* m_list = nullptr;
    std::function<void()> m_onToggled;
    int m_expandedHeight;
    bool m_isExpanded = false;
    bool m_openedItself = false;
};

}  // namespace app
