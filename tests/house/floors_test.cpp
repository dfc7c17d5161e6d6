// The floors of the house: who may include whom. Read from the sources themselves.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tidvane {
namespace {

namespace fs = std::filesystem;

struct Floor {
    const char* folder;
    std::vector<const char*> mayInclude;  // folders below src/, besides itself
};

// The platform's headers stand beside its implementations; "platform" here is the headers alone.
const std::vector<Floor> kFloors{
    {"base", {}},
    {"platform", {"base"}},
    {"platform/common", {"base", "platform"}},
    {"platform/guard", {"base", "platform", "platform/common"}},
    {"platform/preview", {"base", "platform", "platform/common"}},
    {"platform/memory", {"base", "platform", "platform/common", "platform/guard", "platform/preview"}},
    {"platform/machine", {"base", "platform", "platform/common", "platform/guard", "platform/preview"}},
    {"platform/win32", {"base", "platform", "platform/common", "platform/guard"}},
    {"forms", {"base", "platform"}},
    {"controls", {"base", "platform", "forms"}},
    // Settings windows are data that every subsystem may read; so they stand lowest among them.
    {"settings", {"base", "platform", "platform/common", "forms", "controls"}},
    {"registry", {"base", "platform", "platform/common", "forms", "controls", "settings"}},
    {"removal", {"base", "platform", "platform/common", "forms", "controls", "settings"}},
    // Windows of tools and of the desktop are data too: tasks and the main window read them.
    {"tools", {"base", "platform", "platform/common", "forms", "controls", "settings", "registry", "removal"}},
    {"online", {"base", "platform", "platform/common", "forms", "controls", "settings"}},
    {"desktop", {"base", "platform", "platform/common", "forms", "controls", "settings"}},
    {"plugins", {"base", "platform", "platform/common", "forms", "controls", "settings", "registry", "removal"}},
    {"tasks",
     {"base", "platform", "platform/common", "forms", "controls", "settings", "registry", "removal", "tools",
      "plugins"}},
    {"app",
     {"base", "platform", "platform/common", "forms", "controls", "settings", "registry", "removal", "tools", "plugins",
      "tasks", "online", "desktop"}},
    // What the front ends share; it may speak to the host, as they may.
    {"frontend",
     {"base", "platform", "platform/common", "platform/guard", "platform/machine", "forms", "controls", "settings",
      "registry", "removal", "tools", "plugins", "tasks", "online", "desktop", "app"}},
    {"frontend/sample", {"base", "platform", "platform/common", "platform/machine", "frontend"}},
    {"console",
     {"base", "platform", "platform/common", "platform/guard", "platform/machine", "forms", "controls", "settings",
      "registry", "removal", "tools", "plugins", "tasks", "online", "desktop", "app", "frontend", "frontend/sample"}},
    {"view",
     {"base", "platform", "forms", "controls", "settings", "registry", "removal", "tools", "plugins", "tasks", "online",
      "desktop", "app", "frontend", "frontend/sample"}},
    {"main",
     {"base",
      "platform",
      "platform/common",
      "platform/guard",
      "platform/machine",
      "platform/win32",
      "platform/preview",
      "forms",
      "controls",
      "settings",
      "registry",
      "removal",
      "tools",
      "plugins",
      "tasks",
      "online",
      "desktop",
      "app",
      "frontend",
      "frontend/sample",
      "view",
      "console"}},
};

// The headers of the language that no operating system stands behind. All others (systems, toolkits, libraries, files,
// streams, threads, the environment) are for the folders that may speak to a system.
const std::set<std::string> kLanguageHeaders{
    "algorithm",     "any",     "array",       "bit",          "bitset",     "cassert",
    "cctype",        "cerrno",  "cfloat",      "charconv",     "chrono",     "climits",
    "cmath",         "compare", "concepts",    "cstddef",      "cstdint",    "cstring",
    "cwchar",        "deque",   "exception",   "forward_list", "functional", "initializer_list",
    "iterator",      "limits",  "list",        "map",          "memory",     "new",
    "numbers",       "numeric", "optional",    "queue",        "random",     "ranges",
    "ratio",         "set",     "span",        "stack",        "stdexcept",  "string",
    "string_view",   "tuple",   "type_traits", "typeindex",    "typeinfo",   "unordered_map",
    "unordered_set", "utility", "variant",     "vector",       "version",
};
const std::set<std::string> kMaySpeakToTheSystem{
    "platform/machine", "platform/win32", "frontend", "frontend/sample", "view", "console", "main"};

// For snprintf and strtol; they hold I/O as well, so that base does without them.
const std::set<std::string> kNotForBase{"cstdio", "cstdlib"};

// The folders of the windows are one floor.
std::string floorNameOf(const std::string& folder) {
    return folder.starts_with("view/") ? "view" : folder;
}

std::string folderOf(const fs::path& file) {
    return floorNameOf(fs::relative(file.parent_path(), fs::path(TIDVANE_SOURCE_DIR) / "src").generic_string());
}

// Headers and sources of ours; `others` gets every file that is neither.
std::vector<fs::path> sources(std::vector<fs::path>* others = nullptr) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TIDVANE_SOURCE_DIR) / "src")) {
        const std::string kind = entry.path().extension().string();
        if (entry.is_directory()) continue;
        if (kind == ".h" || kind == ".cpp") {
            files.push_back(entry.path());
        } else if (others != nullptr && entry.path().filename() != "CMakeLists.txt") {
            others->push_back(entry.path());
        }
    }
    return files;
}

