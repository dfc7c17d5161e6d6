#include "view/form_window.h"

#include <wx/accel.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/radiobut.h>
#include <wx/timer.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <algorithm>
#include <cctype>
#include <utility>

#include "view/icons.h"
#include "view/modal_dialog.h"
#include "view/painters/themed_button.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// Of the window manager's frame, which is what is moved. The toolkit's own answer is at times that of what lies inside.
wxPoint placeOf(const wxTopLevelWindow* native) {
#ifdef __WXGTK__
    if (GdkWindow* drawn = gtk_widget_get_window(native->GetHandle())) {
        GdkRectangle frame;
        gdk_window_get_frame_extents(drawn, &frame);
        return {frame.x, frame.y};
    }
#endif
    return native->GetPosition();
}

#ifdef __WXGTK__
// The toolkit takes a window that the program moves for moved at once, and keeps silent when the window manager has
// really moved it.
gboolean tellOfMove(GtkWidget*, GdkEvent*, gpointer native) {
    auto* window = static_cast<wxTopLevelWindow*>(native);
    wxMoveEvent event(placeOf(window), window->GetId());
    event.SetEventObject(window);
    window->HandleWindowEvent(event);
    return GDK_EVENT_PROPAGATE;
}
#endif

// Nothing but zeros is no place: a window that stands nowhere yet has that. The upper left corner of the screen is told
// with one twip, which is less than a pixel.
constexpr int kInTheCorner = 1;

bool hasPlace(const forms::Form& form) {
    return form.Left != 0 || form.Top != 0;
}

wxPoint placeInTwips(const wxTopLevelWindow* native) {
    const wxPoint place = placeOf(native);
    const wxPoint twips(toTwips(place.x, native), toTwips(place.y, native));
    return twips == wxPoint() && native->IsShown() ? wxPoint(0, kInTheCorner) : twips;
}

// Aside of the windows that people work in.
void moveToLowerRight(wxTopLevelWindow* native) {
    const wxRect room = wxDisplay().GetClientArea();
    const wxSize size = native->GetSize();
    const int edge = native->FromDIP(kEdge);
    native->Move(room.x + room.width - size.x - edge, room.y + room.height - size.y - edge);
}

}  // namespace

// The window itself: its title, its rectangle, its state.
class RectangleBinding final : public Binding {
public:
    RectangleBinding(View& view, FormWindow& window) : Binding(view), window_(window) {}
    void pull() override {
        wxTopLevelWindow* native = window_.native_;
        forms::Form& form = window_.form_;
        native->SetTitle(toNative(form.Caption.get()));
        // While the window is being noted the form is half of what it was and half of what it will be.
        if (!window_.finished_ || window_.noting_) return;
        const bool small = form.State == forms::WindowState::Minimized;
        if (native->IsIconized() != small) native->Iconize(small);
        if (small) return;
        const bool large = form.State == forms::WindowState::Maximized;
        if (native->IsMaximized() != large) native->Maximize(large);
        if (large) return;
        const wxPoint place(toPixels(form.Left, native), toPixels(form.Top, native));
        if (seen_ && (form.Left != left_ || form.Top != top_)) {
            from_ = placeOf(native);
            sent_ = from_ != place;
            native->Move(place);
            if (!hasPlace(form)) form.Top = kInTheCorner;
        }
        if (seen_ && window_.style_.keepsModelSize && (form.Width != width_ || form.Height != height_)) {
            native->SetClientSize(toPixels(form.Width, native), toPixels(form.Height, native));
        }
        remember();
    }
    // A window that was moved while the program only painted told nobody.
    void sample() override {
        if (!window_.isShown() || window_.rectangleIsNoted()) return;
        // Told once: a form that wants another size gets it from the window manager in a while.
        const wxRect now(placeOf(window_.native_), window_.native_->GetClientSize());
        if (now == sampled_) return;
        sampled_ = now;
        window_.noteRectangle();
    }
    // The window is still where it was when the program sent it elsewhere.
    [[nodiscard]] bool awaitsMove() {
        sent_ = sent_ && placeOf(window_.native_) == from_;
        return sent_;
    }
    // The form asks for another rectangle, and the window has not been told yet.
    [[nodiscard]] bool pending() const {
        const forms::Form& form = window_.form_;
        if (!seen_) return false;
        const bool size = window_.style_.keepsModelSize && (form.Width != width_ || form.Height != height_);
        return size || form.Left != left_ || form.Top != top_;
    }
    // What the form says now is what the window is.
    void remember() {
        const forms::Form& form = window_.form_;
        left_ = form.Left;
        top_ = form.Top;
        width_ = form.Width;
        height_ = form.Height;
        seen_ = true;
    }

private:
    FormWindow& window_;
    wxRect sampled_;
    wxPoint from_;
    bool sent_ = false;
    bool seen_ = false;
    int left_ = 0;
    int top_ = 0;
    int width_ = 0;
    int height_ = 0;
};

