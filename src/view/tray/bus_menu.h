// The menu of the tray icon as desktops ask for it on the session bus (com.canonical.dbusmenu).
#pragma once

#include <gio/gio.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "view/tray.h"

namespace tidvane::view {

class BusMenu {
public:
    static constexpr const char* kPath = "/MenuBar";
    static constexpr const char* kInterface = "com.canonical.dbusmenu";

    // `entries`: as they are now. `onEntry`: the name of a chosen one.
    BusMenu(std::function<std::vector<TrayEntry>()> entries, std::function<void(const std::string&)> onEntry);

    // Puts the menu on the bus. 0: it could not be done; otherwise what unregisters it.
    unsigned registerOn(GDBusConnection* connection);
    // Tells whoever shows the menu if it has changed since it was asked for last.
    void changed(GDBusConnection* connection);

    // The answers of the interface, by the name of the method; null for an unknown one. What it returns is floating.
    GVariant* answer(const std::string& method, GVariant* arguments);

private:
    struct Node {
        int id = 0;
        std::string name;
        const TrayEntry* entry = nullptr;  // null: the root or a line
        std::vector<Node> children;
    };

    void refresh();
    int idOf(const std::string& key);
    Node nodeOf(const std::vector<TrayEntry>& entries, int id);
    static const Node* find(const Node& node, int id);
    GVariant* layoutOf(const Node& node, int depth) const;
    static GVariant* propertiesOf(const Node& node);
    void event(int id, const std::string& what);

    std::function<std::vector<TrayEntry>()> entries_;
    std::function<void(const std::string&)> onEntry_;
    std::vector<TrayEntry> shown_;
    Node root_;
    unsigned revision_ = 0;
    std::map<std::string, int> ids_;  // an entry keeps its number whatever comes and goes around it
};

}  // namespace tidvane::view