struct Include {
    std::string name;
    bool own = false;  // in quotes
};

std::vector<Include> includesOf(std::istream& in) {
    std::vector<Include> found;
    for (std::string line; std::getline(in, line);) {
        const std::size_t hash = line.find_first_not_of(" \t");
        if (hash == std::string::npos || line[hash] != '#') continue;
        const std::size_t word = line.find_first_not_of(" \t", hash + 1);
        if (word == std::string::npos || line.compare(word, 7, "include") != 0) continue;
        const std::size_t open = line.find_first_of("<\"", word);
        if (open == std::string::npos) continue;
        const char closing = line[open] == '<' ? '>' : '"';
        const std::size_t close = line.find(closing, open + 1);
        if (close == std::string::npos) continue;
        found.push_back({line.substr(open + 1, close - open - 1), closing == '"'});
    }
    return found;
}

const Floor* floorOf(const std::string& folder) {
    for (const Floor& floor : kFloors) {
        if (folder == floor.folder) return &floor;
    }
    return nullptr;
}

// Empty: allowed.
std::string objection(const std::string& folder, const Include& include) {
    if (!include.own) {
        if (kMaySpeakToTheSystem.contains(folder) || kLanguageHeaders.contains(include.name)) return {};
        if (folder != "base" && kNotForBase.contains(include.name)) return {};
        return folder + " may not include <" + include.name + ">";
    }
    const std::size_t slash = include.name.rfind('/');
    if (slash == std::string::npos) return "\"" + include.name + "\" is not written from src/";
    const std::string target = floorNameOf(include.name.substr(0, slash));
    if (target == folder) return {};
    const Floor* floor = floorOf(folder);
    if (floor == nullptr) return "the folder " + folder + " has no floor";
    for (const char* allowed : floor->mayInclude) {
        if (target == allowed) return {};
    }
    return folder + " may not include " + include.name;
}

TEST(House, EveryFileIncludesOnlyFromTheFloorsBelow) {
    const auto files = sources();
    ASSERT_GT(files.size(), 100U);
    for (const fs::path& file : files) {
        std::ifstream in(file);
        for (const Include& include : includesOf(in)) {
            EXPECT_EQ(objection(folderOf(file), include), "") << file;
        }
    }
}