namespace {

class FunctionBinding final : public Binding {
public:
    FunctionBinding(View& view, std::function<void()> what) : Binding(view), what_(std::move(what)) {}
    void pull() override { what_(); }

private:
    std::function<void()> what_;
};

class TimerBinding final : public Binding {
public:
    TimerBinding(View& view, forms::Timer& timer) : Binding(view), timer_(timer) {
        clock_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { view_.act([this] { timer_.fire(); }); });
    }
    void pull() override {
        if (timer_.Enabled && !clock_.IsRunning()) clock_.Start(timer_.Interval);
        if (!timer_.Enabled && clock_.IsRunning()) clock_.Stop();
    }

private:
    forms::Timer& timer_;
    wxTimer clock_;
};

// Whether a caption says anything when it is read out: "..." and ">" do not.
bool isWord(const std::string& caption) {
    return std::any_of(caption.begin(), caption.end(), [](char sign) {
        const auto byte = static_cast<unsigned char>(sign);
        return byte >= 0x80 || std::isalnum(byte) != 0;
    });
}

// What the widgets of a window that is going away still hear must not reach the controls of a form that is gone.
void deafen(wxWindow* window) {
    window->SetEvtHandlerEnabled(false);
    for (wxWindow* child : window->GetChildren()) deafen(child);
}

// Timers below this poll the state of controls; from it on they wait for a moment to come.
constexpr int kPollingBelow = 1000;  // milliseconds

wxTopLevelWindow* makeNative(const forms::Form& form, const WindowStyle& style, wxWindow* owner) {
    const wxString title = toNative(form.Caption.get());
    if (style.bare) {
        return new wxFrame(owner, wxID_ANY, title, wxDefaultPosition, wxDefaultSize,
                           wxBORDER_NONE | wxFRAME_NO_TASKBAR | wxFRAME_SHAPED);
    }
    if (style.frame) return new wxFrame(owner, wxID_ANY, title);
    long look = wxDEFAULT_DIALOG_STYLE;
    if (style.resizable) look |= wxRESIZE_BORDER | wxMAXIMIZE_BOX;
    return new ModalDialog(owner, title, look);
}

}  // namespace

FormWindow::FormWindow(View& view, forms::Form& form, const WindowStyle& style, wxWindow* owner)
    : view_(view), form_(form), style_(style), native_(makeNative(form, style, owner)) {
    native_->SetName(form.Name);
    native_->SetIcons(programIcons());
    body_ = new wxPanel(native_);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(body_, 1, wxEXPAND);
    native_->SetSizer(sizer);
    native_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        event.Veto();
        if (onClose) view_.actSoon(alive_, onClose);
    });
}

FormWindow::~FormWindow() {
    destroy();
}

void FormWindow::destroy() {
    *alive_ = false;
    bindings_.clear();
    if (native_ == nullptr) return;
    wxTopLevelWindow* gone = std::exchange(native_, nullptr);
    if (auto* dialog = dynamic_cast<ModalDialog*>(gone); modal_ && dialog != nullptr) dialog->endSoon(wxID_CANCEL);
    deafen(gone);
    gone->Hide();
    view_.bury(gone);
}

void FormWindow::bind(forms::Control& control, const std::shared_ptr<Binding>& binding) {
    bindings_.push_back(binding);
    control.viewChanged.connect([weak = std::weak_ptr<Binding>(binding)] {
        if (const auto live = weak.lock()) live->touched();
    });
    view_.add(binding);
}

void FormWindow::whenever(const forms::Signal<>& changed, std::function<void()> what) {
    const auto binding = std::make_shared<FunctionBinding>(view_, std::move(what));
    bindings_.push_back(binding);
    const_cast<forms::Signal<>&>(changed).connect([weak = std::weak_ptr<Binding>(binding)] {
        if (const auto live = weak.lock()) live->touched();
    });
    view_.add(binding);
}

void FormWindow::whenever(forms::Control& control, std::function<void()> what) {
    whenever(control.viewChanged, std::move(what));
}

