// What each delivered plug-in file has to keep to, read from its bytes alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "base/wildcard.h"
#include "platform/common/environment_in_map.h"
#include "plugins/delivered_plug_ins.h"

namespace tidvane::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kLongestValue = 1023;      // bytes of a value that are read
constexpr std::size_t kLongestKeyList = 8190;    // bytes of the names of a section, a NUL behind each
constexpr std::size_t kLongestArgument = 255;    // bytes of an expanded argument
constexpr std::string_view kOwnPrefix = "TDV_";  // of variables that plug-ins define

// Variables that Windows sets for every user; not each version has them all.
constexpr std::array kWindowsVariables{
    "ALLUSERSPROFILE",   "APPDATA",     "LOCALAPPDATA", "ProgramData", "ProgramFiles",
    "ProgramFiles(x86)", "SystemDrive", "SystemRoot",   "TEMP",        "USERPROFILE",
};

// Folders below %USERPROFILE% in which people keep what is theirs.
constexpr std::array kFoldersOfPeople{
    "Desktop",  "Documents",   "Downloads", "Favorites",      "My Documents", "Music",
    "Pictures", "Saved Games", "Videos",    "Eigene Dateien", "Favoriten",
};

// Folders that a plug-in empties or removes although they lie directly in a folder of the system or of the user.
constexpr std::array kKnownTopFolders{
    "%LOCALAPPDATA%\\D3DSCache", "%LOCALAPPDATA%\\SquirrelTemp",
    "%LOCALAPPDATA%\\go-build",  "%ProgramData%\\ChocolateyHttpCache",
    "%SystemDrive%\\AMD",        "%SystemRoot%\\$NtUninstallKB*$",
    "%TEMP%\\NuGetScratch",      "%TEMP%\\WinGet",
    "%TEMP%\\chocolatey",
};

struct Argument {
    std::string command;
    std::string path;
};

// A file line by its two fields; both empty when it has another number of them.
Argument argumentOf(const PlugInLine& line) {
    const Texts fields = base::split(line.value, "|");
    return fields.size() == 2 ? Argument{fields[0], fields[1]} : Argument{};
}

bool removesFolders(const Argument& argument) {
    return argument.command == "CLEAR_FOLDER" || argument.command == "DEL_FOLDER";
}

// The names between percent signs.
Texts variablesIn(const std::string& text) {
    const Texts parts = base::split(text, "%");
    Texts names;
    for (std::size_t i = 1; i < parts.size(); i += 2) names.push_back(parts[i]);
    return names;
}

bool isWindowsVariable(const std::string& name) {
    return std::find(kWindowsVariables.begin(), kWindowsVariables.end(), name) != kWindowsVariables.end();
}

class DeliveredPlugInFiles : public testing::Test {
protected:
    struct File {
        std::string name;
        std::string bytes;
        std::vector<PlugInLine> lines;

        [[nodiscard]] std::vector<PlugInLine> section(const std::string& wanted) const {
            std::vector<PlugInLine> found;
            for (const PlugInLine& line : lines) {
                if (line.section == wanted) found.push_back(line);
            }
            return found;
        }
        [[nodiscard]] std::string info(const std::string& key) const {
            for (const PlugInLine& line : lines) {
                if (line.section == "Info" && line.key == key) return line.value;
            }
            return {};
        }
        // With the plug-in's own variables put in, the way it goes on a system.
        [[nodiscard]] std::string spelledOut(std::string path) const {
            for (const PlugInLine& line : section("VARIABLES")) {
                path = base::replaceAll(path, "%" + line.key + "%", line.value);
            }
            return path;
        }
    };

    DeliveredPlugInFiles() {
        for (const std::string& name : deliveredPlugIns()) {
            const std::string bytes = deliveredPlugIn(name);
            files.push_back({name, bytes, linesOfPlugIn(bytes)});
        }
    }

    std::vector<File> files;
};

