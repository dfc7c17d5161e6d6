// A session bus of a test's own, and a desktop on it that shows tray icons.
#pragma once

#include <gio/gio.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "e2e/process.h"
#include "support/host_directory.h"

namespace tidvane::tests {

// The programs of this process find it while it lives.
class SessionBus {
public:
    // Throws std::runtime_error where the bus cannot be started.
    SessionBus();
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    [[nodiscard]] const std::string& address() const { return address_; }

private:
    HostDirectory runtime_;  // where the services that it starts put their sockets
    std::unique_ptr<Process> daemon_;
    std::string address_;
    std::string before_;
};

// org.kde.StatusNotifierWatcher in a thread of its own, as it would live in a process of its own.
class NotifierDesktop {
public:
    // `host`: whether somebody draws the icons that the watcher knows of.
    NotifierDesktop(const SessionBus& bus, bool host);
    ~NotifierDesktop();
    NotifierDesktop(const NotifierDesktop&) = delete;
    NotifierDesktop& operator=(const NotifierDesktop&) = delete;

    // Names of the items that were registered, gone ones included.
    std::vector<std::string> registered() const;
    // The host goes, the watcher stays.
    void loseHost();

    // For the thread.
    void noteItem(const std::string& name);
    bool hasHost() const { return host_; }

private:
    void run(const std::string& address);

    std::atomic<bool> host_;
    mutable std::mutex guard_;
    std::vector<std::string> items_;
    GMainContext* context_;
    GMainLoop* loop_;
    GDBusConnection* connection_ = nullptr;
    std::atomic<bool> ready_{false};
    std::thread thread_;
};

// What a panel asks of an item. The program's loop runs meanwhile. Null: an error, or no such name.
class Panel {
public:
    explicit Panel(const SessionBus& bus);
    ~Panel();
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    using Value = std::unique_ptr<GVariant, decltype(&g_variant_unref)>;
    Value call(const std::string& item, const char* path, const char* interface, const char* method,
               GVariant* arguments);
    Value property(const std::string& item, const char* name);
    bool isOnTheBus(const std::string& item);
    // How often the item has said that its menu is another one now.
    [[nodiscard]] int layoutUpdates() const { return layoutUpdates_; }

private:
    GDBusConnection* connection_;
    unsigned watch_ = 0;
    int layoutUpdates_ = 0;
};

}  // namespace tidvane::tests
