// Every window of the table of layouts, in both languages: nothing is cut, covered or out of reach.
//
// The scale is that of the process; see display_fixture.h.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/listbox.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/scrolwin.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "app/frmMain.h"
#include "frontend/sample/sample_machine.h"
#include "platform/machine/machine_platform.h"
#include "support/host_directory.h"
#include "view/display_fixture.h"
#include "view/icons.h"
#include "view/layouts.h"
#include "view/painters/link_label.h"
#include "view/painters/themed_button.h"
#include "view/text.h"
#include "view/window_program.h"

namespace tidvane::tests {
namespace {

namespace fs = std::filesystem;
namespace machine = platform::machine;

struct Language {
    const char* name;
    const char* file;  // below data/
};
constexpr Language kEnglish{"English", "English.lng"};
constexpr Language kGerman{"German", "languages/Deutsch (German).lng"};

// The program in one language on a sample machine, with its main window on the screen.
class RunningProgram {
public:
    explicit RunningProgram(const Language& language) {
        std::string error;
        if (!frontend::createSample(directory_ / "machine", directory_ / "program", error))
            throw std::runtime_error(error);
        fs::remove(directory_ / "program/English.lng");
        const fs::path file = fs::path(TIDVANE_SOURCE_DIR) / "data" / language.file;
        fs::copy_file(file, fs::path(directory_ / "program") / file.filename());
        auto opened = machine::Machine::open(directory_ / "machine", machine::Machine::Access::Write, error);
        if (opened == nullptr) throw std::runtime_error(error);
        platform_ = machine::MachinePlatform::make(std::move(opened), {directory_ / "program", {}, {}, false}, error);
        program_ = std::make_unique<view::WindowProgram>(platform_->platform());
        program_->view().onError = [](const std::string& text) {
            ADD_FAILURE() << "an error left a handler: " << text;
        };
        whenIdle([this] {
            if (program_ && !program_->view().busy()) program_->view().settle();
        });
        if (!program_->start()) throw std::runtime_error("the program does not start");
    }
    ~RunningProgram() { whenIdle({}); }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    view::WindowProgram& operator*() { return *program_; }

private:
    HostDirectory directory_;
    std::unique_ptr<machine::MachinePlatform> platform_;
    std::unique_ptr<view::WindowProgram> program_;
};

// Started at the first use and shared by the windows, each of which is opened and closed again. One at a time: two
// programs would take the keyboard from one another.
std::unique_ptr<RunningProgram> running;
const Language* spoken = nullptr;

RunningProgram& programIn(const Language& language) {
    if (running == nullptr || spoken != &language) {
        running.reset();
        letSettle();
        running = std::make_unique<RunningProgram>(language);
        spoken = &language;
    }
    return *running;
}

// ---------------------------------------------------------------- what stands in a window

void collect(wxWindow* from, const std::function<void(wxWindow*)>& what) {
    for (wxWindow* child : from->GetChildren()) {
        if (child->IsTopLevel() || !child->IsShown()) continue;
        what(child);
        collect(child, what);
    }
}
std::vector<wxWindow*> shownBelow(wxWindow* from) {
    std::vector<wxWindow*> all;
    collect(from, [&all](wxWindow* child) { all.push_back(child); });
    return all;
}

std::string nameOf(const wxWindow* widget) {
    std::string name = view::fromNative(widget->GetName());
    const std::string caption = view::fromNative(widget->GetLabel());
    if (!caption.empty() && caption != name) name += " \"" + caption.substr(0, 60) + "\"";
    return name;
}
std::string text(const wxSize& size) {
    return std::to_string(size.x) + " x " + std::to_string(size.y);
}
std::string text(const wxRect& place) {
    return text(place.GetSize()) + " at " + std::to_string(place.x) + ", " + std::to_string(place.y);
}

// Widgets that show a caption of theirs and nothing else.
bool isCaption(const wxWindow* widget) {
    return dynamic_cast<const wxButton*>(widget) != nullptr || dynamic_cast<const wxCheckBox*>(widget) != nullptr ||
           dynamic_cast<const wxRadioButton*>(widget) != nullptr ||
           dynamic_cast<const wxStaticText*>(widget) != nullptr ||
           dynamic_cast<const view::ThemedButton*>(widget) != nullptr ||
           dynamic_cast<const view::LinkLabel*>(widget) != nullptr;
}

// Only holds others, or only shows something.
bool isPassive(const wxWindow* widget) {
    return dynamic_cast<const wxPanel*>(widget) != nullptr || dynamic_cast<const wxStatusBar*>(widget) != nullptr ||
           dynamic_cast<const wxStaticText*>(widget) != nullptr ||
           dynamic_cast<const wxStaticBitmap*>(widget) != nullptr;
}

// What a user has to be able to get to.
std::vector<wxWindow*> controlsOf(wxWindow* window) {
    std::vector<wxWindow*> controls;
    for (wxWindow* widget : shownBelow(window)) {
        if (isPassive(widget) || !widget->IsEnabled() || !widget->AcceptsFocus()) continue;
        const auto* book = dynamic_cast<const wxBookCtrlBase*>(widget);
        if (book != nullptr && (dynamic_cast<const wxNotebook*>(book) == nullptr || book->GetPageCount() < 2)) continue;
        controls.push_back(widget);
    }
    return controls;
}

// ---------------------------------------------------------------- the tests

using Which = std::tuple<const char*, const Language*>;

class EveryWindow : public testing::TestWithParam<Which> {
protected:
    static void TearDownTestSuite() { running.reset(); }
    void SetUp() override {
        takeComplaints();
        unknownBefore_ = view::unknownIcons().size();
        program_ = &programIn(*std::get<1>(GetParam()));
        view::WindowProgram& program = **program_;
        const std::string name = std::get<0>(GetParam());
        program.view().act([&] {
            if (name == "frmPlugsInfo") showPlugIn(program.program());
            form_ = program.program().windows.get(name);
            if (form_ != nullptr && name != "frmMain") program.display().Show(*form_, nullptr, false);
        });
        ASSERT_NE(form_, nullptr) << name << " is not there";
        window_ = program.display().ifOpen(name);
        ASSERT_NE(window_, nullptr) << name << " has no native window";
        native_ = window_->native();
        letSettle();
        bringToFront(native_);
        ASSERT_TRUE(letRunUntil([this] { return isActive(native_); })) << where() << "the window gets no focus";
        letDraw(native_);
    }
    void TearDown() override {
        if (form_ != nullptr && form_->Name != "frmMain") {
            view::WindowProgram& program = **program_;
            program.view().act([&] { program.program().windows.unload(*form_); });
        }
        letSettle();
        for (const std::string& complaint : takeComplaints()) ADD_FAILURE() << where() << complaint;
        const std::vector<std::string>& unknown = view::unknownIcons();
        for (std::size_t at = unknownBefore_; at < unknown.size(); ++at) {
            ADD_FAILURE() << where() << "there is no picture " << unknown[at];
        }
    }