void FormWindow::bindTimer(forms::Timer& timer) {
    if (timer.Interval < kPollingBelow) {
        view_.addPoll(alive_, timer);
    } else {
        bind(timer, std::make_shared<TimerBinding>(view_, timer));
    }
}

// A widget that is switched off or goes must not keep the focus: no key would reach the window any more.
void FormWindow::leaveFocus(wxWindow* widget) {
    for (const wxWindow* at = wxWindow::FindFocus(); at != nullptr; at = at->GetParent()) {
        if (at != widget) continue;
        widget->Navigate();
        // Nothing else takes it now; perhaps something will once all has changed.
        focusSoon();
        return;
    }
}

wxWindow* FormWindow::adopt(forms::Control& control, wxWindow* widget, const forms::Control* label) {
    widgets_[&control] = widget;
    made_.emplace_back(&control, widget);
    widget->SetName(control.Index ? control.Name + "(" + std::to_string(*control.Index) + ")" : control.Name);
    whenever(control, [this, &control, widget, label] {
        if (!control.Enabled || !control.Visible) leaveFocus(widget);
        if (widget->IsThisEnabled() != control.Enabled.get()) widget->Enable(control.Enabled);
        if (widget->IsShown() != control.Visible.get()) {
            widget->Show(control.Visible);
            layoutSoon();
        }
        const wxString tip = toNative(control.ToolTipText.get());
        if (widget->GetToolTipText() != tip) {
            if (tip.empty()) {
                widget->UnsetToolTip();
            } else {
                widget->SetToolTip(tip);
            }
        }
        const std::string& caption =
            control.Caption.get().empty() && label != nullptr ? label->Caption.get() : control.Caption.get();
        const std::string& tipText = control.ToolTipText.get();
        const std::string& name = isWord(caption) || tipText.empty() ? caption : tipText;
        // Panes and books have none and name themselves.
        if (!name.empty()) nameForReaders(widget, name);
    });
    return widget;
}

void FormWindow::layoutSoon() {
    if (layoutPending_ || !finished_) return;
    layoutPending_ = true;
    view_.relayout([this, weak = std::weak_ptr<bool>(alive_)] {
        if (weak.expired() || native_ == nullptr) return;
        layoutPending_ = false;
        if (!style_.resizable && !style_.keepsModelSize) {
            const wxSize least = native_->GetSizer()->CalcMin();
            native_->SetMinClientSize(least);
            native_->SetClientSize(least);
        } else if (!native_->IsMaximized()) {
            // What has grown is not cut, and what has gone needs no room.
            wxSize least = native_->GetSizer()->CalcMin();
            least.IncTo({toPixels(style_.minWidth, native_), toPixels(style_.minHeight, native_)});
            least.DecTo(wxGetClientDisplayRect().GetSize());
            native_->SetMinClientSize(least);
            wxSize size = native_->GetClientSize();
            if (style_.keepsModelSize) size = {toPixels(form_.Width, native_), toPixels(form_.Height, native_)};
            size.IncTo(least);
            if (size != native_->GetClientSize()) native_->SetClientSize(size);
        }
        // A hidden page is laid out when it shows; all levels between have to place their children anew.
        for (const auto& [control, widget] : widgets_) {
            wxWindow* parent = widget->GetParent();
            if (parent != nullptr && parent != body_ && parent->GetSizer() != nullptr) parent->Layout();
        }
        body_->Layout();
        native_->Layout();
    });
}

wxWindow* FormWindow::widgetOf(const forms::Control& control) const {
    const auto found = widgets_.find(&control);
    return found == widgets_.end() ? nullptr : found->second;
}

void FormWindow::setFocus(const std::string& name) {
    const forms::Control* control = form_.control(name);
    if (wxWindow* widget = control == nullptr ? nullptr : widgetOf(*control)) widget->SetFocus();
}

void FormWindow::defaultButton(wxWindow* button) {
    if (auto* native = dynamic_cast<wxButton*>(button)) native->SetDefault();
    native_->SetDefaultItem(button);
    button->Refresh();
    if (std::exchange(hearsEnter_, true)) return;
    // Enter presses it from everywhere but where Enter has a meaning of its own.
    native_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const bool enter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
        wxWindow* usual = native_ == nullptr ? nullptr : native_->GetDefaultItem();
        wxWindow* focus = wxWindow::FindFocus();
        const bool simple = dynamic_cast<wxCheckBox*>(focus) != nullptr ||
                            dynamic_cast<wxRadioButton*>(focus) != nullptr ||
                            dynamic_cast<wxChoice*>(focus) != nullptr || focus == nullptr || focus == body_;
        if (!enter || event.HasAnyModifiers() || usual == nullptr || !simple || !usual->IsEnabled() ||
            !usual->IsShownOnScreen()) {
            event.Skip();
            return;
        }
        pressButton(*usual);
    });
}

