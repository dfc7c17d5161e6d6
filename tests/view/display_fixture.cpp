#include "view/display_fixture.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/uiaction.h>

#include <chrono>
#include <cstdlib>

#include "e2e/screen.h"

namespace tidvane::tests {

namespace {

std::function<void()> idleWork;
std::vector<std::string> complaints;

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
    state_->outer = std::make_unique<wxGUIEventLoop>();
    state_->active = std::make_unique<wxEventLoopActivator>(state_->outer.get());
}

void DisplayEnvironment::TearDown() {
    if (wxTheApp == nullptr) return;
    idleWork = {};
    letRun(10);
    state_->active.reset();
    state_->outer.reset();
    wxTheApp->OnExit();
    wxEntryCleanup();
    state_->screen.reset();
}

void letRun(int milliseconds) {
    wxGUIEventLoop loop;
    // A timer of the library below: one of the toolkit's would count as an event, and idle work follows events.
    g_timeout_add(
        static_cast<guint>(milliseconds),
        [](gpointer data) -> gboolean {
            static_cast<wxGUIEventLoop*>(data)->Exit();
            return G_SOURCE_REMOVE;
        },
        &loop);
    loop.Run();
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

void pressKey(int key, int modifiers) {
    wxUIActionSimulator user;
    user.Char(key, modifiers);
}

void typeKey(int key, int modifiers) {
    pressKey(key, modifiers);
    letRun(15);
}

void typeText(const std::string& text) {
    wxUIActionSimulator user;
    for (const char letter : text) {
        user.Text(std::string(1, letter).c_str());
        letRun(10);
    }
}

void click(wxWindow* window, wxPoint at) {
    wxUIActionSimulator user;
    user.MouseMove(window->ClientToScreen(at));
    letRun(15);
    user.MouseClick();
    letRun(25);
}

void clickMiddle(wxWindow* window) {
    const wxSize size = window->GetClientSize();
    click(window, wxPoint(size.x / 2, size.y / 2));
}

void doubleClick(wxWindow* window, wxPoint at) {
    wxUIActionSimulator user;
    user.MouseMove(window->ClientToScreen(at));
    letRun(15);
    user.MouseDblClick();
    letRun(30);
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
