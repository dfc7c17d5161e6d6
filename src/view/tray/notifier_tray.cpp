// The tray icon as an item on the session bus: the desktop's host draws it and its menu.
#include <wx/event.h>

#ifdef __WXGTK__

#include <gio/gio.h>
#include <unistd.h>
#include <wx/image.h>

#include <array>
#include <cstdlib>
#include <utility>

#include "view/icons.h"
#include "view/text.h"
#include "view/tray/bus_menu.h"
#include "view/tray/kinds.h"

namespace tidvane::view {

namespace {

constexpr const char* kItemPath = "/StatusNotifierItem";
constexpr const char* kItemInterface = "org.kde.StatusNotifierItem";
constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";
constexpr int kAnswerWithin = 1000;  // milliseconds; whoever takes longer has no tray

constexpr const char* kDescription = R"xml(<node><interface name="org.kde.StatusNotifierItem">
<property name="Category" type="s" access="read"/>
<property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="WindowId" type="i" access="read"/>
<property name="IconName" type="s" access="read"/>
<property name="IconThemePath" type="s" access="read"/>
<property name="IconPixmap" type="a(iiay)" access="read"/>
<property name="OverlayIconName" type="s" access="read"/>
<property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
<property name="AttentionIconName" type="s" access="read"/>
<property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
<property name="AttentionMovieName" type="s" access="read"/>
<property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
<property name="ItemIsMenu" type="b" access="read"/>
<property name="Menu" type="o" access="read"/>
<method name="ContextMenu"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="SecondaryActivate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="Scroll">
 <arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/>
</method>
<signal name="NewTitle"/><signal name="NewIcon"/><signal name="NewAttentionIcon"/><signal name="NewOverlayIcon"/>
<signal name="NewToolTip"/><signal name="NewStatus"><arg name="status" type="s"/></signal>
</interface></node>)xml";

struct Unref {
    void operator()(GDBusConnection* connection) const { g_object_unref(connection); }
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Connection = std::unique_ptr<GDBusConnection, Unref>;
using Value = std::unique_ptr<GVariant, Unref>;

// Looked up without starting one: a bus that was begun for us would outlive us.
bool hasSessionBus() {
    if (std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr) return true;
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    return runtime != nullptr && access((std::string(runtime) + "/bus").c_str(), F_OK) == 0;
}

Connection connectToSession() {
    if (!hasSessionBus()) return nullptr;
    char* address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (address == nullptr) return nullptr;
    constexpr auto kFlags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    Connection made(g_dbus_connection_new_for_address_sync(address, kFlags, nullptr, nullptr, nullptr));
    g_free(address);
    if (made) g_dbus_connection_set_exit_on_close(made.get(), FALSE);
    return made;
}

Value call(GDBusConnection* connection, const char* name, const char* path, const char* interface, const char* method,
           GVariant* arguments) {
    return Value(g_dbus_connection_call_sync(connection, name, path, interface, method, arguments, nullptr,
                                             G_DBUS_CALL_FLAGS_NO_AUTO_START, kAnswerWithin, nullptr, nullptr));
}

// A watcher alone shows nothing: somebody has to draw what it knows of.
bool hostIsThere(GDBusConnection* connection) {
    const Value answer = call(connection, kWatcher, kWatcherPath, "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", kWatcher, "IsStatusNotifierHostRegistered"));
    if (!answer) return false;
    GVariant* inner = nullptr;
    g_variant_get(answer.get(), "(v)", &inner);
    const Value value(inner);
    return g_variant_is_of_type(inner, G_VARIANT_TYPE_BOOLEAN) != FALSE && g_variant_get_boolean(inner) != FALSE;
}

// Width, height, and four bytes a pixel: opacity, red, green, blue.
GVariant* pixmaps(bool any) {
    GVariantBuilder all;
    g_variant_builder_init(&all, G_VARIANT_TYPE("a(iiay)"));
    constexpr std::array kSides{16, 22, 24, 32, 48, 64};
    for (const int side : kSides) {
        if (!any) break;
        const wxSize size(side, side);
        wxImage image = icon("PicSystrayIcon", size).GetBitmap(size).ConvertToImage();
        if (!image.IsOk()) continue;
        if (!image.HasAlpha()) image.InitAlpha();
        const std::size_t count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
        std::vector<unsigned char> bytes;
        bytes.reserve(count * 4);
        for (std::size_t pixel = 0; pixel < count; ++pixel) {
            bytes.push_back(image.GetAlpha()[pixel]);
            const unsigned char* colour = image.GetData() + pixel * 3;
            bytes.insert(bytes.end(), colour, colour + 3);
        }
        g_variant_builder_add(&all, "(ii@ay)", side, side,
                              g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1));
    }
    return g_variant_builder_end(&all);
}

class NotifierTray final : public Tray, public wxEvtHandler {
public:
    NotifierTray() {
        Bind(wxEVT_THREAD, [](wxThreadEvent& event) { event.GetPayload<std::function<void()>>()(); });
    }
    ~NotifierTray() override { remove(); }

    bool add(const std::string& tip) override {
        if (connection_) return true;
        connection_ = connectToSession();
        if (!connection_) return false;
        tip_ = fromNative(toNative(tip).Trim(false).Trim());
        if (hostIsThere(connection_.get()) && announce()) return true;
        remove();
        return false;
    }