TEST_F(DeliveredPlugInFiles, HaveNamesThatTheListAndItsStoredTicksCanHold) {
    const std::string allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 .-";
    EXPECT_GE(files.size(), 30u);
    for (const File& file : files) {
        EXPECT_EQ(file.name.find_first_not_of(allowed), std::string::npos) << file.name;
        EXPECT_EQ(file.name, base::trimBlanks(file.name));
        EXPECT_LE(file.name.size(), 40u) << file.name;
    }
}

TEST_F(DeliveredPlugInFiles, AreTextOfTheCodePageInLinesThatEndWithCrLf) {
    // A character of UTF-8 beyond ASCII begins with one of these bytes and goes on with one of 0x80 to 0xBF.
    const auto isUtf8 = [](unsigned char first, unsigned char second) {
        return first >= 0xC2 && first <= 0xF4 && second >= 0x80 && second <= 0xBF;
    };
    const std::string_view undefined = "\x81\x8D\x8F\x90\x9D\x7F";
    bool umlauts = false;
    for (const File& file : files) {
        EXPECT_TRUE(file.bytes.ends_with("\r\n")) << file.name;
        const std::string lines = base::replaceAll(file.bytes, "\r\n", "");
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const auto byte = static_cast<unsigned char>(lines[i]);
            EXPECT_GE(byte, 0x20) << file.name << ": control sign or lone line end";
            EXPECT_EQ(undefined.find(lines[i]), std::string_view::npos) << file.name;
            if (i + 1 < lines.size()) {
                EXPECT_FALSE(isUtf8(byte, static_cast<unsigned char>(lines[i + 1]))) << file.name << " is UTF-8";
            }
            umlauts = umlauts || byte >= 0xC0;
        }
    }
    EXPECT_TRUE(umlauts);
}

TEST_F(DeliveredPlugInFiles, HaveTheirSectionsOnceAndVariablesFirst) {
    const Texts order = {"[Info]", "[VARIABLES]", "[REGISTRY]", "[FILES]"};
    for (const File& file : files) {
        Texts headers;
        for (const std::string& line : base::split(file.bytes, "\r\n")) {
            EXPECT_EQ(line, base::trimBlanks(line)) << file.name;
            if (line.starts_with("[")) headers.push_back(line);
            if (!line.empty() && !line.starts_with("[")) {
                EXPECT_NE(line.find('='), std::string::npos) << file.name << ": " << line;
            }
        }
        std::size_t last = 0;
        ASSERT_FALSE(headers.empty()) << file.name;
        EXPECT_EQ(headers.front(), "[Info]") << file.name;
        for (std::size_t i = 1; i < headers.size(); ++i) {
            const auto place = std::find(order.begin(), order.end(), headers[i]);
            ASSERT_NE(place, order.end()) << file.name << " " << headers[i];
            const auto index = static_cast<std::size_t>(place - order.begin());
            EXPECT_GT(index, last) << file.name << " " << headers[i];
            last = index;
        }
        for (const std::string& header : headers) {
            EXPECT_FALSE(file.section(header.substr(1, header.size() - 2)).empty()) << file.name << " " << header;
        }
        EXPECT_FALSE(file.section("FILES").empty() && file.section("REGISTRY").empty()) << file.name;
    }
}

TEST_F(DeliveredPlugInFiles, GiveEveryLineAKeyOfItsOwnAndAValue) {
    for (const File& file : files) {
        std::set<std::string> seen;
        for (const PlugInLine& line : file.lines) {
            EXPECT_TRUE(seen.insert(line.section + "/" + base::upperCase(line.key)).second) << file.name << line.key;
            EXPECT_FALSE(line.key.empty() || line.key.starts_with(";")) << file.name;
            EXPECT_EQ(line.key, base::trimBlanks(line.key)) << file.name;
            EXPECT_FALSE(line.value.empty()) << file.name << ": " << line.key;
            EXPECT_EQ(line.value, base::trimBlanks(line.value)) << file.name << ": " << line.key;
            EXPECT_LE(line.value.size(), kLongestValue) << file.name << ": " << line.key;
            EXPECT_EQ(std::string("\"'").find(line.value.front()), std::string::npos) << file.name << ": " << line.key;
            EXPECT_NE(line.value, "{ERR}") << file.name;
        }
    }
}