    // The page of a plug-in is nothing without one.
    static void showPlugIn(settings::Program& program) {
        auto& main = program.get<app::frmMain>();
        ASSERT_GT(main.LstPlugs.ListCount(), 0);
        main.LstPlugs.setListIndex(0);
        main.menu("mnuPlugInfo").Click();
    }

    // In front of every finding.
    [[nodiscard]] std::string where() const {
        return std::string(std::get<0>(GetParam())) + ", " + std::get<1>(GetParam())->name + ", " + scaleName() +
               (page_.empty() ? "" : ", " + page_) + ": ";
    }

    // Turns every page of the window, the pages inside pages too, and looks at each of them.
    void onEveryPage(const std::function<void()>& look) { turn({}, look); }

    RunningProgram* program_ = nullptr;
    forms::Form* form_ = nullptr;
    view::FormWindow* window_ = nullptr;
    wxTopLevelWindow* native_ = nullptr;

private:
    // The next tab strip to be seen that is not turned yet.
    forms::TabStrip* nextStrip(const std::set<forms::TabStrip*>& turned) {
        for (forms::Control* control : form_->Controls()) {
            auto* strip = dynamic_cast<forms::TabStrip*>(control);
            if (strip == nullptr || turned.contains(strip)) continue;
            const wxWindow* book = window_->widgetOf(*strip);
            if (book != nullptr && book->IsShownOnScreen()) return strip;
        }
        return nullptr;
    }
    void turn(std::set<forms::TabStrip*> turned, const std::function<void()>& look) {
        forms::TabStrip* strip = nextStrip(turned);
        if (strip == nullptr) {
            letDraw(native_);
            look();
            return;
        }
        turned.insert(strip);
        const auto* book = dynamic_cast<const wxBookCtrlBase*>(window_->widgetOf(*strip));
        const bool hidden = dynamic_cast<const wxNotebook*>(book) == nullptr;  // pages that the program turns
        const int before = strip->Tab;
        const std::string above = page_;
        for (int tab = 0; tab < strip->Tabs(); ++tab) {
            if (!hidden && !(strip->TabVisible(tab) && strip->TabEnabled(tab))) continue;
            if (hidden && !strip->TabEnabled(tab)) continue;
            (**program_).view().act([&] {
                if (hidden && form_->Name == "frmMain") {
                    strip->offerOnly(tab);
                } else {
                    strip->Tab = tab;
                }
            });
            letSettle();
            page_ = above + (above.empty() ? "" : " / ") + strip->Name + " " + std::to_string(tab);
            turn(turned, look);
        }
        page_ = above;
        (**program_).view().act([&] {
            if (hidden && form_->Name == "frmMain") {
                strip->offerOnly(before);
            } else {
                strip->Tab = before;
            }
        });
    }

