#include "view/display_fixture.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>

#include <chrono>
#include <cstdlib>

#include "e2e/screen.h"

// The last one: it gives everyday words a meaning of its own.
#include <X11/extensions/XI2.h>

namespace tidvane::tests {

namespace {

std::function<void()> idleWork;
std::vector<std::string> complaints;
int keys = 0;
int buttons = 0;

// All events of the screen pass here on their way to the toolkit, whichever loop fetches them.
GdkFilterReturn countEvent(GdkXEvent* native, GdkEvent*, gpointer) {
    const auto* event = static_cast<const XEvent*>(native);
    if (event->type == GenericEvent) {
        if (event->xcookie.evtype == XI_KeyPress) ++keys;
        if (event->xcookie.evtype == XI_ButtonRelease) ++buttons;
    }
    return GDK_FILTER_CONTINUE;
}

class TestApp final : public wxApp {
public:
    bool OnInit() override {
        SetExitOnFrameDelete(false);
        Bind(wxEVT_IDLE, [](wxIdleEvent& event) {
            event.Skip();
            if (idleWork) idleWork();
        });
        return true;
    }
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override {
        complaints.push_back(wxString::Format("%s:%d %s: %s %s", file, line, function, condition,
                                              message == nullptr ? wxString() : wxString(message))
                                 .utf8_string());
    }
};

GLogWriterOutput noteLog(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) == 0) return G_LOG_WRITER_HANDLED;
    const std::unique_ptr<gchar, decltype(&g_free)> text(g_log_writer_format_fields(level, fields, count, FALSE),
                                                         &g_free);
    // A widget that has less room for a moment, before it is laid out, than its scroll bar takes.
    if (std::string(text.get()).find("gtk_box_gadget_distribute") != std::string::npos) return G_LOG_WRITER_HANDLED;
    complaints.emplace_back(text.get());
    return G_LOG_WRITER_HANDLED;
}

}  // namespace

struct DisplayEnvironment::State {
    std::unique_ptr<Screen> screen;
    std::unique_ptr<wxGUIEventLoop> outer;
    std::unique_ptr<wxEventLoopActivator> active;
};

DisplayEnvironment::DisplayEnvironment() : state_(std::make_unique<State>()) {}
DisplayEnvironment::~DisplayEnvironment() = default;

void DisplayEnvironment::SetUp() {
    try {
        state_->screen = std::make_unique<Screen>();
    } catch (const std::exception& error) {
        FAIL() << "These tests need Xvfb and openbox, which ./test installs: " << error.what();
    }
    for (const std::string& variable : state_->screen->environment()) {
        const std::size_t equals = variable.find('=');
        ::setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
    }
    g_log_set_writer_func(&noteLog, nullptr, nullptr);
    wxApp::SetInstance(new TestApp);
    int argc = 1;
    char name[] = "test_view";
    char* argv[] = {name, nullptr};
    ASSERT_TRUE(wxEntryStart(argc, argv)) << "The toolkit does not start on " << state_->screen->name();
    ASSERT_TRUE(wxTheApp->CallOnInit());
    gdk_window_add_filter(nullptr, &countEvent, nullptr);
    state_->outer = std::make_unique<wxGUIEventLoop>();
    state_->active = std::make_unique<wxEventLoopActivator>(state_->outer.get());
}

void DisplayEnvironment::TearDown() {
    if (wxTheApp == nullptr) return;
    idleWork = {};
    letSettle();
    state_->active.reset();
    state_->outer.reset();
    wxTheApp->OnExit();
    wxEntryCleanup();
    state_->screen.reset();
}

namespace {

// A loop that a source of the library below ends, once. A timer of the toolkit would count as an event, and idle work
// follows events.
struct TimedLoop {
    wxGUIEventLoop loop;
    guint source = 0;
    int depth = g_main_depth() + 1;  // where the source is called if nothing that the loop runs waits for something
};

gboolean endLoop(gpointer data) {
    auto* timed = static_cast<TimedLoop*>(data);
    timed->source = 0;
    timed->loop.Exit();
    return G_SOURCE_REMOVE;
}

gboolean waitForQuiet(gpointer data);

gboolean endLoopWhenQuiet(gpointer data) {
    auto* timed = static_cast<TimedLoop*>(data);
    if (g_main_depth() <= timed->depth) return endLoop(data);
    // A handler lets events in, all of them: what is always there would keep it from going on.
    timed->source = g_timeout_add(1, &waitForQuiet, data);
    return G_SOURCE_REMOVE;
}

gboolean waitForQuiet(gpointer data) {
    static_cast<TimedLoop*>(data)->source = g_idle_add_full(G_PRIORITY_LOW, &endLoopWhenQuiet, data, nullptr);
    return G_SOURCE_REMOVE;
}

}  // namespace

void letRun(int milliseconds) {
    TimedLoop timed;
    timed.source = g_timeout_add(static_cast<guint>(milliseconds), &endLoop, &timed);
    timed.loop.Run();
    if (timed.source != 0) g_source_remove(timed.source);
}

void letSettle() {
    if (GdkDisplay* display = gdk_display_get_default()) gdk_display_sync(display);
    TimedLoop timed;
    waitForQuiet(&timed);
    timed.loop.Run();
    if (timed.source != 0) g_source_remove(timed.source);
}

void letDraw(wxWindow* window) {
    letSettle();
    GdkFrameClock* clock = gtk_widget_get_frame_clock(window->GetHandle());
    if (clock == nullptr) return;
    int frames = 0;
    const gulong heard =
        g_signal_connect_swapped(clock, "after-paint", G_CALLBACK(+[](int* count) { ++*count; }), &frames);
    // What one picture finds too small is laid out anew in the next one.
    for (int picture = 1; picture <= 2; ++picture) {
        gdk_frame_clock_request_phase(clock, GDK_FRAME_CLOCK_PHASE_AFTER_PAINT);
        letRunUntil([&] { return frames >= picture; });
    }
    g_signal_handler_disconnect(clock, heard);
    letSettle();
}

bool letRunUntil(const std::function<bool()>& condition, int atMostMilliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(atMostMilliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        letRun(4);
    }
    return true;
}

void whenIdle(std::function<void()> what) {
    idleWork = std::move(what);
}

std::string scaleName() {
    const char* scale = std::getenv("GDK_SCALE");
    return scale == nullptr ? "100%" : std::string(scale) + "00%";
}

int keysPressed() {
    return keys;
}

int buttonsReleased() {
    return buttons;
}

void bringToFront(wxWindow* window) {
    GtkWidget* native = window->GetHandle();
    if (gtk_widget_get_window(native) == nullptr) return;
    gtk_window_present_with_time(GTK_WINDOW(native), gdk_x11_get_server_time(gtk_widget_get_window(native)));
}

bool isActive(wxWindow* window) {
    return gtk_window_is_active(GTK_WINDOW(window->GetHandle())) != 0;
}

std::vector<std::string> takeComplaints() {
    return std::exchange(complaints, {});
}

}  // namespace tidvane::tests