TEST_F(DeliveredPlugInFiles, FitTheListOfKeysOfASection) {
    for (const File& file : files) {
        for (const char* section : {"Info", "VARIABLES", "REGISTRY", "FILES"}) {
            std::size_t room = 0;
            for (const PlugInLine& line : file.section(section)) room += line.key.size() + 1;
            EXPECT_LE(room, kLongestKeyList) << file.name << " " << section;
        }
    }
}

TEST_F(DeliveredPlugInFiles, TellWhatTheyAreInBothLanguages) {
    const Texts keys = {"Title", "Description", "Description2", "Author", "Warning", "Warning2"};
    for (const File& file : files) {
        Texts told;
        for (const PlugInLine& line : file.section("Info")) told.push_back(line.key);
        EXPECT_EQ(told, keys) << file.name;
        // The list shows the name of the file, the log the title: nobody shall have to guess.
        EXPECT_EQ(file.info("Title"), file.name);
        EXPECT_EQ(file.info("Author"), "Tidvane") << file.name;
        for (const char* key : {"Description", "Warning"}) {
            const std::string german = file.info(key);
            const std::string english = file.info(std::string(key) + "2");
            EXPECT_NE(german, english) << file.name;
            for (const std::string& text : {german, english}) {
                EXPECT_GE(text.size(), 30u) << file.name << ": " << text;
                EXPECT_TRUE(text.ends_with(".")) << file.name << ": " << text;
            }
        }
    }
}

TEST_F(DeliveredPlugInFiles, WarnOfWhatGoesForGoodWhateverTheRemovalMethodIs) {
    // What each of the two commands makes of folders, told where it stands and nowhere else.
    struct Words {
        const char* command;
        const char* german;
        const char* english;
    };
    constexpr std::array kFolderWords{
        Words{"CLEAR_FOLDER",
              "Unterordner kommen nur bei der L\xF6schmethode Papierkorb dorthin; sonst werden sie sofort endg\xFCltig "
              "gel\xF6scht, ohne \xFC"
              "berschrieben zu werden.",
              "Subfolders go to the recycle bin only when that is the removal method; otherwise they are deleted at "
              "once and not overwritten."},
        Words{"DEL_FOLDER", "endg\xFCltig gel\xF6scht, gleich welche L\xF6schmethode",
              "deleted for good, whatever the removal method"},
    };
    for (const File& file : files) {
        std::set<std::string> commands;
        for (const PlugInLine& line : file.section("FILES")) commands.insert(argumentOf(line).command);
        const std::string german = file.info("Warning");
        const std::string english = file.info("Warning2");
        for (const Words& words : kFolderWords) {
            const bool wanted = commands.count(words.command) == 1;
            EXPECT_EQ(german.find(words.german) != std::string::npos, wanted) << file.name << " " << words.command;
            EXPECT_EQ(english.find(words.english) != std::string::npos, wanted) << file.name << " " << words.command;
        }
        if (!file.section("REGISTRY").empty()) {
            EXPECT_NE(german.find("Registrierung werden immer endg\xFCltig gel\xF6scht"), std::string::npos)
                << file.name;
            EXPECT_NE(english.find("Registry entries are always deleted for good"), std::string::npos) << file.name;
        }
    }
}

TEST_F(DeliveredPlugInFiles, DefineVariablesOfTheirOwnOnly) {
    for (const File& file : files) {
        std::string known;
        const std::string commands = file.bytes.substr(std::min(file.bytes.find("[FILES]"), file.bytes.size()));
        for (const PlugInLine& line : file.section("VARIABLES")) {
            EXPECT_TRUE(line.key.starts_with(kOwnPrefix)) << file.name << ": " << line.key;
            for (const std::string& name : variablesIn(line.value)) {
                EXPECT_TRUE(isWindowsVariable(name) || known.find("%" + name + "%") != std::string::npos)
                    << file.name << ": " << name;
            }
            known += "%" + line.key + "%";
            EXPECT_NE(commands.find("%" + line.key + "%"), std::string::npos)
                << file.name << ": nobody uses " << line.key;
        }
    }
}

