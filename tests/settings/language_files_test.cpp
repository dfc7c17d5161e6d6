// The delivered language files against the table of texts the program reads. The files are read here by their
// documented form alone: three digits, one separator, the text from the fifth character on, ";" in front of comments.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct TableRow {
    std::string kinds;
    bool sameOk = false;
    bool emptyOk = false;
    std::string blank;  // where a text has an outer blank: "none", "begins" or "ends"
};
using Table = std::map<int, TableRow>;

// The texts as stored, in code page 1252 and with "_" for a line break; an index may come more than once.
using Entries = std::multimap<int, std::string>;
using Faults = std::vector<std::string>;

constexpr int kFirstTask = 200;
constexpr int kLastTask = 260;
constexpr int kFirstRemovalMethod = 732;
constexpr int kLastRemovalMethod = 734;
constexpr int kTrayTip = 566;
constexpr std::size_t kTrayTipCharacters = 63;

const char* const kEnglish = TIDVANE_SOURCE_DIR "/data/English.lng";
const char* const kGerman = TIDVANE_SOURCE_DIR "/data/languages/Deutsch (German).lng";

std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

Table readTable() {
    Table table;
    const auto lines = split(readBytes(TIDVANE_REFERENCE_DIR "/language_indexes.tsv"), '\n');
    for (const auto& line : lines) {
        if (line.starts_with("#")) continue;
        const auto fields = split(line, '\t');
        if (fields.size() != 6) {
            ADD_FAILURE() << "broken line: " << line;
            continue;
        }
        const bool isNew =
            table.emplace(std::stoi(fields[0]), TableRow{fields[1], fields[3] == "1", fields[5] == "1", fields[4]})
                .second;
        EXPECT_TRUE(isNew) << fields[0] << " stands twice in the table";
    }
    return table;
}

bool isDigit(char sign) {
    return std::isdigit(static_cast<unsigned char>(sign)) != 0;
}

// Adds a fault for each line that is neither a comment, blank nor three digits and a blank.
Entries parse(const std::string& bytes, Faults& faults) {
    Entries entries;
    int number = 0;
    for (auto line : split(bytes, '\n')) {
        ++number;
        if (line.ends_with('\r')) line.pop_back();
        if (line.starts_with(';') || line.find_first_not_of(' ') == std::string::npos) continue;
        const bool formed =
            line.size() >= 4 && isDigit(line[0]) && isDigit(line[1]) && isDigit(line[2]) && line[3] == ' ';
        if (!formed) {
            faults.push_back("line " + std::to_string(number) + " does not begin with three digits and a blank");
            continue;
        }
        entries.emplace(std::stoi(line.substr(0, 3)), line.substr(4));
    }
    return entries;
}

std::string fault(int index, const std::string& what) {
    return std::to_string(index) + ": " + what;
}

// Bytes: the code page, the line ends, no tab and no other control sign.
Faults faultsOfBytes(const std::string& bytes) {
    // These five values stand for nothing in code page 1252.
    constexpr std::string_view kUnused = "\x81\x8D\x8F\x90\x9D";
    Faults faults;
    if (!bytes.ends_with("\r\n")) faults.emplace_back("the last line has no CR LF");
    int line = 1;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto value = static_cast<unsigned char>(bytes[at]);
        const std::string where = "line " + std::to_string(line) + ": ";
        if (bytes[at] == '\n') {
            if (at == 0 || bytes[at - 1] != '\r') faults.push_back(where + "LF without CR");
            ++line;
        } else if (bytes[at] == '\r') {
            if (at + 1 == bytes.size() || bytes[at + 1] != '\n') faults.push_back(where + "CR without LF");
        } else if (value < 0x20 || value == 0x7F) {
            faults.push_back(where + "control sign " + std::to_string(value));
        } else if (kUnused.find(bytes[at]) != std::string_view::npos) {
            faults.push_back(where + "not a sign of code page 1252: " + std::to_string(value));
        }
    }
    // Text in UTF-8 passes for code page 1252 in most places; its umlauts give it away.
    for (const std::string_view umlaut :
         {"\xC3\xA4", "\xC3\xB6", "\xC3\xBC", "\xC3\x84", "\xC3\x96", "\xC3\x9C", "\xC3\x9F"}) {
        if (bytes.find(umlaut) != std::string::npos) faults.emplace_back("holds UTF-8");
    }
    return faults;
}

