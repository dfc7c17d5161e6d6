// What a screen reader knows of the program: the controls by the names it would read out.
#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <string>

namespace tidvane::tests {

// Over the accessibility bus, which belongs to the session bus of this process's environment.
class Reader {
public:
    // `process`: the program's id.
    explicit Reader(int process);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // Of those that are seen, the first whose name begins so. All below wait a while for it to come and throw a
    // sentence with the names that are there where it does not.
    void focus(const std::string& name) const;
    [[nodiscard]] bool isTicked(const std::string& name) const;
    [[nodiscard]] std::string textOf(const std::string& name) const;

    struct Place {
        int x, y, width, height;  // pixels of the screen
    };
    [[nodiscard]] Place placeOf(const std::string& name) const;
    // The title of a column, from 0, of the first list that is seen.
    [[nodiscard]] Place columnTitle(int column) const;

    // No waiting.
    [[nodiscard]] bool has(const std::string& name) const;
    [[nodiscard]] bool isEnabled(const std::string& name) const;

private:
    struct Object;
    void walk(const std::function<bool(const Object&)>& visit) const;
    [[nodiscard]] std::unique_ptr<Object> find(const std::string& name) const;
    [[nodiscard]] Object waitFor(const std::string& name) const;

    int process_;
    GDBusConnection* bus_;
};

}  // namespace tidvane::tests
