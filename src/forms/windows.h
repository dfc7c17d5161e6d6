// The list of loaded windows.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/display.h"
#include "forms/form.h"

namespace tidvane::forms {

// Windows are made and loaded (hidden) at first use and stay until they are unloaded; the next use makes them anew. A
// window is found here while its own load handler runs, so that the handler may reach back through others.
class Windows {
public:
    using Maker = std::function<std::unique_ptr<Form>()>;

    explicit Windows(Display& display) : display_(display) {}
    ~Windows();

    // The table of all windows: name and how to make one.
    void offer(const std::string& name, Maker maker);

    // Loads at first use. An error from the load handler passes on to the caller; the window stays loaded with the
    // state it has. Null for a name that nobody offers.
    Form* get(std::string_view name);
    // Throws RuntimeError 91 where the window can no longer be had: the program has ended.
    template <class F>
    F& get() {
        Form* form = get(F::kName);
        if (form == nullptr) throw base::RuntimeError(91, F::kName, "The window is gone: the program has ended");
        return static_cast<F&>(*form);
    }
    Form* ifLoaded(std::string_view name) const;
    template <class F>
    F* ifLoaded() const {
        return static_cast<F*>(ifLoaded(F::kName));
    }
    // True while the load handler of this window runs.
    bool isLoading(std::string_view name) const;

    // Asks the window, runs its unload handler and takes it off the list. Its memory lives until `sweep`, since the
    // call often comes from one of its own handlers. Not re-entered for the same window. False: the window refused.
    bool unload(Form& form, UnloadMode mode = UnloadMode::Code);
    // The main window first, then the rest in order of loading, whatever a late read loads meanwhile included.
    void unloadAll(std::string_view first);
    // Frees windows that were unloaded. Only called when no handler runs.
    void sweep() { graveyard_.clear(); }

    void show(std::string_view name, Form* owner, bool modal);
    const std::vector<std::string> loadedNames() const;

private:
    struct Entry {
        std::unique_ptr<Form> form;
        bool loading = true;
        bool unloading = false;
    };
    Entry* entryOf(std::string_view name);
    const Entry* entryOf(std::string_view name) const;

    Display& display_;
    std::map<std::string, Maker, base::NoCaseLess> makers_;
    std::vector<std::unique_ptr<Entry>> loaded_;
    std::vector<std::unique_ptr<Form>> graveyard_;
};

}  // namespace tidvane::forms