    // With its connection everything that was on the bus goes, also for watchers that look at nothing else.
    void remove() override {
        if (!connection_) return;
        g_signal_handlers_disconnect_by_data(connection_.get(), this);
        for (const unsigned watch : watches_) g_dbus_connection_signal_unsubscribe(connection_.get(), watch);
        watches_.clear();
        for (const unsigned object : objects_) g_dbus_connection_unregister_object(connection_.get(), object);
        objects_.clear();
        g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
        connection_.reset();
    }

    void menuChanged() override {
        // Entries change several at a time.
        if (std::exchange(changeToTell_, true)) return;
        later([this] {
            changeToTell_ = false;
            if (connection_) menu_.changed(connection_.get());
        });
    }

private:
    // What comes over the bus becomes an event of the window's loop, of a kind that painting does not let in: a program
    // that works hears it where it listens.
    void later(const std::function<void()>& what) {
        auto* event = new wxThreadEvent;
        event->SetPayload(what);
        QueueEvent(event);
    }

    bool announce() {
        static GDBusNodeInfo* const description = g_dbus_node_info_new_for_xml(kDescription, nullptr);
        static const GDBusInterfaceVTable table{onCall, onProperty, nullptr, {}};
        GDBusConnection* bus = connection_.get();
        objects_ = {g_dbus_connection_register_object(bus, kItemPath, description->interfaces[0], &table, this, nullptr,
                                                      nullptr),
                    menu_.registerOn(bus)};
        watches_ = {
            g_dbus_connection_signal_subscribe(bus, kBus, kBus, "NameOwnerChanged", kBusPath, kWatcher,
                                               G_DBUS_SIGNAL_FLAGS_NONE, onOwnerChanged, this, nullptr),
            g_dbus_connection_signal_subscribe(bus, kWatcher, kWatcher, "StatusNotifierHostUnregistered", kWatcherPath,
                                               nullptr, G_DBUS_SIGNAL_FLAGS_NONE, onHostUnregistered, this, nullptr)};
        g_signal_connect(bus, "closed", G_CALLBACK(onClosed), this);
        const std::string name = std::string(kItemInterface) + "-" + std::to_string(getpid()) + "-1";
        return call(bus, kBus, kBusPath, kBus, "RequestName", g_variant_new("(su)", name.c_str(), 0)) != nullptr &&
               call(bus, kWatcher, kWatcherPath, kWatcher, "RegisterStatusNotifierItem",
                    g_variant_new("(s)", name.c_str())) != nullptr;
    }

    void gone() {
        later([this] {
            if (connection_ && onDoubleClick) onDoubleClick();
        });
    }

    static void onOwnerChanged(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* change,
                               gpointer self) {
        const char* owner = nullptr;
        g_variant_get(change, "(&s&s&s)", nullptr, nullptr, &owner);
        if (*owner == '\0') static_cast<NotifierTray*>(self)->gone();
    }

    static void onHostUnregistered(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant*,
                                   gpointer self) {
        auto* tray = static_cast<NotifierTray*>(self);
        tray->later([tray] {
            if (tray->connection_ && !hostIsThere(tray->connection_.get())) tray->gone();
        });
    }

    static void onClosed(GDBusConnection*, gboolean, GError*, gpointer self) {
        static_cast<NotifierTray*>(self)->gone();
    }

    static void onCall(GDBusConnection*, const char*, const char*, const char*, const char* method, GVariant*,
                       GDBusMethodInvocation* invocation, gpointer self) {
        auto* tray = static_cast<NotifierTray*>(self);
        const std::string name = method;
        if (name == "Activate") {
            tray->later([tray] {
                if (tray->onDoubleClick) tray->onDoubleClick();
            });
        } else if (name == "ContextMenu") {
            tray->later([tray] {
                if (tray->onMenu) tray->onMenu();
            });
        }
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }

    static GVariant* onProperty(GDBusConnection*, const char*, const char*, const char*, const char* name, GError**,
                                gpointer self) {
        const auto* tray = static_cast<NotifierTray*>(self);
        const std::string property = name;
        if (property == "Category") return g_variant_new_string("ApplicationStatus");
        if (property == "Id") return g_variant_new_string("tidvane");
        if (property == "Title") return g_variant_new_string("Tidvane");
        if (property == "Status") return g_variant_new_string("Active");
        if (property == "WindowId") return g_variant_new_int32(0);
        if (property.ends_with("Pixmap")) return pixmaps(property == "IconPixmap");
        if (property == "ToolTip") return g_variant_new("(s@a(iiay)ss)", "", pixmaps(false), tray->tip_.c_str(), "");
        if (property == "ItemIsMenu") return g_variant_new_boolean(FALSE);
        if (property == "Menu") return g_variant_new_object_path(BusMenu::kPath);
        return g_variant_new_string("");
    }

    Connection connection_;
    std::string tip_;
    std::vector<unsigned> objects_;
    std::vector<unsigned> watches_;
    bool changeToTell_ = false;
    BusMenu menu_{[this] { return entries ? entries() : std::vector<TrayEntry>(); },
                  [this](const std::string& name) {
                      later([this, name] {
                          if (onEntry) onEntry(name);
                      });
                  }};
};

}  // namespace

std::unique_ptr<Tray> makeNotifierTray() {
    return std::make_unique<NotifierTray>();
}

}  // namespace tidvane::view

#endif