TEST(House, EveryIncludedFileOfOursIsThere) {
    for (const fs::path& file : sources()) {
        std::ifstream in(file);
        for (const Include& include : includesOf(in)) {
            if (!include.own) continue;
            EXPECT_TRUE(fs::exists(fs::path(TIDVANE_SOURCE_DIR) / "src" / include.name))
                << file << ": " << include.name;
        }
    }
}

// Each folder stands behind all it may include, and so no chain of includes leads back, however long it is.
TEST(House, EveryFolderStandsAboveThoseItMayInclude) {
    std::set<std::string> below;
    for (const Floor& floor : kFloors) {
        for (const char* lower : floor.mayInclude) EXPECT_TRUE(below.contains(lower)) << floor.folder << ": " << lower;
        EXPECT_TRUE(below.insert(floor.folder).second) << floor.folder << " stands there twice";
    }
}

TEST(House, EveryFolderHasAFloor) {
    for (const fs::path& file : sources()) EXPECT_NE(floorOf(folderOf(file)), nullptr) << file;
}

TEST(House, ThePlatformItselfIsHeadersOnly) {
    for (const fs::path& file : sources()) {
        if (folderOf(file) != "platform") continue;
        EXPECT_EQ(file.extension(), ".h") << file;
    }
}

TEST(House, NoFileOfAnotherKindEscapesTheCheck) {
    std::vector<fs::path> others;
    (void)sources(&others);
    for (const fs::path& file : others) ADD_FAILURE() << file << " is neither .h nor .cpp";
}

// The checker itself: what it would say of lines that nobody has written.
TEST(House, TheCheckSeesWhatIsForbidden) {
    EXPECT_NE(objection("forms", {"settings/program.h", true}), "");
    EXPECT_NE(objection("tasks", {"app/frmMain.h", true}), "");
    EXPECT_NE(objection("tasks", {"platform/machine/machine.h", true}), "");
    EXPECT_NE(objection("registry", {"removal/paths.h", true}), "");
    EXPECT_NE(objection("platform/memory", {"platform/machine/machine.h", true}), "");
    EXPECT_NE(objection("controls", {"wx/wx.h", false}), "");
    EXPECT_NE(objection("removal", {"unistd.h", false}), "");
    EXPECT_NE(objection("settings", {"filesystem", false}), "");
    EXPECT_NE(objection("removal", {"some/library.h", false}), "");
    for (const char* header :
         {"fstream", "iostream", "sstream", "thread", "mutex", "filesystem", "cstdlib", "cstdio"}) {
        EXPECT_NE(objection("base", {header, false}), "") << header;
    }
    EXPECT_NE(objection("cellar", {"base/text.h", true}), "");
    EXPECT_NE(objection("base", {"text.h", true}), "");
    EXPECT_NE(objection("frontend", {"console/console.h", true}), "");
    EXPECT_NE(objection("app", {"frontend/places.h", true}), "");
    EXPECT_NE(objection("app", {"view/binding/bindings.h", true}), "");
    EXPECT_NE(objection("view", {"platform/machine/machine.h", true}), "");
    EXPECT_EQ(objection("view", {"view/binding/bindings.h", true}), "");
    EXPECT_EQ(objection("tasks", {"removal/paths.h", true}), "");
    EXPECT_EQ(objection("base", {"string", false}), "");
    EXPECT_EQ(objection("platform/machine", {"unistd.h", false}), "");
}

TEST(House, TheReaderOfIncludesKnowsBothForms) {
    std::istringstream lines("  #  include \"a/b.h\"\n#include <c>\n// #include \"no\"\n#define include x\n");
    const auto found = includesOf(lines);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, "a/b.h");
    EXPECT_TRUE(found[0].own);
    EXPECT_EQ(found[1].name, "c");
    EXPECT_FALSE(found[1].own);
}

}  // namespace
}  // namespace tidvane