void FormWindow::onEscape(std::function<void()> what) {
    native_->Bind(wxEVT_CHAR_HOOK, [this, what = std::move(what)](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers()) {
            view_.act(what);
        } else {
            event.Skip();
        }
    });
}

bool FormWindow::rectangleIsNoted() const {
    if (native_->IsIconized()) return form_.State == forms::WindowState::Minimized;
    if (native_->IsMaximized()) return form_.State == forms::WindowState::Maximized;
    const wxPoint place = placeInTwips(native_);
    const wxSize size = native_->GetClientSize();
    return form_.Left == place.x && form_.Top == place.y && form_.Width == toTwips(size.x, native_) &&
           form_.Height == toTwips(size.y, native_);
}

void FormWindow::noteRectangle() {
    if (!finished_ || native_ == nullptr || view_.pulling()) return;
    forms::Form& form = form_;
    // One that is to come up minimised is told of its size before the window manager has made it small.
    if (form.State == forms::WindowState::Minimized && !native_->IsIconized() && !wasIconized_) return;
    wasIconized_ = native_->IsIconized();
    view_.act([this, &form] {
        form.State = native_->IsIconized()    ? forms::WindowState::Minimized
                     : native_->IsMaximized() ? forms::WindowState::Maximized
                                              : forms::WindowState::Normal;
        if (form.State != forms::WindowState::Normal) return;
        // What the program asks for must not be lost; once the window has it, it tells.
        bool sent = false;
        for (const auto& binding : bindings_) {
            auto* rectangle = dynamic_cast<RectangleBinding*>(binding.get());
            if (rectangle == nullptr) continue;
            if (rectangle->pending()) return;
            sent = rectangle->awaitsMove();
        }
        const wxPoint place = placeInTwips(native_);
        // The size inside the window manager's frame: what is stored is what comes back.
        const wxSize size = native_->GetClientSize();
        noting_ = true;
        if (!sent) {
            form.Left = place.x;
            form.Top = place.y;
        }
        form.Width = toTwips(size.x, native_);
        form.Height = toTwips(size.y, native_);
        for (const auto& binding : bindings_) {
            if (auto* rectangle = dynamic_cast<RectangleBinding*>(binding.get())) rectangle->remember();
        }
        noting_ = false;
        if (onResize_) onResize_();
    });
}

// Check boxes and native buttons are the toolkit's business once their captions are marked; the program's own buttons
// are pressed here.
void FormWindow::chooseMnemonics() {
    std::vector<std::pair<const forms::Control*, wxWindow*>> pressed;
    for (const auto& [control, widget] : made_) {
        switch (control->kind) {
            case forms::ControlKind::CheckBox:
            case forms::ControlKind::OptionButton:
            case forms::ControlKind::CommandButton:
            case forms::ControlKind::ThemedButton:
                pressed.emplace_back(control, widget);
                break;
            default:
                break;
        }
    }
    auto* frame = dynamic_cast<wxFrame*>(native_);
    mnemonics_.choose(pressed, frame == nullptr ? nullptr : frame->GetMenuBar());
    for (const auto& binding : bindings_) binding->touched();
    view_.settle();
    native_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        wxWindow* widget = event.AltDown() && !event.ControlDown() ? mnemonics_.widgetOf(event.GetKeyCode()) : nullptr;
        auto* button = dynamic_cast<ThemedButton*>(widget);
        if (button == nullptr) {
            event.Skip();
            return;
        }
        button->SetFocus();
        pressButton(*button);
    });
}

