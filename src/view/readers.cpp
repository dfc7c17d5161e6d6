// Names for screen readers.
#include <wx/window.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::view {

void nameForReaders(wxWindow* widget, const std::string& name) {
#ifdef __WXGTK__
    // The keyboard letter is no part of the name.
    const wxString plain = wxControl::RemoveMnemonics(toNative(name));
    GtkWidget* native = widget->GetHandle();
    if (native == nullptr) return;
    if (AtkObject* accessible = gtk_widget_get_accessible(native)) {
        atk_object_set_name(accessible, plain.utf8_str());
    }
#else
    (void)widget;
    (void)name;
#endif
}

}  // namespace tidvane::view
