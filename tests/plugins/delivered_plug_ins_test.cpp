// Every delivered plug-in on a machine that holds what all of them remove, and what has to survive beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "plugins/delivered_plug_ins.h"
#include "plugins/plug_in_fixture.h"

namespace tidvane::tests {
namespace {

using Variables = std::vector<std::pair<std::string, std::string>>;

constexpr int kMethods = 3;  // delete, recycle bin, overwrite

struct SampleSystem {
    const char* name;
    Variables variables;
};

const std::vector<SampleSystem>& sampleSystems() {
    static const std::vector<SampleSystem> kSystems{
        {"vista",
         {{"ALLUSERSPROFILE", "C:\\ProgramData"},
          {"APPDATA", "C:\\Users\\Anna\\AppData\\Roaming"},
          {"LOCALAPPDATA", "C:\\Users\\Anna\\AppData\\Local"},
          {"ProgramData", "C:\\ProgramData"},
          {"ProgramFiles", "C:\\Program Files"},
          {"ProgramFiles(x86)", "C:\\Program Files (x86)"},
          {"SystemDrive", "C:"},
          {"SystemRoot", "C:\\Windows"},
          {"TEMP", "C:\\Users\\Anna\\AppData\\Local\\Temp"},
          {"USERPROFILE", "C:\\Users\\Anna"}}},
        {"xp",
         {{"ALLUSERSPROFILE", "C:\\Documents and Settings\\All Users"},
          {"APPDATA", "C:\\Documents and Settings\\Anna\\Application Data"},
          {"ProgramFiles", "C:\\Program Files"},
          {"SystemDrive", "C:"},
          {"SystemRoot", "C:\\WINDOWS"},
          {"TEMP", "C:\\Documents and Settings\\Anna\\Local Settings\\Temp"},
          {"USERPROFILE", "C:\\Documents and Settings\\Anna"}}},
        {"xp-german",
         {{"ALLUSERSPROFILE", "C:\\Dokumente und Einstellungen\\All Users"},
          {"APPDATA", "C:\\Dokumente und Einstellungen\\Anna\\Anwendungsdaten"},
          {"ProgramFiles", "C:\\Programme"},
          {"SystemDrive", "C:"},
          {"SystemRoot", "C:\\WINDOWS"},
          {"TEMP", "C:\\Dokumente und Einstellungen\\Anna\\Lokale Einstellungen\\Temp"},
          {"USERPROFILE", "C:\\Dokumente und Einstellungen\\Anna"}}},
    };
    return kSystems;
}

const std::vector<TraceRow>& traces() {
    static const std::vector<TraceRow> kRows = deliveredTraces();
    return kRows;
}

std::vector<TraceRow> rowsOf(const std::string& plugIn) {
    std::vector<TraceRow> rows;
    for (const TraceRow& row : traces()) {
        if (row.plugIn == plugIn) rows.push_back(row);
    }
    return rows;
}

// What stands in the table where a row is told in a snapshot.
std::string entryOf(const TraceRow& row) {
    switch (row.kind) {
        case TraceRow::Kind::File:
            return row.path;
        case TraceRow::Kind::Folder:
            return row.path + "\\";
        case TraceRow::Kind::Key:
            return "HKEY_CURRENT_USER|" + row.path;
        case TraceRow::Kind::Value:
            break;
    }
    return "HKEY_CURRENT_USER|" + row.path + "|" + row.value;
}

class DeliveredPlugIns : public PlugInFixture {
protected:
    // Every entry of the machine with its bytes: files, folders, keys and values.
    using State = std::map<std::string, std::string>;

    void beOn(const SampleSystem& system) {
        system_ = system.name;
        for (const auto& [name, value] : machine.environment.all()) machine.environment.remove(name);
        for (const auto& [name, value] : system.variables) machine.environment.set(name, value);
    }

    void furnish(const std::vector<TraceRow>& rows) {
        for (const TraceRow& row : rows) {
            if (row.system == system_) furnish(row);
        }
    }

    void furnish(const TraceRow& row) {
        switch (row.kind) {
            case TraceRow::Kind::File:
                machine.files.putFile(row.path, "content of " + row.path);
                machine.files.setAttributes(row.path, row.attributes | platform::attribute::Archive);
                return;
            case TraceRow::Kind::Folder:
                machine.files.putFolder(row.path);
                return;
            case TraceRow::Kind::Key:
                keyAt(row.path)->setText("0", "an entry of " + row.path);
                return;
            case TraceRow::Kind::Value:
                keyAt(row.path)->setText(row.value, "data of " + row.value);
                return;
        }
    }

