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
    {"platform/memory", {"base", "platform", "platform/common", "platform/guard"}},
    {"platform/machine", {"base", "platform", "platform/common", "platform/guard"}},
    {"platform/preview", {"base", "platform", "platform/common"}},
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
    {"console",
     {"base", "platform", "platform/common", "platform/guard", "platform/machine", "forms", "controls", "settings",
      "registry", "removal", "tools", "plugins", "tasks", "online", "desktop", "app"}},
    {"view",
     {"base", "platform", "forms", "controls", "settings", "registry", "removal", "tools", "plugins", "tasks", "online",
      "desktop", "app"}},
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
      "view",
      "console"}},
};

// What belongs to an operating system or a toolkit. Only these folders may speak to one.
constexpr std::array kSystemHeaders{"windows.h", "unistd.h", "fcntl.h", "dirent.h", "wx/", "sys/", "filesystem"};
const std::set<std::string> kMaySpeakToTheSystem{"platform/machine", "platform/win32", "view", "console", "main"};

std::string folderOf(const fs::path& file) {
    return fs::relative(file.parent_path(), fs::path(TIDVANE_SOURCE_DIR) / "src").generic_string();
}

std::vector<fs::path> sources() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TIDVANE_SOURCE_DIR) / "src")) {
        const std::string kind = entry.path().extension().string();
        if (entry.is_regular_file() && (kind == ".h" || kind == ".cpp")) files.push_back(entry.path());
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
        if (kMaySpeakToTheSystem.contains(folder)) return {};
        for (const std::string_view header : kSystemHeaders) {
            const bool is =
                header.back() == '/' ? include.name.compare(0, header.size(), header) == 0 : include.name == header;
            if (is) return folder + " may not include <" + include.name + ">";
        }
        return {};
    }
    const std::size_t slash = include.name.rfind('/');
    if (slash == std::string::npos) return "\"" + include.name + "\" is not written from src/";
    const std::string target = include.name.substr(0, slash);
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

TEST(House, NoTwoFoldersIncludeOneAnother) {
    for (const Floor& floor : kFloors) {
        for (const char* lower : floor.mayInclude) {
            const Floor* other = floorOf(lower);
            ASSERT_NE(other, nullptr) << lower;
            for (const char* back : other->mayInclude) EXPECT_STRNE(back, floor.folder) << lower;
        }
    }
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
    EXPECT_NE(objection("cellar", {"base/text.h", true}), "");
    EXPECT_NE(objection("base", {"text.h", true}), "");
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
