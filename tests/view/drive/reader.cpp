#include "view/drive/reader.h"

#include <atspi/atspi.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>

namespace tidvane::tests {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Object = std::unique_ptr<AtspiAccessible, Unref>;

bool hasState(AtspiAccessible* object, AtspiStateType state) {
    AtspiStateSet* states = atspi_accessible_get_state_set(object);
    if (states == nullptr) return false;
    const bool is = atspi_state_set_contains(states, state) != 0;
    g_object_unref(states);
    return is;
}

std::string nameOf(AtspiAccessible* object) {
    gchar* name = atspi_accessible_get_name(object, nullptr);
    std::string text = name == nullptr ? "" : name;
    g_free(name);
    return text;
}

// Answers true to stop.
bool walk(AtspiAccessible* object, const std::function<bool(AtspiAccessible*)>& visit) {
    const bool showing = hasState(object, ATSPI_STATE_SHOWING);
    if (showing && visit(object)) return true;
    const AtspiRole role = atspi_accessible_get_role(object, nullptr);
    // The rows of a list may be very many, and nobody asks for them.
    if (role == ATSPI_ROLE_TREE_TABLE || role == ATSPI_ROLE_TABLE) return false;
    const int count = atspi_accessible_get_child_count(object, nullptr);
    for (int at = 0; at < count; ++at) {
        const Object child(atspi_accessible_get_child_at_index(object, at, nullptr));
        if (child != nullptr && walk(child.get(), visit)) return true;
    }
    return false;
}

void walkProgram(int process, const std::function<bool(AtspiAccessible*)>& visit) {
    const Object desktop(atspi_get_desktop(0));
    atspi_accessible_set_cache_mask(desktop.get(), ATSPI_CACHE_NONE);
    const int programs = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int at = 0; at < programs; ++at) {
        const Object program(atspi_accessible_get_child_at_index(desktop.get(), at, nullptr));
        if (program == nullptr ||
            static_cast<int>(atspi_accessible_get_process_id(program.get(), nullptr)) != process) {
            continue;
        }
        const int windows = atspi_accessible_get_child_count(program.get(), nullptr);
        for (int window = 0; window < windows; ++window) {
            const Object top(atspi_accessible_get_child_at_index(program.get(), window, nullptr));
            if (top != nullptr && walk(top.get(), visit)) return;
        }
    }
}

Reader::Place placeOnScreen(AtspiAccessible* object) {
    AtspiComponent* component = atspi_accessible_get_component_iface(object);
    AtspiRect* rect =
        component == nullptr ? nullptr : atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
    const Reader::Place place =
        rect == nullptr ? Reader::Place{0, 0, 0, 0} : Reader::Place{rect->x, rect->y, rect->width, rect->height};
    g_free(rect);
    if (component != nullptr) g_object_unref(component);
    return place;
}

}  // namespace

struct Reader::Found {
    Object object;
};

Reader::Reader(int process) : process_(process) {
    atspi_init();
    atspi_set_timeout(3000, 3000);
}
Reader::~Reader() = default;

Reader::Found Reader::find(const std::string& name) const {
    Found found;
    walkProgram(process_, [&](AtspiAccessible* object) {
        const AtspiRole role = atspi_accessible_get_role(object, nullptr);
        if (role == ATSPI_ROLE_LABEL || role == ATSPI_ROLE_PANEL || !nameOf(object).starts_with(name)) return false;
        found.object.reset(ATSPI_ACCESSIBLE(g_object_ref(object)));
        return true;
    });
    return found;
}

std::vector<std::string> Reader::names() const {
    std::vector<std::string> all;
    walkProgram(process_, [&](AtspiAccessible* object) {
        if (const std::string name = nameOf(object); !name.empty()) all.push_back(name);
        return false;
    });
    return all;
}

Reader::Found Reader::waitFor(const std::string& name) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(15);
    while (true) {
        Found found = find(name);
        if (found.object != nullptr) return found;
        if (std::chrono::steady_clock::now() > end) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    std::string there;
    for (const std::string& other : names()) there += "\n  " + other;
    throw std::runtime_error("nothing is called " + name + "; there is:" + there);
}

void Reader::focus(const std::string& name) const {
    const Found found = waitFor(name);
    AtspiComponent* component = atspi_accessible_get_component_iface(found.object.get());
    const bool done = component != nullptr && atspi_component_grab_focus(component, nullptr) != 0;
    if (component != nullptr) g_object_unref(component);
    if (!done) throw std::runtime_error(name + " takes no focus");
}

bool Reader::isTicked(const std::string& name) const {
    return hasState(waitFor(name).object.get(), ATSPI_STATE_CHECKED);
}

std::string Reader::textOf(const std::string& name) const {
    const Found found = waitFor(name);
    AtspiText* box = atspi_accessible_get_text_iface(found.object.get());
    if (box == nullptr) throw std::runtime_error(name + " holds no text");
    gchar* text = atspi_text_get_text(box, 0, atspi_text_get_character_count(box, nullptr), nullptr);
    std::string result = text == nullptr ? "" : text;
    g_free(text);
    g_object_unref(box);
    return result;
}

Reader::Place Reader::placeOf(const std::string& name) const {
    return placeOnScreen(waitFor(name).object.get());
}

Reader::Place Reader::columnTitle(int column) const {
    Place place{0, 0, 0, 0};
    walkProgram(process_, [&](AtspiAccessible* object) {
        AtspiTable* table = atspi_accessible_get_table_iface(object);
        if (table == nullptr) return false;
        const Object title(atspi_table_get_column_header(table, column, nullptr));
        g_object_unref(table);
        if (title != nullptr) place = placeOnScreen(title.get());
        return place.width > 0;
    });
    if (place.width == 0) throw std::runtime_error("no list with titles is to be seen");
    return place;
}

bool Reader::has(const std::string& name) const {
    return find(name).object != nullptr;
}

bool Reader::isEnabled(const std::string& name) const {
    const Found found = find(name);
    return found.object != nullptr && hasState(found.object.get(), ATSPI_STATE_ENABLED);
}

}  // namespace tidvane::tests