Faults faultsOfIndexes(const Entries& entries, const Table& table) {
    Faults faults;
    for (const auto& [index, row] : table) {
        const auto count = entries.count(index);
        if (count == 0) faults.push_back(fault(index, "missing"));
        if (count > 1) faults.push_back(fault(index, "present " + std::to_string(count) + " times"));
    }
    for (const auto& [index, text] : entries) {
        if (!table.contains(index)) faults.push_back(fault(index, "never read: " + text));
    }
    return faults;
}

bool isMenuOnly(const TableRow& row) {
    return row.kinds == "menu";
}

Faults faultsOfTexts(const Entries& entries, const Table& table) {
    Faults faults;
    for (const auto& [index, text] : entries) {
        const auto row = table.find(index);
        if (row == table.end()) continue;
        if (text.find_first_not_of(" _") == std::string::npos) {
            if (!row->second.emptyOk) faults.push_back(fault(index, "empty"));
            continue;
        }
        const bool begins = text.starts_with(' ');
        const bool ends = text.ends_with(' ');
        if (begins != (row->second.blank == "begins")) faults.push_back(fault(index, "blank at the start: " + text));
        if (ends != (row->second.blank == "ends")) faults.push_back(fault(index, "blank at the end: " + text));
        if (text.find("  ") != std::string::npos) faults.push_back(fault(index, "two blanks in a row: " + text));
        // A text with "&" shows the sign as it stands everywhere except in a menu or on a button.
        if (text.find('&') != std::string::npos && !isMenuOnly(row->second)) {
            faults.push_back(fault(index, "\"&\" outside a menu: " + text));
        }
    }
    return faults;
}

// Texts the program finds rows and choices by: an equal one would take the place of another.
Faults faultsOfKeys(const Entries& entries, int first, int last) {
    Faults faults;
    std::map<std::string, int> seen;
    for (auto entry = entries.lower_bound(first); entry != entries.end() && entry->first <= last; ++entry) {
        const auto [other, isNew] = seen.emplace(entry->second, entry->first);
        if (!isNew && other->second != entry->first) {
            faults.push_back(
                fault(entry->first, "the same as " + std::to_string(other->second) + ": " + entry->second));
        }
    }
    return faults;
}

std::size_t lineBreaks(const std::string& text) {
    std::size_t count = 0;
    for (const char sign : text) count += sign == '_' ? 1 : 0;
    return count;
}

Faults faultsBetween(const Entries& one, const Entries& other, const Table& table) {
    Faults faults;
    for (const auto& [index, text] : one) {
        const auto counterpart = other.find(index);
        const auto row = table.find(index);
        if (counterpart == other.end() || row == table.end()) continue;
        if (text == counterpart->second && !row->second.sameOk) {
            faults.push_back(fault(index, "equal in both languages: " + text));
        }
        if (lineBreaks(text) != lineBreaks(counterpart->second)) {
            faults.push_back(fault(index, "line breaks differ: " + text + " / " + counterpart->second));
        }
    }
    return faults;
}

std::string listed(const Faults& faults) {
    std::string all;
    for (const auto& one : faults) all += "\n  " + one;
    return all;
}

class LanguageFile : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        bytes_ = readBytes(GetParam());
        entries_ = parse(bytes_, badLines_);
    }

    std::string bytes_;
    Faults badLines_;
    Entries entries_;
    Table table_ = readTable();
};

INSTANTIATE_TEST_SUITE_P(Delivered, LanguageFile, testing::Values(kEnglish, kGerman),
                         [](const auto& file) { return file.param == kEnglish ? "English" : "German"; });

