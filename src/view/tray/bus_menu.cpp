#include "view/tray/bus_menu.h"

#include <utility>

namespace tidvane::view {

namespace {

constexpr const char* kDescription = R"xml(<node><interface name="com.canonical.dbusmenu">
<property name="Version" type="u" access="read"/>
<property name="TextDirection" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="IconThemePath" type="as" access="read"/>
<method name="GetLayout">
 <arg name="parentId" type="i" direction="in"/><arg name="recursionDepth" type="i" direction="in"/>
 <arg name="propertyNames" type="as" direction="in"/>
 <arg name="revision" type="u" direction="out"/><arg name="layout" type="(ia{sv}av)" direction="out"/>
</method>
<method name="GetGroupProperties">
 <arg name="ids" type="ai" direction="in"/><arg name="propertyNames" type="as" direction="in"/>
 <arg name="properties" type="a(ia{sv})" direction="out"/>
</method>
<method name="GetProperty">
 <arg name="id" type="i" direction="in"/><arg name="name" type="s" direction="in"/>
 <arg name="value" type="v" direction="out"/>
</method>
<method name="Event">
 <arg name="id" type="i" direction="in"/><arg name="eventId" type="s" direction="in"/>
 <arg name="data" type="v" direction="in"/><arg name="timestamp" type="u" direction="in"/>
</method>
<method name="EventGroup">
 <arg name="events" type="a(isvu)" direction="in"/><arg name="idErrors" type="ai" direction="out"/>
</method>
<method name="AboutToShow">
 <arg name="id" type="i" direction="in"/><arg name="needUpdate" type="b" direction="out"/>
</method>
<method name="AboutToShowGroup">
 <arg name="ids" type="ai" direction="in"/>
 <arg name="updatesNeeded" type="ai" direction="out"/><arg name="idErrors" type="ai" direction="out"/>
</method>
<signal name="ItemsPropertiesUpdated">
 <arg name="updatedProps" type="a(ia{sv})"/><arg name="removedProps" type="a(ias)"/>
</signal>
<signal name="LayoutUpdated"><arg name="revision" type="u"/><arg name="parent" type="i"/></signal>
<signal name="ItemActivationRequested"><arg name="id" type="i"/><arg name="timestamp" type="u"/></signal>
</interface></node>)xml";

// The bus marks the keyboard letter by "_" in front of it.
std::string busCaption(const std::string& caption) {
    std::string made;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == '_') {
            made += "__";
        } else if (caption[at] != '&') {
            made += caption[at];
        } else if (at + 1 < caption.size() && caption[at + 1] == '&') {
            made += '&';
            ++at;
        } else {
            made += '_';
        }
    }
    return made;
}

void add(GVariantBuilder& properties, const char* name, GVariant* value) {
    g_variant_builder_add(&properties, "{sv}", name, value);
}

void onCall(GDBusConnection*, const char*, const char*, const char*, const char* method, GVariant* arguments,
            GDBusMethodInvocation* invocation, gpointer menu) {
    GVariant* answer = static_cast<BusMenu*>(menu)->answer(method, arguments);
    if (answer != nullptr) {
        g_dbus_method_invocation_return_value(invocation, answer);
    } else {
        g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS,
                                                      "No such entry");
    }
}

GVariant* onProperty(GDBusConnection*, const char*, const char*, const char*, const char* name, GError**, gpointer) {
    const std::string property = name;
    if (property == "Version") return g_variant_new_uint32(3);
    if (property == "TextDirection") return g_variant_new_string("ltr");
    if (property == "Status") return g_variant_new_string("normal");
    return g_variant_new_strv(nullptr, 0);
}

}  // namespace

BusMenu::BusMenu(std::function<std::vector<TrayEntry>()> entries, std::function<void(const std::string&)> onEntry)
    : entries_(std::move(entries)), onEntry_(std::move(onEntry)) {}

unsigned BusMenu::registerOn(GDBusConnection* connection) {
    static GDBusNodeInfo* const description = g_dbus_node_info_new_for_xml(kDescription, nullptr);
    static const GDBusInterfaceVTable table{onCall, onProperty, nullptr, {}};
    return g_dbus_connection_register_object(connection, kPath, description->interfaces[0], &table, this, nullptr,
                                             nullptr);
}

int BusMenu::idOf(const std::string& key) {
    const auto [place, isNew] = ids_.try_emplace(key, static_cast<int>(ids_.size()) + 1);
    return place->second;
}

BusMenu::Node BusMenu::nodeOf(const std::vector<TrayEntry>& entries, int id) {
    Node node;
    node.id = id;
    for (const TrayEntry& entry : entries) {
        if (entry.separatorBefore && !node.children.empty()) {
            node.children.push_back({idOf(entry.name + " line"), {}, nullptr, {}});
        }
        Node child = nodeOf(entry.entries, idOf(entry.name));
        child.name = entry.name;
        child.entry = &entry;
        node.children.push_back(std::move(child));
    }
    return node;
}