TEST_F(DeliveredPlugInFiles, DeleteByKnownCommandsAndStartNothing) {
    const std::set<std::string> commands = {"DEL_FILE", "DEL_FOLDER", "CLEAR_FOLDER"};
    for (const File& file : files) {
        for (const PlugInLine& line : file.section("FILES")) {
            const Argument argument = argumentOf(line);
            EXPECT_EQ(commands.count(argument.command), 1u) << file.name << ": " << line.value;
            EXPECT_EQ(argument.path, base::trimBlanks(argument.path)) << file.name << ": " << line.value;
        }
    }
}

TEST_F(DeliveredPlugInFiles, BeginEveryPathWithAVariableThatWindowsHas) {
    for (const File& file : files) {
        for (const PlugInLine& line : file.section("FILES")) {
            const std::string path = file.spelledOut(argumentOf(line).path);
            const Texts names = variablesIn(path);
            ASSERT_EQ(names.size(), 1u) << file.name << ": " << path;
            EXPECT_TRUE(isWindowsVariable(names[0])) << file.name << ": " << path;
            EXPECT_TRUE(path.starts_with("%" + names[0] + "%\\")) << file.name << ": " << path;
            EXPECT_EQ(path.find("\\\\"), std::string::npos) << file.name << ": " << path;
            EXPECT_EQ(path.find_first_of("/:<>\""), std::string::npos) << file.name << ": " << path;
        }
    }
}

TEST_F(DeliveredPlugInFiles, UseWildcardsOnlyInTheLastPart) {
    for (const File& file : files) {
        for (const PlugInLine& line : file.section("FILES")) {
            const Argument argument = argumentOf(line);
            const std::size_t sign = argument.path.rfind('\\');
            ASSERT_NE(sign, std::string::npos) << file.name << ": " << line.value;
            const std::string name = argument.path.substr(sign + 1);
            EXPECT_FALSE(name.empty()) << file.name << ": " << line.value;
            EXPECT_FALSE(base::hasWildcard(argument.path.substr(0, sign))) << file.name << ": " << line.value;
            if (argument.command == "CLEAR_FOLDER") {
                EXPECT_FALSE(base::hasWildcard(name)) << file.name << ": " << line.value;
            }
            // A mask has to ask for more than any name.
            EXPECT_FALSE(base::wildcardMatch(name, "name.ext") || base::wildcardMatch(name, "name"))
                << file.name << ": " << line.value;
        }
    }
}

TEST_F(DeliveredPlugInFiles, EmptyNoFolderThatIsMoreThanACache) {
    std::set<std::string> used;
    for (const File& file : files) {
        for (const PlugInLine& line : file.section("FILES")) {
            const Argument argument = argumentOf(line);
            const std::string path = file.spelledOut(argument.path);
            const Texts parts = base::split(path, "\\");
            ASSERT_GE(parts.size(), 2u) << file.name << ": " << path;
            if (parts[0] == "%USERPROFILE%") {
                for (const char* folder : kFoldersOfPeople) EXPECT_FALSE(base::equalNoCase(parts[1], folder)) << path;
            }
            if (!removesFolders(argument)) continue;
            // Directly in the profile, in the Windows folder or in a program folder lies what is a whole program's.
            const bool known = std::count(kKnownTopFolders.begin(), kKnownTopFolders.end(), path) == 1;
            if (known) used.insert(path);
            EXPECT_TRUE(parts.size() > 2 || known) << file.name << ": " << path;
        }
    }
    EXPECT_EQ(used.size(), kKnownTopFolders.size());
}

