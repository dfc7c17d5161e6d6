#include "forms/windows.h"

#include <algorithm>
#include <utility>

namespace tidvane::forms {

Windows::~Windows() = default;

void Windows::offer(const std::string& name, Maker maker) {
    makers_[name] = std::move(maker);
}

const Windows::Entry* Windows::entryOf(std::string_view name) const {
    for (const auto& entry : loaded_) {
        if (base::equalNoCase(entry->form->Name, name)) return entry.get();
    }
    return nullptr;
}

Windows::Entry* Windows::entryOf(std::string_view name) {
    return const_cast<Entry*>(std::as_const(*this).entryOf(name));
}

Form* Windows::ifLoaded(std::string_view name) const {
    const Entry* entry = entryOf(name);
    return entry == nullptr ? nullptr : entry->form.get();
}

bool Windows::isLoading(std::string_view name) const {
    const Entry* entry = entryOf(name);
    return entry != nullptr && entry->loading;
}

Form* Windows::get(std::string_view name) {
    if (Form* form = ifLoaded(name)) return form;
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) return nullptr;
    auto entry = std::make_unique<Entry>();
    entry->form = maker->second();
    Form* form = entry->form.get();
    Entry* inside = entry.get();
    loaded_.push_back(std::move(entry));

    // Whatever way the handler is left, loading is over; the entry may even be gone by then.
    struct Loaded {
        Windows& list;
        Entry* entry;
        ~Loaded() {
            for (const auto& candidate : list.loaded_) {
                if (candidate.get() == entry) candidate->loading = false;
            }
        }
    } loaded{*this, inside};
    form->Form_Load();
    return form;
}

bool Windows::unload(Form& form, UnloadMode mode) {
    Entry* entry = entryOf(form.Name);
    if (entry == nullptr || entry->form.get() != &form || entry->unloading) return false;
    if (form.Form_QueryUnload(mode)) return false;
    entry->unloading = true;
    form.Form_Unload();
    const auto place = std::find_if(loaded_.begin(), loaded_.end(), [&](const auto& e) { return e.get() == entry; });
    if (place == loaded_.end()) return true;
    display_.Forget(form);
    graveyard_.push_back(std::move((*place)->form));
    loaded_.erase(place);
    return true;
}

void Windows::unloadAll(std::string_view first) {
    // The program ends: a late read of a setting may load other windows again, but never start the program anew.
    makers_.erase(std::string(first));
    if (Form* form = ifLoaded(first)) unload(*form);
    // A late read may load a window again: it goes too. The bound ends a pair of windows that load one another for
    // ever.
    for (int rounds = 0; rounds < 100; ++rounds) {
        const auto next =
            std::find_if(loaded_.begin(), loaded_.end(), [](const auto& entry) { return !entry->unloading; });
        if (next == loaded_.end()) break;
        if (!unload(*(*next)->form)) break;
    }
}

void Windows::show(std::string_view name, Form* owner, bool modal) {
    if (Form* form = get(name)) display_.Show(*form, owner, modal);
}

const std::vector<std::string> Windows::loadedNames() const {
    std::vector<std::string> names;
    for (const auto& entry : loaded_) names.push_back(entry->form->Name);
    return names;
}

}  // namespace tidvane::forms