void BusMenu::refresh() {
    std::vector<TrayEntry> now = entries_();
    if (revision_ > 0 && now == shown_) return;
    shown_ = std::move(now);
    root_ = nodeOf(shown_, 0);
    ++revision_;
}

void BusMenu::changed(GDBusConnection* connection) {
    const unsigned before = revision_;
    refresh();
    if (before == 0 || before == revision_) return;
    g_dbus_connection_emit_signal(connection, nullptr, kPath, kInterface, "LayoutUpdated",
                                  g_variant_new("(ui)", revision_, 0), nullptr);
}

const BusMenu::Node* BusMenu::find(const Node& node, int id) {
    if (node.id == id) return &node;
    for (const Node& child : node.children) {
        if (const Node* found = find(child, id)) return found;
    }
    return nullptr;
}

GVariant* BusMenu::propertiesOf(const Node& node) {
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a{sv}"));
    if (node.entry != nullptr) {
        add(properties, "label", g_variant_new_string(busCaption(node.entry->caption).c_str()));
        add(properties, "enabled", g_variant_new_boolean(node.entry->enabled ? TRUE : FALSE));
    } else if (node.id != 0) {
        add(properties, "type", g_variant_new_string("separator"));
    }
    if (!node.children.empty()) add(properties, "children-display", g_variant_new_string("submenu"));
    return g_variant_builder_end(&properties);
}

// `depth`: how many levels below the node are told; -1: all of them.
GVariant* BusMenu::layoutOf(const Node& node, int depth) const {
    GVariantBuilder children;
    g_variant_builder_init(&children, G_VARIANT_TYPE("av"));
    if (depth != 0) {
        for (const Node& child : node.children) {
            g_variant_builder_add(&children, "v", layoutOf(child, depth < 0 ? depth : depth - 1));
        }
    }
    return g_variant_new("(i@a{sv}@av)", node.id, propertiesOf(node), g_variant_builder_end(&children));
}

void BusMenu::event(int id, const std::string& what) {
    if (what != "clicked") return;
    const Node* node = find(root_, id);
    if (node != nullptr && node->entry != nullptr && node->entry->enabled && node->children.empty()) {
        onEntry_(node->name);
    }
}

GVariant* BusMenu::answer(const std::string& method, GVariant* arguments) {
    if (method == "GetLayout") {
        refresh();
        int parent = 0;
        int depth = 0;
        g_variant_get(arguments, "(ii@as)", &parent, &depth, nullptr);
        const Node* node = find(root_, parent);
        return node == nullptr ? nullptr : g_variant_new("(u@(ia{sv}av))", revision_, layoutOf(*node, depth));
    }
    if (method == "GetGroupProperties") {
        GVariantBuilder all;
        g_variant_builder_init(&all, G_VARIANT_TYPE("a(ia{sv})"));
        GVariantIter* ids = nullptr;
        g_variant_get(arguments, "(ai@as)", &ids, nullptr);
        for (int id = 0; g_variant_iter_next(ids, "i", &id) != FALSE;) {
            if (const Node* node = find(root_, id)) {
                g_variant_builder_add(&all, "(i@a{sv})", id, propertiesOf(*node));
            }
        }
        g_variant_iter_free(ids);
        return g_variant_new("(@a(ia{sv}))", g_variant_builder_end(&all));
    }
    if (method == "GetProperty") {
        int id = 0;
        const char* name = nullptr;
        g_variant_get(arguments, "(i&s)", &id, &name);
        const Node* node = find(root_, id);
        if (node == nullptr) return nullptr;
        GVariant* properties = g_variant_ref_sink(propertiesOf(*node));
        GVariant* value = g_variant_lookup_value(properties, name, nullptr);
        g_variant_unref(properties);
        if (value == nullptr) return nullptr;
        GVariant* made = g_variant_new("(v)", value);
        g_variant_unref(value);
        return made;
    }
    if (method == "Event") {
        int id = 0;
        const char* what = nullptr;
        g_variant_get(arguments, "(i&s@vu)", &id, &what, nullptr, nullptr);
        event(id, what);
        return g_variant_new("()");
    }
    if (method == "EventGroup") {
        GVariantIter* events = nullptr;
        g_variant_get(arguments, "(a(isvu))", &events);
        int id = 0;
        const char* what = nullptr;
        while (g_variant_iter_next(events, "(i&s@vu)", &id, &what, nullptr, nullptr) != FALSE) event(id, what);
        g_variant_iter_free(events);
        return g_variant_new("(ai)", nullptr);
    }
    if (method == "AboutToShow") {
        const unsigned before = revision_;
        refresh();
        return g_variant_new("(b)", before == revision_ ? FALSE : TRUE);
    }
    if (method == "AboutToShowGroup") {
        const unsigned before = revision_;
        refresh();
        GVariantBuilder changedOnes;
        g_variant_builder_init(&changedOnes, G_VARIANT_TYPE("ai"));
        if (before != revision_) g_variant_builder_add(&changedOnes, "i", 0);
        return g_variant_new("(@aiai)", g_variant_builder_end(&changedOnes), nullptr);
    }
    return nullptr;
}

}  // namespace tidvane::view