// An account has up to 20 characters; where its folder is taken already, the name of the computer (up to 15) and a
// number follow. Each may take two bytes in the code pages of East Asia.
TEST_F(DeliveredPlugInFiles, ExpandWithinTheBufferInTheLongestProfiles) {
    const std::string longest = std::string(40, 'u') + "." + std::string(30, 'c') + ".000";
    const std::string vista = "C:\\Users\\" + longest;
    const std::string xp = "C:\\Dokumente und Einstellungen\\" + longest;
    using Variables = std::vector<std::pair<std::string, std::string>>;
    const std::vector<Variables> systems = {
        {{"ALLUSERSPROFILE", "C:\\ProgramData"},
         {"APPDATA", vista + "\\AppData\\Roaming"},
         {"LOCALAPPDATA", vista + "\\AppData\\Local"},
         {"ProgramData", "C:\\ProgramData"},
         {"ProgramFiles", "C:\\Program Files"},
         {"ProgramFiles(x86)", "C:\\Program Files (x86)"},
         {"SystemDrive", "C:"},
         {"SystemRoot", "C:\\Windows"},
         {"TEMP", vista + "\\AppData\\Local\\Temp"},
         {"USERPROFILE", vista}},
        {{"ALLUSERSPROFILE", "C:\\Dokumente und Einstellungen\\All Users"},
         {"APPDATA", xp + "\\Anwendungsdaten"},
         {"ProgramFiles", "C:\\Programme"},
         {"SystemDrive", "C:"},
         {"SystemRoot", "C:\\WINDOWS"},
         {"TEMP", xp + "\\Lokale Einstellungen\\Temp"},
         {"USERPROFILE", xp}},
    };
    for (const Variables& system : systems) {
        for (const File& file : files) {
            platform::EnvironmentInMap environment;
            for (const auto& [name, value] : system) environment.set(name, value);
            std::string expanded;
            const auto fits = [&](const std::string& text) {
                return environment.ExpandEnvironmentStringsA(text, kLongestArgument + 1, expanded) <=
                       kLongestArgument + 1;
            };
            for (const PlugInLine& line : file.section("VARIABLES")) {
                EXPECT_FALSE(environment.get(line.key)) << file.name << " redefines " << line.key;
                EXPECT_TRUE(fits(line.value)) << file.name << ": " << line.value;
                environment.set(line.key, expanded);
            }
            for (const PlugInLine& line : file.section("FILES")) {
                EXPECT_TRUE(fits(argumentOf(line).path)) << file.name << ": " << line.value;
            }
        }
    }
}

TEST_F(DeliveredPlugInFiles, NameRegistryEntriesWithTheirFullRoots) {
    const std::set<std::string> roots = {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS",
                                         "HKEY_CURRENT_CONFIG"};
    for (const File& file : files) {
        for (const PlugInLine& line : file.section("REGISTRY")) {
            const Texts fields = base::split(line.value, "|");
            ASSERT_TRUE(fields.size() == 2 || fields.size() == 3) << file.name << ": " << line.value;
            EXPECT_EQ(roots.count(fields[0]), 1u) << file.name << ": " << line.value;
            EXPECT_EQ(line.value.find('%'), std::string::npos) << file.name << ": nothing is expanded here";
            for (const std::string& field : fields) {
                EXPECT_FALSE(field.empty()) << file.name << ": " << line.value;
                EXPECT_EQ(field, base::trimBlanks(field)) << file.name << ": no blank is dropped here";
            }
            // Software, a maker or a product, and something of it: never the whole of a product.
            EXPECT_GE(base::split(fields[1], "\\").size(), fields.size() == 2 ? 3u : 2u)
                << file.name << ": " << line.value;
            EXPECT_FALSE(fields[1].starts_with("\\") || fields[1].ends_with("\\")) << file.name << ": " << line.value;
        }
    }
}

TEST_F(DeliveredPlugInFiles, NameTheDeepestKeysFirst) {
    for (const File& file : files) {
        Texts keys;
        for (const PlugInLine& line : file.section("REGISTRY")) {
            const Texts fields = base::split(line.value, "|");
            for (const std::string& key : keys) {
                EXPECT_FALSE(base::startsWithNoCase(fields[1] + "\\", key + "\\"))
                    << file.name << ": a key with subkeys stays, and this line comes too late: " << line.value;
            }
            if (fields.size() == 2) keys.push_back(fields[1]);
        }
    }
}

}  // namespace
}  // namespace tidvane::tests