void FormWindow::finish() {
    for (forms::Control* control : form_.Controls()) {
        if (auto* timer = dynamic_cast<forms::Timer*>(control)) bindTimer(*timer);
    }
    // Everything shows what it is before it is measured.
    view_.settle();
    chooseMnemonics();
    // Measured inside the frame of the window manager, whose size nobody knows before the window is shown.
    wxSize least = native_->GetSizer()->CalcMin();
    least.IncTo({toPixels(style_.minWidth, native_), toPixels(style_.minHeight, native_)});
    least.DecTo(wxGetClientDisplayRect().GetSize());
    native_->SetMinClientSize(least);
    wxSize size = least;
    if (style_.keepsModelSize) size.IncTo({toPixels(form_.Width, native_), toPixels(form_.Height, native_)});
    native_->SetClientSize(size);
    if (hasPlace(form_)) {
        const wxPoint place(toPixels(form_.Left, native_), toPixels(form_.Top, native_));
        // The toolkit takes a new window for one that stands in the corner, and does not move it there.
        if (place == wxPoint()) native_->Move(1, 1);
        native_->Move(place);
    } else if (style_.bare) {
        moveToLowerRight(native_);
    } else if (native_->GetParent() != nullptr) {
        native_->CentreOnParent();
    } else {
        native_->CentreOnScreen();
    }
    native_->Layout();
    finished_ = true;
    const auto rectangle = std::make_shared<RectangleBinding>(view_, *this);
    rectangle->remember();
    bindings_.push_back(rectangle);
    form_.viewChanged.connect([weak = std::weak_ptr<Binding>(rectangle)] {
        if (const auto live = weak.lock()) live->touched();
    });
    view_.add(rectangle);
    native_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        noteRectangle();
    });
    native_->Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        event.Skip();
        noteRectangle();
    });
#ifdef __WXGTK__
    g_signal_connect(native_->GetHandle(), "configure-event", G_CALLBACK(&tellOfMove), native_);
#endif
    native_->Bind(wxEVT_ICONIZE, [this](wxIconizeEvent& event) {
        event.Skip();
        noteRectangle();
    });
    // One that comes to the front again is as good as opened, where the toolkit remembers no focus of it.
    native_->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        if (event.GetActive() && isShown()) focusSoon();
    });
}

// A window that opens without a focus hears no key.
void FormWindow::focusSomething() {
    // The focus would open a minimised window.
    if (native_->IsIconized()) return;
    const wxWindow* focus = wxWindow::FindFocus();
    if (focus != nullptr && wxGetTopLevelParent(const_cast<wxWindow*>(focus)) == native_ && focus->IsShownOnScreen() &&
        focus->IsEnabled()) {
        return;
    }
    // Tabs where there is nothing else: a page of words alone would lose the keyboard to nobody with the next window.
    for (const bool tabs : {false, true}) {
        for (const auto& [control, widget] : made_) {
            const bool fits = (control->kind == forms::ControlKind::TabStrip) == tabs && widget->IsShownOnScreen() &&
                              widget->CanAcceptFocusFromKeyboard();
            if (!fits) continue;
            widget->SetFocus();
            return;
        }
    }
    // Words alone: Escape and Tab are heard all the same.
    body_->SetFocusIgnoringChildren();
}

// Once the window is seen: the toolkit would give the focus to the first widget of a page that nobody sees.
// Of several windows that come up together the last one has the keyboard.
void FormWindow::focusSoon() {
    view_.newest = this;
    native_->CallAfter([this, weak = std::weak_ptr<bool>(alive_)] {
        if (!weak.expired() && native_ != nullptr && view_.newest == this) focusSomething();
    });
}

void FormWindow::show(bool visible) {
    if (native_ == nullptr) return;
    if (!visible) {
        auto* dialog = dynamic_cast<ModalDialog*>(native_);
        if (modal_ && dialog != nullptr) dialog->endSoon(wxID_CANCEL);
    }
    if (visible && form_.State != forms::WindowState::Minimized) focusSoon();
    native_->Show(visible);
    if (visible) {
        if (form_.State == forms::WindowState::Minimized) return;
        if (native_->IsIconized()) native_->Restore();
        native_->Raise();
    }
}

void FormWindow::standAbove(FormWindow& owner) {
    if (native_ == nullptr || owner.native_ == nullptr) return;
#ifdef __WXGTK__
    gtk_window_set_transient_for(GTK_WINDOW(native_->GetHandle()), GTK_WINDOW(owner.native_->GetHandle()));
#endif
    if (!isShown()) return;
    native_->Raise();
    focusSoon();
}

void FormWindow::showModal() {
    auto* dialog = dynamic_cast<wxDialog*>(native_);
    if (dialog == nullptr || dialog->IsModal()) {
        show(true);
        return;
    }
    if (dialog->IsShown()) dialog->Hide();
    modal_ = true;
    view_.settle();
    focusSoon();
    // The form may be unloaded, and this window with it, while the loop runs.
    const std::weak_ptr<bool> alive = alive_;
    dialog->ShowModal();
    if (!alive.expired()) modal_ = false;
}

}  // namespace tidvane::view
