#include "view/drive/reader.h"

#include <gio/gio.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>

namespace tidvane::tests {

namespace {

using Value = std::unique_ptr<GVariant, decltype(&g_variant_unref)>;

constexpr int kPatience = 5000;  // milliseconds for one answer
constexpr const char* kRegistry = "org.a11y.atspi.Registry";
constexpr const char* kRoot = "/org/a11y/atspi/accessible/root";

// Numbers of states and roles, as the accessibility bus counts them.
namespace state {
constexpr unsigned kChecked = 4;
constexpr unsigned kEnabled = 8;
constexpr unsigned kFocusable = 11;
constexpr unsigned kSensitive = 24;
constexpr unsigned kShowing = 25;
}  // namespace state
namespace role {
constexpr unsigned kTable = 55;
constexpr unsigned kTreeTable = 66;
}  // namespace role

GDBusConnection* connectTo(const char* address) {
    constexpr auto kFlags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GDBusConnection* made = g_dbus_connection_new_for_address_sync(address, kFlags, nullptr, nullptr, nullptr);
    if (made == nullptr) throw std::runtime_error(std::string("nobody answers at ") + address);
    g_dbus_connection_set_exit_on_close(made, FALSE);
    return made;
}

// Null for an error: what was there a moment ago may be gone.
Value call(GDBusConnection* bus, const char* name, const char* path, const char* interface, const char* method,
           GVariant* arguments) {
    return {g_dbus_connection_call_sync(bus, name, path, interface, method, arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
                                        kPatience, nullptr, nullptr),
            &g_variant_unref};
}

}  // namespace

// One object on the accessibility bus.
struct Reader::Object {
    GDBusConnection* bus = nullptr;
    std::string name;
    std::string path;

