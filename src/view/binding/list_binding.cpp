#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include "view/binding/bindings.h"
#include "view/binding/cursor_row.h"
#include "view/text.h"

namespace tidvane::view {

#ifdef __WXGTK__
namespace {

// Asks the list's own handler ahead of the toolkit's, which would press the default button of the window besides.
gboolean hearEnter(GtkWidget*, GdkEvent* native, gpointer list) {
    if (native->type != GDK_KEY_PRESS) return GDK_EVENT_PROPAGATE;
    const guint key = native->key.keyval;
    const bool enter = key == GDK_KEY_Return || key == GDK_KEY_KP_Enter;
    if (!enter || (native->key.state & gtk_accelerator_get_default_mod_mask()) != 0) return GDK_EVENT_PROPAGATE;
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.m_keyCode = WXK_RETURN;
    return static_cast<wxListBox*>(list)->HandleWindowEvent(event) ? GDK_EVENT_STOP : GDK_EVENT_PROPAGATE;
}

}  // namespace
#endif

ListBinding::ListBinding(View& view, forms::ListBox& list, wxListBox* widget, bool several)
    : Binding(view),
      list_(list),
      widget_(widget),
      ticks_(dynamic_cast<wxCheckListBox*>(widget)),
      several_(several && ticks_ == nullptr) {
    widget->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) {
        push();
        followCursorSoon();
    });
    // It moves without a change of the marks too.
    widget->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        event.Skip();
        followCursorSoon();
    });
    widget->Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
        event.Skip();
        followCursorSoon();
    });
    widget->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) {
        push();
        view_.act([this] { list_.DblClick(); });
    });
    if (ticks_ != nullptr) {
        widget->Bind(wxEVT_CHECKLISTBOX, [this](wxCommandEvent& event) {
            if (view_.pulling()) return;
            const int row = event.GetInt();
            const bool ticked = ticks_->IsChecked(static_cast<unsigned>(row));
            // Tells of the tick by itself.
            view_.act([this, row, ticked] { list_.setSelected(row, ticked); });
        });
    }
    widget->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        wxArrayInt rows;
        const int row = widget_->GetSelections(rows) > 0 ? rows.front() : wxNOT_FOUND;
        const bool enter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
        if (row == wxNOT_FOUND || event.HasAnyModifiers() || view_.pulling()) return event.Skip();
        if (ticks_ != nullptr && event.GetKeyCode() == WXK_SPACE) {
            // Only the mouse ticks by itself.
            view_.act([this, row] {
                if (row < list_.ListCount()) list_.setSelected(row, !list_.Selected(row));
            });
        } else if (ticks_ == nullptr && enter) {
            // As a double click.
            push();
            view_.act([this] { list_.DblClick(); });
        } else {
            event.Skip();
        }
    });
#ifdef __WXGTK__
    g_signal_connect(gtk_bin_get_child(GTK_BIN(widget->GetHandle())), "event", G_CALLBACK(&hearEnter), widget);
#endif
}

void ListBinding::push() {
    if (view_.pulling()) return;
    view_.act([this] {
        const int count = std::min(list_.ListCount(), static_cast<int>(widget_->GetCount()));
        int current = wxNOT_FOUND;
        if (several_) {
            for (int row = 0; row < count; ++row) {
                const bool selected = widget_->IsSelected(row);
                if (selected && (current == wxNOT_FOUND || !list_.Selected(row))) current = row;
                if (list_.Selected(row) != selected) list_.setSelected(row, selected);
            }
        } else {
            current = widget_->GetSelection();
            if (ticks_ == nullptr) {
                for (int row = 0; row < count; ++row) {
                    if (list_.Selected(row) != (row == current)) list_.setSelected(row, row == current);
                }
            }
        }
        if (current != wxNOT_FOUND && current < list_.ListCount()) list_.setListIndex(current);
    });
}

// The toolkit moves its cursor behind the change of the marks.
void ListBinding::followCursorSoon() {
    if (!several_ || view_.pulling()) return;
    widget_->CallAfter([this, weak = weak_from_this()] {
        if (const auto live = weak.lock(); !live || view_.pulling()) return;
        const int row = cursorRow(*widget_);
        if (row == wxNOT_FOUND || row == list_.ListIndex() || row >= list_.ListCount()) return;
        shownIndex_ = row;
        view_.act([this, row] { list_.setListIndex(row); });
    });
}

void ListBinding::pull() {
    const int count = list_.ListCount();
    bool same = count == static_cast<int>(widget_->GetCount());
    for (int row = 0; same && row < count; ++row) {
        same = widget_->GetString(static_cast<unsigned>(row)) == toNative(list_.List(row));
    }
    if (!same) {
        wxArrayString rows;
        for (int row = 0; row < count; ++row) rows.Add(toNative(list_.List(row)));
        widget_->Set(rows);
    }
    for (int row = 0; row < count; ++row) {
        const bool selected = list_.Selected(row);
        if (ticks_ != nullptr) {
            if (ticks_->IsChecked(static_cast<unsigned>(row)) != selected) {
                ticks_->Check(static_cast<unsigned>(row), selected);
            }
        } else if (several_ && widget_->IsSelected(row) != selected) {
            if (selected) {
                widget_->SetSelection(row);
            } else {
                widget_->Deselect(row);
            }
        }
    }
    if (!several_ && widget_->GetSelection() != list_.ListIndex()) {
        widget_->SetSelection(list_.ListIndex());
        if (list_.ListIndex() >= 0) widget_->EnsureVisible(list_.ListIndex());
    }
    if (several_ && list_.ListIndex() != shownIndex_) {
        shownIndex_ = list_.ListIndex();
        if (shownIndex_ >= 0 && shownIndex_ < count) setCursorRow(*widget_, shownIndex_);
    }
    const double size = wxNORMAL_FONT->GetFractionalPointSize() * list_.FontSize.get() / 8.25;
    if (widget_->GetFont().GetFractionalPointSize() != size) {
        wxFont font = widget_->GetFont();
        font.SetFractionalPointSize(size);
        widget_->SetFont(font);
    }
}

}  // namespace tidvane::view
