#include "view/binding/cursor_row.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace tidvane::view {

#ifdef __WXGTK__
namespace {

void putCursor(GtkTreeView* tree, int row) {
    GtkTreePath* path = gtk_tree_path_new_from_indices(row, -1);
    gtk_tree_view_set_cursor(tree, path, nullptr, FALSE);
    gtk_tree_path_free(path);
}

}  // namespace
#endif

int cursorRow(const wxListBox& list) {
#ifdef __WXGTK__
    GtkTreePath* path = nullptr;
    gtk_tree_view_get_cursor(list.m_treeview, &path, nullptr);
    if (path == nullptr) return wxNOT_FOUND;
    const int row = gtk_tree_path_get_indices(path)[0];
    gtk_tree_path_free(path);
    return row;
#else
    (void)list;
    return wxNOT_FOUND;
#endif
}

void setCursorRow(wxListBox& list, int row) {
#ifdef __WXGTK__
    // The toolkit marks the row its cursor goes to, and no other.
    wxArrayInt marked;
    list.GetSelections(marked);
    putCursor(list.m_treeview, row);
    if (marked.Index(row) == wxNOT_FOUND) list.Deselect(row);
    for (const int other : marked) {
        if (!list.IsSelected(other)) list.SetSelection(other);
    }
#endif
    list.EnsureVisible(row);
}

void setCursorRow(wxDataViewCtrl& list, int row) {
#ifdef __WXGTK__
    putCursor(GTK_TREE_VIEW(list.GtkGetTreeView()), row);
#else
    (void)list;
    (void)row;
#endif
}

}  // namespace tidvane::view