    void run(const std::string& path) {
        cleaner.setFilename(path);
        cleaner.PhasePlugInfo();
    }

    static std::string placeOf(const std::string& plugIn) { return inFolder("PlugIns\\" + plugIn + ".tdp"); }
    void putAllPlugIns() {
        for (const std::string& name : deliveredPlugIns()) {
            machine.files.putFile(placeOf(name), deliveredPlugIn(name));
        }
    }

    bool stands(const TraceRow& row) {
        if (row.kind == TraceRow::Kind::File) return machine.files.has(row.path);
        if (row.kind == TraceRow::Kind::Folder) return machine.files.hasFolder(row.path);
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(row.path, "\\")) {
            if (key != nullptr) key = key->find(part);
        }
        return key != nullptr && (row.kind == TraceRow::Kind::Key || key->findValue(row.value) != nullptr);
    }

    State state() {
        State result;
        for (const std::string& path : machine.files.everythingBelow("C:\\")) {
            std::string& bytes = result[path];
            if (path.ends_with("\\")) continue;
            bytes = std::to_string(machine.files.attributesOf(path)) + ": " + *machine.files.bytesOf(path);
        }
        addKeys("HKEY_CURRENT_USER|", "", *machine.registryTree.currentUser(), result);
        addKeys("HKEY_LOCAL_MACHINE|", "", *machine.registryTree.machine(), result);
        return result;
    }

    // Takes from a state what the table says that goes.
    void takeGoing(State& from, const std::vector<TraceRow>& rows) {
        for (const TraceRow& row : rows) {
            if (!row.goes || row.system != system_) continue;
            const std::string entry = entryOf(row);
            EXPECT_EQ(from.count(entry), 1u) << "the sample does not hold " << entry;
            from.erase(entry);
            if (row.kind == TraceRow::Kind::Key) from.erase(entry + "|0");
        }
    }

    static std::string difference(const State& expected, const State& actual) {
        std::string text;
        for (const auto& [entry, bytes] : expected) {
            const auto found = actual.find(entry);
            if (found == actual.end()) text += "gone, and should have stayed: " + entry + "\n";
            if (found != actual.end() && found->second != bytes) text += "changed: " + entry + "\n";
        }
        for (const auto& [entry, bytes] : actual) {
            if (expected.count(entry) == 0) text += "there, and should have gone: " + entry + "\n";
        }
        return text;
    }

    // What the guards refused, but for the paths of a variable that this system does not have.
    std::string refusals() const {
        std::string text;
        for (const platform::Warning& warning : machine.warnings) {
            if (!warning.target.starts_with("%")) text += warning.text + "\n";
        }
        return text;
    }

    void expectWhatTheTableSays(const SampleSystem& system, int method) {
        start();
        beOn(system);
        chooseMethod(method);
        putAllPlugIns();
        furnish(traces());
        const Variables variables = machine.environment.all();
        const State whole = state();
        for (const std::string& name : deliveredPlugIns()) {
            SCOPED_TRACE(name + " on " + system.name + ", removal method " + std::to_string(method));
            const std::vector<TraceRow> rows = rowsOf(name);
            State expected = whole;
            takeGoing(expected, rows);

            run(placeOf(name));

            const std::string wrong = difference(expected, state());
            EXPECT_EQ(wrong, "");
            EXPECT_EQ(machine.environment.all(), variables);
            EXPECT_TRUE(machine.shell.started.empty());
            EXPECT_EQ(refusals(), "");
            machine.warnings.clear();
            machine.shell.recycled.clear();
            furnish(wrong.empty() ? rows : traces());
        }
        EXPECT_EQ(difference(whole, state()), "");
    }

private:
    platform::RegistryKeyPtr keyAt(const std::string& path) {
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(path, "\\")) key = key->findOrAdd(part);
        return key;
    }

    static void addKeys(const std::string& hive, const std::string& path, const platform::RegistryKey& key,
                        State& result) {
        for (const platform::RegistryValue& value : key.values()) {
            result[hive + path + "|" + value.name] = std::to_string(value.type) + ": " + value.data;
        }
        for (const platform::RegistryKeyPtr& child : key.children()) {
            const std::string below = path.empty() ? child->name() : path + "\\" + child->name();
            result[hive + below];
            addKeys(hive, below, *child, result);
        }
    }

    std::string system_;
};