    [[nodiscard]] Value ask(const char* interface, const char* method, GVariant* arguments = nullptr) const {
        return call(bus, name.c_str(), path.c_str(), interface, method, arguments);
    }
    [[nodiscard]] std::string caption() const {
        const Value answer =
            ask("org.freedesktop.DBus.Properties", "Get", g_variant_new("(ss)", "org.a11y.atspi.Accessible", "Name"));
        if (answer == nullptr) return {};
        GVariant* boxed = nullptr;
        g_variant_get(answer.get(), "(v)", &boxed);
        const Value inner(boxed, &g_variant_unref);
        return g_variant_get_string(boxed, nullptr);
    }
    [[nodiscard]] bool is(unsigned state) const {
        const Value answer = ask("org.a11y.atspi.Accessible", "GetState");
        if (answer == nullptr) return false;
        const Value words(g_variant_get_child_value(answer.get(), 0), &g_variant_unref);
        guint32 word = 0;
        g_variant_get_child(words.get(), state / 32, "u", &word);
        return (word >> state % 32 & 1U) != 0;
    }
    [[nodiscard]] unsigned role() const {
        const Value answer = ask("org.a11y.atspi.Accessible", "GetRole");
        guint32 number = 0;
        if (answer != nullptr) g_variant_get(answer.get(), "(u)", &number);
        return number;
    }
    [[nodiscard]] std::vector<Object> children() const {
        std::vector<Object> all;
        const Value answer = ask("org.a11y.atspi.Accessible", "GetChildren");
        if (answer == nullptr) return all;
        const Value list(g_variant_get_child_value(answer.get(), 0), &g_variant_unref);
        for (gsize at = 0; at < g_variant_n_children(list.get()); ++at) {
            const char* owner = nullptr;
            const char* place = nullptr;
            g_variant_get_child(list.get(), at, "(&s&o)", &owner, &place);
            all.push_back({bus, owner, place});
        }
        return all;
    }
    [[nodiscard]] Place place() const {
        constexpr guint32 kOfTheScreen = 0;
        const Value answer = ask("org.a11y.atspi.Component", "GetExtents", g_variant_new("(u)", kOfTheScreen));
        Place found{0, 0, 0, 0};
        if (answer != nullptr) g_variant_get(answer.get(), "((iiii))", &found.x, &found.y, &found.width, &found.height);
        return found;
    }
};

Reader::Reader(int process) : process_(process) {
    const char* session = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    GDBusConnection* bus = connectTo(session == nullptr ? "" : session);
    const Value answer = call(bus, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", nullptr);
    g_object_unref(bus);
    if (answer == nullptr) throw std::runtime_error("there is no accessibility bus (at-spi2-core)");
    const char* address = nullptr;
    g_variant_get(answer.get(), "(&s)", &address);
    bus_ = connectTo(address);
}

Reader::~Reader() {
    g_object_unref(bus_);
}

// All that is seen of the program, windows first. A visit answers true to stop.
void Reader::walk(const std::function<bool(const Object&)>& visit) const {
    const std::function<bool(const Object&)> into = [&](const Object& object) {
        if (!object.is(state::kShowing)) return false;
        if (visit(object)) return true;
        // The rows of a list may be very many, and nobody asks for them.
        const unsigned role = object.role();
        if (role == role::kTable || role == role::kTreeTable) return false;
        for (const Object& child : object.children()) {
            if (into(child)) return true;
        }
        return false;
    };
    for (const Object& program : Object{bus_, kRegistry, kRoot}.children()) {
        const Value answer = call(bus_, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                  "GetConnectionUnixProcessID", g_variant_new("(s)", program.name.c_str()));
        guint32 process = 0;
        if (answer != nullptr) g_variant_get(answer.get(), "(u)", &process);
        if (static_cast<int>(process) != process_) continue;
        for (const Object& window : program.children()) {
            if (into(window)) return;
        }
    }
}

std::unique_ptr<Reader::Object> Reader::find(const std::string& name) const {
    std::unique_ptr<Object> found;
    walk([&](const Object& object) {
        if (!object.caption().starts_with(name) || !object.is(state::kFocusable)) return false;
        found = std::make_unique<Object>(object);
        return true;
    });
    return found;
}

Reader::Object Reader::waitFor(const std::string& name) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(15);
    do {
        if (const auto found = find(name)) return *found;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    } while (std::chrono::steady_clock::now() < end);
    std::string there;
    walk([&](const Object& object) {
        const std::string caption = object.caption();
        if (!caption.empty()) there += "\n  " + caption + (object.is(state::kFocusable) ? "" : " (takes no focus)");
        return false;
    });
    throw std::runtime_error("nothing is called " + name + "; there is:" + there);
}

void Reader::focus(const std::string& name) const {
    const Value answer = waitFor(name).ask("org.a11y.atspi.Component", "GrabFocus");
    gboolean done = FALSE;
    if (answer != nullptr) g_variant_get(answer.get(), "(b)", &done);
    if (done == FALSE) throw std::runtime_error(name + " takes no focus");
}

bool Reader::isTicked(const std::string& name) const {
    return waitFor(name).is(state::kChecked);
}

std::string Reader::textOf(const std::string& name) const {
    constexpr gint32 kToTheEnd = -1;
    const Value answer = waitFor(name).ask("org.a11y.atspi.Text", "GetText", g_variant_new("(ii)", 0, kToTheEnd));
    if (answer == nullptr) throw std::runtime_error(name + " holds no text");
    const char* text = nullptr;
    g_variant_get(answer.get(), "(&s)", &text);
    return text;
}

Reader::Place Reader::placeOf(const std::string& name) const {
    return waitFor(name).place();
}

Reader::Place Reader::columnTitle(int column) const {
    Place place{0, 0, 0, 0};
    walk([&](const Object& object) {
        const unsigned role = object.role();
        if (role != role::kTable && role != role::kTreeTable) return false;
        const Value answer = object.ask("org.a11y.atspi.Table", "GetColumnHeader", g_variant_new("(i)", column));
        if (answer == nullptr) return false;
        const char* owner = nullptr;
        const char* path = nullptr;
        g_variant_get(answer.get(), "((&s&o))", &owner, &path);
        place = Object{bus_, owner, path}.place();
        return place.width > 0;
    });
    if (place.width == 0) throw std::runtime_error("no list with titles is to be seen");
    return place;
}

bool Reader::has(const std::string& name) const {
    return find(name) != nullptr;
}

bool Reader::isEnabled(const std::string& name) const {
    const auto found = find(name);
    return found != nullptr && found->is(state::kEnabled) && found->is(state::kSensitive);
}

}  // namespace tidvane::tests