    std::string page_;
    std::size_t unknownBefore_ = 0;
};

TEST_P(EveryWindow, hasASizeAndRoomForEverything) {
    onEveryPage([this] {
        for (wxWindow* widget : shownBelow(native_)) {
            const wxSize size = widget->GetSize();
            if (size.x <= 0 || size.y <= 0) {
                ADD_FAILURE() << where() << nameOf(widget) << " is " << text(size);
                continue;
            }
            if (!isCaption(widget) || widget->GetLabel().empty()) continue;
            widget->InvalidateBestSize();
            const wxSize best = widget->GetBestSize();
            if (best.x > size.x || best.y > size.y) {
                ADD_FAILURE() << where() << nameOf(widget) << " needs " << text(best) << " and has " << text(size);
            }
        }
    });
}

TEST_P(EveryWindow, keepsEverythingInsideAndNothingOnTopOfAnother) {
    onEveryPage([this] {
        std::map<wxWindow*, std::vector<wxWindow*>> siblings;
        for (wxWindow* widget : shownBelow(native_)) {
            wxWindow* parent = widget->GetParent();
            siblings[parent].push_back(widget);
            // What a parent scrolls may lie outside; pages are put into their book by the library below.
            if (dynamic_cast<wxScrolledWindow*>(parent) != nullptr) continue;
            if (dynamic_cast<wxBookCtrlBase*>(parent) != nullptr) continue;
            const wxRect room(wxPoint(0, 0), parent->GetSize());
            if (!room.Contains(widget->GetRect())) {
                ADD_FAILURE() << where() << nameOf(widget) << " (" << text(widget->GetRect()) << ") reaches beyond "
                              << nameOf(parent) << " (" << text(parent->GetSize()) << ")";
            }
        }
        for (const auto& [parent, all] : siblings) {
            if (dynamic_cast<wxBookCtrlBase*>(parent) != nullptr) continue;  // one page at a time
            for (std::size_t a = 0; a < all.size(); ++a) {
                for (std::size_t b = a + 1; b < all.size(); ++b) {
                    const wxRect both = all[a]->GetRect().Intersect(all[b]->GetRect());
                    if (both.IsEmpty()) continue;
                    ADD_FAILURE() << where() << nameOf(all[a]) << " (" << text(all[a]->GetRect()) << ") and "
                                  << nameOf(all[b]) << " (" << text(all[b]->GetRect()) << ") overlap";
                }
            }
        }
    });
}

TEST_P(EveryWindow, showsTitlesOfColumnsAndPanelsInFull) {
    onEveryPage([this] {
        for (wxWindow* widget : shownBelow(native_)) {
            if (const auto* list = dynamic_cast<wxDataViewCtrl*>(widget)) {
                if (list->HasFlag(wxDV_NO_HEADER)) continue;
                for (unsigned column = 0; column < list->GetColumnCount(); ++column) {
                    const wxString title = list->GetColumn(column)->GetTitle();
                    const int needs = list->GetTextExtent(title).x + list->FromDIP(8);
                    EXPECT_GE(list->GetColumn(column)->GetWidth(), needs)
                        << where() << nameOf(widget) << ", column " << view::fromNative(title);
                }
            } else if (auto* bar = dynamic_cast<wxStatusBar*>(widget)) {
                for (int panel = 0; panel < bar->GetFieldsCount(); ++panel) {
                    wxRect place;
                    if (!bar->GetFieldRect(panel, place)) continue;
                    EXPECT_GE(place.width, bar->GetTextExtent(bar->GetStatusText(panel)).x)
                        << where() << "panel " << panel << " " << view::fromNative(bar->GetStatusText(panel));
                }
            } else if (const auto* choice = dynamic_cast<wxChoice*>(widget)) {
                // The arrow and the frame take some.
                const int needs = choice->GetTextExtent(choice->GetStringSelection()).x + choice->FromDIP(30);
                EXPECT_GE(choice->GetSize().x, needs)
                    << where() << nameOf(widget) << " " << view::fromNative(choice->GetStringSelection());
            }
        }
    });
}

TEST_P(EveryWindow, fitsASmallScreen) {
    const wxSize size = native_->GetSize();
    EXPECT_LE(size.x, 1280) << where() << text(size);
    EXPECT_LE(size.y, 760) << where() << text(size);
}

// The control that has the focus: the widget itself, or the one that it is a part of.
wxWindow* focusedOf(wxTopLevelWindow* window, const std::vector<wxWindow*>& controls) {
    GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(window->GetHandle()));
    if (focus == nullptr) return nullptr;
    wxWindow* found = nullptr;
    // Of those around it the innermost: a page stands in its book.
    for (wxWindow* control : controls) {
        GtkWidget* widget = control->GetHandle();
        const bool holds = widget == focus || gtk_widget_is_ancestor(focus, widget) != 0;
        if (holds && (found == nullptr || gtk_widget_is_ancestor(widget, found->GetHandle()) != 0)) found = control;
    }
    return found;
}

// Tab goes to one button of a group, the arrow keys to the others.
bool sameGroup(wxWindow* a, wxWindow* b) {
    auto* one = dynamic_cast<wxRadioButton*>(a);
    auto* other = dynamic_cast<wxRadioButton*>(b);
    if (one == nullptr || other == nullptr) return false;
    for (wxRadioButton* at = one->GetFirstInGroup(); at != nullptr; at = at->GetNextInGroup()) {
        if (at == other) return true;
    }
    return false;
}

// The round that a user makes who presses Tab until he has been everywhere.
std::set<wxWindow*> round(wxTopLevelWindow* window, const std::vector<wxWindow*>& controls, int modifiers) {
    std::set<wxWindow*> reached;
    std::size_t nothingNew = 0;
    // A list with a header takes a few steps before it lets go.
    while (reached.size() < controls.size() && nothingNew < controls.size() / 2 + 12) {
        typeKey(WXK_TAB, modifiers);
        wxWindow* at = focusedOf(window, controls);
        nothingNew = at != nullptr && reached.insert(at).second ? 0 : nothingNew + 1;
    }
    return reached;
}

TEST_P(EveryWindow, isReachedByTabEverywhereAndByShiftTabBack) {
    onEveryPage([this] {
        const std::vector<wxWindow*> controls = controlsOf(native_);
        if (controls.empty()) return;
        bringToFront(native_);
        ASSERT_TRUE(letRunUntil([this] { return isActive(native_); })) << where() << "the window gets no focus";
        for (const int modifiers : {0, static_cast<int>(wxMOD_SHIFT)}) {
            const std::set<wxWindow*> reached = round(native_, controls, modifiers);
            for (wxWindow* control : controls) {
                const bool there = std::any_of(reached.begin(), reached.end(), [control](wxWindow* other) {
                    return other == control || sameGroup(other, control);
                });
                if (!there) {
                    ADD_FAILURE() << where() << nameOf(control) << " is not reached by "
                                  << (modifiers == 0 ? "Tab" : "Shift+Tab");
                }
            }
        }
    });
}

// ---------------------------------------------------------------- what a screen reader is told

// The widget's name in the layout, or else its type.
std::string ownerOf(AtkObject* object) {
    GtkWidget* widget = GTK_IS_ACCESSIBLE(object) ? gtk_accessible_get_widget(GTK_ACCESSIBLE(object)) : nullptr;
    if (widget == nullptr) return "?";
    for (wxWindow* top : wxTopLevelWindows) {
        for (wxWindow* candidate : shownBelow(top)) {
            if (candidate->GetHandle() == widget) return nameOf(candidate);
        }
    }
    return G_OBJECT_TYPE_NAME(widget);
}

void nameless(AtkObject* object, const std::string& around, std::vector<std::string>& found) {
    const AtkRole role = atk_object_get_role(object);
    const char* given = atk_object_get_name(object);
    const std::string name = given == nullptr ? "" : given;
    AtkStateSet* states = atk_object_ref_state_set(object);
    const bool showing = atk_state_set_contains_state(states, ATK_STATE_SHOWING) != 0;
    const bool focusable = atk_state_set_contains_state(states, ATK_STATE_FOCUSABLE) != 0;
    g_object_unref(states);
    // Rows and cells are the content of their list.
    if (role == ATK_ROLE_TABLE_CELL || role == ATK_ROLE_LIST_ITEM || role == ATK_ROLE_TREE_ITEM) return;
    const bool outermost = role == ATK_ROLE_FRAME || role == ATK_ROLE_DIALOG || role == ATK_ROLE_WINDOW;
    if (showing && (focusable || outermost) && name.empty()) {
        found.push_back(ownerOf(object) + " (" + atk_role_get_name(role) + ") in " + around);
    }
    const int children = atk_object_get_n_accessible_children(object);
    for (int at = 0; at < children; ++at) {
        AtkObject* child = atk_object_ref_accessible_child(object, at);
        if (child == nullptr) continue;
        nameless(child, name.empty() ? around : name, found);
        g_object_unref(child);
    }
}

TEST_P(EveryWindow, tellsScreenReadersANameOfEveryControl) {
    onEveryPage([this] {
        std::vector<std::string> found;
        nameless(gtk_widget_get_accessible(native_->GetHandle()), "", found);
        for (const std::string& control : found) ADD_FAILURE() << where() << control << " has no name";
    });
}

std::vector<Which> everyWindowIn(const Language& language) {
    std::vector<Which> all;
    for (const view::WindowLayout& layout : view::allLayouts()) all.emplace_back(layout.form, &language);
    return all;
}
std::string formOf(const testing::TestParamInfo<Which>& row) {
    return std::get<0>(row.param);
}

// A suite for each language: its windows need one program.
INSTANTIATE_TEST_SUITE_P(English, EveryWindow, testing::ValuesIn(everyWindowIn(kEnglish)), formOf);
INSTANTIATE_TEST_SUITE_P(German, EveryWindow, testing::ValuesIn(everyWindowIn(kGerman)), formOf);

TEST(EveryWindowOfTheProgram, isLaidOut) {
    std::vector<std::string> missing;
    view::WindowProgram& program = *programIn(kEnglish);
    for (const char* form :
         {"frmMain", "frmDiskSizeStats", "frmOptions", "frmMoreToConfigure", "frmStarter", "frmResources",
          "frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir", "frmIEInDepthClean", "frmTempAge",
          "frmManualSearch", "frmSearchMasks", "frmIECache", "frmIECookies", "frmPlugsInfo", "frmWidget"}) {
        if (view::layoutOf(form) == nullptr) missing.emplace_back(form);
        EXPECT_NE(program.program().windows.get(form), nullptr) << form;
    }
    EXPECT_EQ(missing, std::vector<std::string>{});
    running.reset();
}

}  // namespace
}  // namespace tidvane::tests