TEST(DeliveredPlugInTable, KnowsEveryPlugInAndNoOther) {
    const std::vector<std::string> names = deliveredPlugIns();
    EXPECT_GE(names.size(), 30u);
    std::set<std::string> told;
    for (const TraceRow& row : traces()) told.insert(row.plugIn);
    EXPECT_EQ(told, std::set<std::string>(names.begin(), names.end()));
}

TEST(DeliveredPlugInTable, TellsAtLeastTwoEntriesThatGoAndTwoThatStay) {
    for (const std::string& name : deliveredPlugIns()) {
        int goes = 0;
        int stays = 0;
        for (const TraceRow& row : rowsOf(name)) (row.goes ? goes : stays) += 1;
        EXPECT_GE(goes, 2) << name;
        EXPECT_GE(stays, 2) << name;
    }
}

TEST(DeliveredPlugInTable, TellsEachEntryOfASystemOnce) {
    std::set<std::string> systems;
    for (const SampleSystem& system : sampleSystems()) systems.insert(system.name);
    std::set<std::string> seen;
    for (const TraceRow& row : traces()) {
        EXPECT_EQ(systems.count(row.system), 1u) << row.text;
        EXPECT_TRUE(seen.insert(row.system + "\t" + base::upperCase(entryOf(row))).second) << row.text;
    }
}

TEST_F(DeliveredPlugIns, RemoveOnWindowsVistaAndLaterWhatTheTableSaysAndNothingElse) {
    for (int method = 0; method < kMethods; ++method) expectWhatTheTableSays(sampleSystems()[0], method);
}

TEST_F(DeliveredPlugIns, RemoveOnWindowsXpWhatTheTableSaysAndNothingElse) {
    for (int method = 0; method < kMethods; ++method) expectWhatTheTableSays(sampleSystems()[1], method);
}

TEST_F(DeliveredPlugIns, RemoveOnAGermanWindowsXpWhatTheTableSaysAndNothingElse) {
    for (int method = 0; method < kMethods; ++method) expectWhatTheTableSays(sampleSystems()[2], method);
}

// A line that could be left out would be a line that nobody has tried.
TEST_F(DeliveredPlugIns, NeedEachOfTheirLines) {
    start();
    for (const std::string& name : deliveredPlugIns()) {
        const std::string bytes = deliveredPlugIn(name);
        std::vector<TraceRow> going = rowsOf(name);
        going.erase(std::remove_if(going.begin(), going.end(), [](const TraceRow& row) { return !row.goes; }),
                    going.end());
        for (const PlugInLine& line : linesOfPlugIn(bytes)) {
            if (line.section == "Info") continue;
            std::string without = bytes.substr(0, line.start) + bytes.substr(line.end);
            // A section FILES without a line would end the pass; the one that is left does nothing.
            if (line.section == "FILES") without += "Nothing=NOTHING|C:\\\r\n";
            machine.files.putFile(file, without);
            bool missed = false;
            for (const SampleSystem& system : sampleSystems()) {
                beOn(system);
                furnish(going);
                run(file);
                missed = missed || std::any_of(going.begin(), going.end(), [&](const TraceRow& row) {
                             return row.system == system.name && stands(row);
                         });
            }
            EXPECT_TRUE(missed) << name << " does as much without " << line.key << "=" << line.value;
        }
    }
}

TEST_F(DeliveredPlugIns, AreReadAsTheyAreWritten) {
    start();
    putAllPlugIns();
    for (const std::string& name : deliveredPlugIns()) {
        const std::string bytes = deliveredPlugIn(name);
        cleaner.setFilename(placeOf(name));
        std::map<std::string, std::string> written;
        for (const PlugInLine& line : linesOfPlugIn(bytes)) {
            if (line.section == "Info") written[line.key] = program.codePage().toUtf8(line.value);
        }
        EXPECT_TRUE(cleaner.IsLoaded()) << name;
        EXPECT_EQ(cleaner.PlugTitle(), written["Title"]);
        EXPECT_EQ(cleaner.PlugDescription(), written["Description"]);
        EXPECT_EQ(cleaner.PlugDescriptionEnglish(), written["Description2"]);
        EXPECT_EQ(cleaner.PlugAuthor(), written["Author"]);
        EXPECT_EQ(cleaner.PlugWarning(), written["Warning"]);
        EXPECT_EQ(cleaner.PlugWarningEnglish(), written["Warning2"]);
    }
}

}  // namespace
}  // namespace tidvane::tests
