// SPDX-License-Identifier: MIT
#include "gui_base/support/density.h"

#include <wx/window.h>

#include <string>
#include <utility>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace density {
namespace {

#ifdef __WXGTK__

/// The frame that themes draw around the field with the keyboard is a thin line, hard to find among a
/// hundred. Mixed with the colour of the texts, which stands out from the background in every theme.
constexpr const char* kFocus = R"(
entry:focus { box-shadow: inset 0 0 0 2px mix(@theme_selected_bg_color, @theme_fg_color, 0.4); }
button:focus, combobox button:focus, check:focus, radio:focus {
    box-shadow: inset 0 0 0 2px mix(@theme_selected_bg_color, @theme_fg_color, 0.4); }
)";

/// Themes let controls fade from one state to the next. Each step of that lays the whole window out anew, as
/// a change of style may be one of size.
constexpr const char* kSteady = "* { transition: none; }";

/// Inner margins only: no text is ever smaller than its line.
constexpr const char* kCompact = R"(
entry { min-height: 20px; padding: 1px 4px; }
button { min-height: 18px; padding: 1px 5px; }
combobox button, combobox entry { min-height: 18px; padding: 1px 4px; }
combobox arrow { min-width: 12px; min-height: 12px; }
spinbutton, spinbutton entry { min-height: 20px; }
spinbutton button { padding: 0 3px; }
check, radio { min-height: 14px; min-width: 14px; }
checkbutton, radiobutton { padding: 0; }
toolbar button { padding: 3px; }
)";

/// A window and what it wants to be told, or neither.
struct SizesListener
{
    wxWindow* window = nullptr;
    std::function<void()> changed;
    bool isNoted = false;
};

SizesListener& OnSizes()
{
    static SizesListener listener;
    return listener;
}

gboolean TellSizes(GtkWidget*, GdkFrameClock*, gpointer)
{
    OnSizes().isNoted = false;
    // Once the frame that has begun is drawn.
    if (OnSizes().window != nullptr)
        OnSizes().window->CallAfter(OnSizes().changed);
    return G_SOURCE_REMOVE;
}

/// The toolkit takes new sizes over with its next frame, and measures by the old ones until then.
void NoteSizes()
{
    // Several changes before that are one.
    if (OnSizes().window != nullptr && !std::exchange(OnSizes().isNoted, true))
        gtk_widget_add_tick_callback(OnSizes().window->GetHandle(), TellSizes, nullptr, nullptr);
}

void NoteTextSize(GObject*, GParamSpec*, gpointer)
{
    NoteSizes();
}

GtkCssProvider* Provider()
{
    static GtkCssProvider* const provider = [] {
        GtkCssProvider* made = gtk_css_provider_new();
        // Commands have the same pictures in menus as on the toolbar.
        g_object_set(gtk_settings_get_default(), "gtk-menu-images", TRUE, nullptr);
        gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(made),
                                                  GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        return made;
    }();
    return provider;
}

#endif

}  // namespace

Density DensityOf(std::string_view code)
{
    return code == "comfortable" ? Density::Comfortable : Density::Compact;
}

void SetOnSizes([[maybe_unused]] wxWindow& window, [[maybe_unused]] std::function<void()> changed)
{
#ifdef __WXGTK__
    // A window that goes may do so after the next one has come.
    if (!changed && OnSizes().window != &window)
        return;
    OnSizes() = changed ? SizesListener{.window = &window, .changed = std::move(changed)} : SizesListener{};
    static const bool isConnected = [] {
        for (const char* signal : {"notify::gtk-xft-dpi", "notify::gtk-font-name"})
            g_signal_connect(gtk_settings_get_default(), signal, G_CALLBACK(NoteTextSize), nullptr);
        return true;
    }();
    static_cast<void>(isConnected);
#endif
}

void Set(Density density)
{
#ifdef __WXGTK__
    if (gdk_screen_get_default() == nullptr)
        return;
    const std::string style = std::string(kSteady) + kFocus + (density == Density::Compact ? kCompact : "");
    gtk_css_provider_load_from_data(Provider(), style.data(), static_cast<gssize>(style.size()), nullptr);
    NoteSizes();
#endif
}

}  // namespace density
