#include "view/session_bus.h"

#include <cstdlib>
#include <stdexcept>

#include "view/display_fixture.h"

namespace tidvane::tests {

namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kDescription = R"xml(<node><interface name="org.kde.StatusNotifierWatcher">
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg name="service" type="s" direction="in"/></method>
<signal name="StatusNotifierHostUnregistered"/>
</interface></node>)xml";

GDBusConnection* connectTo(const std::string& address) {
    constexpr auto kFlags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GDBusConnection* made = g_dbus_connection_new_for_address_sync(address.c_str(), kFlags, nullptr, nullptr, nullptr);
    if (made == nullptr) throw std::runtime_error("nobody answers at " + address);
    g_dbus_connection_set_exit_on_close(made, FALSE);
    return made;
}

void onCall(GDBusConnection*, const char*, const char*, const char*, const char* method, GVariant* arguments,
            GDBusMethodInvocation* invocation, gpointer desktop) {
    const char* name = nullptr;
    g_variant_get(arguments, "(&s)", &name);
    if (std::string(method) == "RegisterStatusNotifierItem") static_cast<NotifierDesktop*>(desktop)->noteItem(name);
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* onProperty(GDBusConnection*, const char*, const char*, const char*, const char* name, GError**,
                     gpointer desktop) {
    if (std::string(name) == "ProtocolVersion") return g_variant_new_int32(0);
    return g_variant_new_boolean(static_cast<NotifierDesktop*>(desktop)->hasHost() ? TRUE : FALSE);
}

}  // namespace

SessionBus::SessionBus() {
    ProcessOptions options;
    options.environment = {"XDG_RUNTIME_DIR=" + runtime_.path(), "HOME=" + runtime_.path()};
    options.limit = std::chrono::hours(1);
    if (const char* display = std::getenv("DISPLAY")) options.environment.push_back(std::string("DISPLAY=") + display);
    daemon_ = std::make_unique<Process>(
        std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address",
                                 "--address=unix:path=" + (runtime_ / "bus")},
        options);
    if (!daemon_->waitForOutput("\n")) throw std::runtime_error("dbus-daemon does not start: " + daemon_->err());
    address_ = daemon_->out();
    address_.resize(address_.find('\n'));
    if (const char* before = std::getenv("DBUS_SESSION_BUS_ADDRESS")) before_ = before;
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1);
}

SessionBus::~SessionBus() {
    if (before_.empty()) {
        ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    } else {
        ::setenv("DBUS_SESSION_BUS_ADDRESS", before_.c_str(), 1);
    }
}

NotifierDesktop::NotifierDesktop(const SessionBus& bus, bool host)
    : host_(host), context_(g_main_context_new()), loop_(g_main_loop_new(context_, FALSE)) {
    thread_ = std::thread([this, address = bus.address()] { run(address); });
    while (!ready_) std::this_thread::yield();
}

NotifierDesktop::~NotifierDesktop() {
    g_main_loop_quit(loop_);
    thread_.join();
    g_main_loop_unref(loop_);
    g_main_context_unref(context_);
}

void NotifierDesktop::run(const std::string& address) {
    g_main_context_push_thread_default(context_);
    connection_ = connectTo(address);
    GDBusNodeInfo* description = g_dbus_node_info_new_for_xml(kDescription, nullptr);
    static const GDBusInterfaceVTable table{onCall, onProperty, nullptr, {}};
    g_dbus_connection_register_object(connection_, kWatcherPath, description->interfaces[0], &table, this, nullptr,
                                      nullptr);
    GVariant* owned = g_dbus_connection_call_sync(
        connection_, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", kWatcher, 0), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    if (owned != nullptr) g_variant_unref(owned);
    ready_ = true;
    g_main_loop_run(loop_);
    g_dbus_connection_close_sync(connection_, nullptr, nullptr);
    g_object_unref(connection_);
    g_dbus_node_info_unref(description);
    g_main_context_pop_thread_default(context_);
}

std::vector<std::string> NotifierDesktop::registered() const {
    const std::lock_guard lock(guard_);
    return items_;
}

void NotifierDesktop::noteItem(const std::string& name) {
    const std::lock_guard lock(guard_);
    items_.push_back(name);
}

void NotifierDesktop::loseHost() {
    host_ = false;
    g_dbus_connection_emit_signal(connection_, nullptr, kWatcherPath, kWatcher, "StatusNotifierHostUnregistered",
                                  nullptr, nullptr);
}

Panel::Panel(const SessionBus& bus) : connection_(connectTo(bus.address())) {
    watch_ = g_dbus_connection_signal_subscribe(
        connection_, nullptr, "com.canonical.dbusmenu", "LayoutUpdated", nullptr, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, const char*, const char*, GVariant*, gpointer self) {
            ++static_cast<Panel*>(self)->layoutUpdates_;
        },
        this, nullptr);
}

Panel::~Panel() {
    g_dbus_connection_signal_unsubscribe(connection_, watch_);
    g_dbus_connection_close_sync(connection_, nullptr, nullptr);
    g_object_unref(connection_);
}

Panel::Value Panel::call(const std::string& item, const char* path, const char* interface, const char* method,
                         GVariant* arguments) {
    struct Answer {
        bool there = false;
        GVariant* value = nullptr;
    } answer;
    g_dbus_connection_call(
        connection_, item.c_str(), path, interface, method, arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, 9000,
        nullptr,
        [](GObject* connection, GAsyncResult* result, gpointer data) {
            auto* got = static_cast<Answer*>(data);
            got->value = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr);
            got->there = true;
        },
        &answer);
    letRunUntil([&] { return answer.there; });
    return {answer.value, &g_variant_unref};
}

Panel::Value Panel::property(const std::string& item, const char* name) {
    const Value answer = call(item, "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", "org.kde.StatusNotifierItem", name));
    if (!answer) return {nullptr, &g_variant_unref};
    GVariant* inner = nullptr;
    g_variant_get(answer.get(), "(v)", &inner);
    return {inner, &g_variant_unref};
}

bool Panel::isOnTheBus(const std::string& item) {
    const Value answer = call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                              g_variant_new("(s)", item.c_str()));
    gboolean owned = FALSE;
    if (answer) g_variant_get(answer.get(), "(b)", &owned);
    return owned != FALSE;
}

}  // namespace tidvane::tests