TEST_P(LanguageFile, IsCodePage1252WithWindowsLineEnds) {
    const auto faults = faultsOfBytes(bytes_);
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

TEST_P(LanguageFile, HasNoBrokenLine) {
    EXPECT_TRUE(badLines_.empty()) << listed(badLines_);
}

TEST_P(LanguageFile, GivesEveryTextOnceAndNoneThatIsNeverRead) {
    ASSERT_EQ(table_.size(), 591U);
    const auto faults = faultsOfIndexes(entries_, table_);
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

TEST_P(LanguageFile, HasNoEmptyTextAndOuterBlanksOnlyWhereTextsJoin) {
    const auto faults = faultsOfTexts(entries_, table_);
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

TEST_P(LanguageFile, NamesEveryTaskDifferently) {
    const auto faults = faultsOfKeys(entries_, kFirstTask, kLastTask);
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

// Whoever ticks a task must see by its name what goes besides what he may expect.
TEST_P(LanguageFile, NamesWhatElseATaskRemoves) {
    struct Row {
        int task;
        std::vector<std::string> english;
        std::vector<std::string> german;  // in code page 1252
    };
    const std::vector<Row> rows{
        {237, {"form entries"}, {"Formulareintr\xE4ge"}},
        {240, {"site settings"}, {"Website-Einstellungen"}},
        {252, {"open tabs", "top sites"}, {"offene Tabs", "meistbesuchte Seiten"}},
        {256, {"form entries", "search engines"}, {"Formulareintr\xE4ge", "Suchmaschinen"}},
        {257, {"last session", "page previews"}, {"letzte Sitzung", "Seitenvorschauen"}},
    };
    for (const Row& row : rows) {
        const auto entry = entries_.find(row.task);
        ASSERT_NE(entry, entries_.end()) << row.task;
        for (const std::string& words : std::string(GetParam()) == kEnglish ? row.english : row.german) {
            EXPECT_NE(entry->second.find(words), std::string::npos) << row.task << ": " << entry->second;
        }
    }
}

TEST_P(LanguageFile, NamesEveryRemovalMethodDifferently) {
    const auto faults = faultsOfKeys(entries_, kFirstRemovalMethod, kLastRemovalMethod);
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

TEST_P(LanguageFile, KeepsTheTipOfTheTrayIconShort) {
    const auto tip = entries_.find(kTrayTip);
    ASSERT_NE(tip, entries_.end());
    EXPECT_LE((" - Tidvane - " + tip->second).size(), kTrayTipCharacters);
}

TEST(LanguageFiles, DifferFromEachOtherWhereTheyMust) {
    Faults unused;
    const auto faults =
        faultsBetween(parse(readBytes(kEnglish), unused), parse(readBytes(kGerman), unused), readTable());
    EXPECT_TRUE(faults.empty()) << listed(faults);
}

TEST(LanguageFiles, AreCheckedByChecksThatFindEveryKindOfFault) {
    const Table table = {{200, {"list", false, false, "none"}},
                         {201, {"list", false, false, "none"}},
                         {202, {"menu", true, false, "none"}},
                         {530, {"log", false, false, "ends"}},
                         {997, {"meta", true, true, "none"}}};
    Faults lines;
    const auto entries =
        parse("; note\r\n200 One \r\n201 Two\r\n201 Two\r\n  ; no comment\r\n530 over\r\n777 x\r\n997 \r\n", lines);
    EXPECT_EQ(lines, Faults{"line 5 does not begin with three digits and a blank"});
    EXPECT_EQ(faultsOfIndexes(entries, table), (Faults{"201: present 2 times", "202: missing", "777: never read: x"}));
    EXPECT_EQ(faultsOfTexts(entries, table), (Faults{"200: blank at the end: One ", "530: blank at the end: over"}));

    const Entries wrong = {{200, "Same"}, {201, "Same"}, {202, "&Menu"}, {530, ""}};
    EXPECT_EQ(faultsOfKeys(wrong, 200, 260), Faults{"201: the same as 200: Same"});
    EXPECT_EQ(faultsOfTexts(wrong, table), Faults{"530: empty"});
    EXPECT_EQ(faultsOfTexts({{200, "R&D"}}, table), Faults{"200: \"&\" outside a menu: R&D"});
    EXPECT_EQ(faultsBetween({{200, "A"}, {201, "B_C"}, {202, "D"}}, {{200, "A"}, {201, "E"}, {202, "D"}}, table),
              (Faults{"200: equal in both languages: A", "201: line breaks differ: B_C / E"}));

    EXPECT_EQ(faultsOfBytes("a\tb\n"),
              (Faults{"the last line has no CR LF", "line 1: control sign 9", "line 1: LF without CR"}));
    EXPECT_EQ(faultsOfBytes("\x81\r\n\xC3\xA4\r\n"),
              (Faults{"line 1: not a sign of code page 1252: 129", "holds UTF-8"}));
    EXPECT_TRUE(faultsOfBytes("\xE4\xDF\r\n").empty());
}

}  // namespace
