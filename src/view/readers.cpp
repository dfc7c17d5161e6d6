// Names for screen readers.
#include <wx/window.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::view {

#ifdef __WXGTK__
namespace {

void setName(GtkWidget* widget, const wxString& name) {
    AtkObject* accessible = gtk_widget_get_accessible(widget);
    if (accessible == nullptr) return;
    const char* now = atk_object_get_name(accessible);
    if (now == nullptr || wxString::FromUTF8(now) != name) atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace
#endif

void nameForReaders(wxWindow* widget, const std::string& name) {
#ifdef __WXGTK__
    // The keyboard letter is no part of the name.
    const wxString plain = wxControl::RemoveMnemonics(toNative(name));
    GtkWidget* native = widget->GetHandle();
    if (native == nullptr) return;
    setName(native, plain);
    // What takes the focus is the list or the text inside its scroll bars, and the entry of a box with rows.
    if (GTK_IS_SCROLLED_WINDOW(native) || GTK_IS_COMBO_BOX(native)) {
        GtkWidget* inner = gtk_bin_get_child(GTK_BIN(native));
        if (GTK_IS_TREE_VIEW(inner) || GTK_IS_TEXT_VIEW(inner) || GTK_IS_ENTRY(inner)) setName(inner, plain);
    }
#else
    (void)widget;
    (void)name;
#endif
}

}  // namespace tidvane::view
