#include "platform/common/profile_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "support/reference.h"

namespace tidvane::platform {
namespace {

using Text = std::string_view;

std::optional<std::string> optionalField(const tests::ReferenceRow& row, Text column) {
    if (row.isNull(column)) return std::nullopt;
    return row[column];
}

std::size_t sizeOf(const tests::ReferenceRow& row) {
    return std::stoul(row["buffer_size"]);
}

// --- reading
// ----------------------------------------------------------------------------------------------------------

// A UTF-8 mark is part of the first line. The recorded calls left it out, Windows does not.
bool startsWithMark(const tests::ReferenceRow& row) {
    return row["file_before"].starts_with("\xEF\xBB\xBF");
}

std::string readFrom(const std::string& file, const tests::ReferenceRow& row) {
    if (row["op"] == "section") return profileSection(file, row["section"], sizeOf(row));
    return profileString(file, optionalField(row, "section"), optionalField(row, "key"), row["default_or_value"],
                         sizeOf(row));
}

TEST(ProfileText, ReadsAsTheCallsDo) {
    const auto rows = tests::readReference("profile.tsv");
    const auto decisions = tests::readDecisions("profile_decisions.tsv");
    tests::ReferenceCheck check(decisions);
    for (const auto& row : rows) {
        if (row["op"] == "write" || row["op"] == "delete" || startsWithMark(row)) continue;
        check.compare(row, row["result_bytes"], readFrom(row["file_before"], row));
    }
    EXPECT_GT(check.compared(), 6000U);
    EXPECT_EQ(check.report(), "");
    EXPECT_EQ(decisions.unknownIds(rows), "");
}

TEST(ProfileText, TakesAUtf8MarkAsPartOfTheFirstLine) {
    std::size_t compared = 0;
    for (const auto& row : tests::readReference("profile.tsv")) {
        if (!startsWithMark(row) || row["op"] == "write" || row["op"] == "delete") continue;
        EXPECT_EQ(readFrom(row["file_before"], row), readFrom("xyz" + row["file_before"].substr(3), row)) << row.id();
        ++compared;
    }
    EXPECT_GT(compared, 10U);
    EXPECT_EQ(profileString("\xEF\xBB\xBF[a]\r\nk=v\r\n", "a", "k", "Err", 255), "Err");
    EXPECT_EQ(profileString("\xEF\xBB\xBF\r\n[a]\r\nk=v\r\n", "a", "k", "Err", 255), "v");
}

std::string get(Text file, const std::string& section, const std::string& key, std::size_t size = 255) {
    return profileString(file, section, key, "", size);
}

TEST(ProfileText, CutsAValueThatDoesNotFit) {
    const std::string file = "[a]\r\nk=" + std::string(300, 'v') + "\r\n";
    EXPECT_EQ(get(file, "a", "k", 256).size(), 255U);
    EXPECT_EQ(get(file, "a", "k", 301).size(), 300U);
    EXPECT_EQ(get(file, "a", "k", 1), "");
    EXPECT_EQ(get(file, "a", "k", 0), "");
}

TEST(ProfileText, DropsOuterBlanksAndOnePairOfQuotes) {
    const Text file = "[a]\nx=  plain \t\ny= \"/x y\" \nz=' \"in\" '\n";
    EXPECT_EQ(get(file, "A", "X"), "plain");
    EXPECT_EQ(get(file, "A", "Y"), "/x y");
    EXPECT_EQ(get(file, "A", "Z"), " \"in\" ");
}

TEST(ProfileText, EmptyValueReadsLikeAMissingKeyWithoutFallback) {
    EXPECT_EQ(get("[a]\r\nk=\r\n", "a", "k"), get("[a]\r\n", "a", "k"));
    EXPECT_EQ(profileString("[a]\r\nk=\r\n", "a", "k", "{ERR}", 255), "");
    EXPECT_EQ(profileString("[a]\r\n", "a", "k", "{ERR}", 255), "{ERR}");
}

// --- writing
// ----------------------------------------------------------------------------------------------------------

std::string trimmed(Text text) {
    constexpr Text blanks = " \t\v\f\x1A";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == Text::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

// A file without what a rewriting of the whole file loses: blank lines, outer blanks, kinds of line ends, texts behind
// headers, headers without a name, blanks at the end of a name, what follows a NUL.
std::string essence(Text file) {
    std::string result;
    for (std::size_t start = 0; start < file.size();) {
        const std::size_t end = std::min(file.find_first_of("\r\n", start), file.size());
        const Text whole = file.substr(start, end - start);
        std::string line = trimmed(whole.substr(0, whole.find('\0')));
        start = end + 1;
        const std::size_t close = line.rfind(']');
        if (line.starts_with("[") && close != Text::npos) {
            const std::string name = trimmed(Text(line).substr(1, close - 1));
            line = name.empty() ? "" : "[" + name + "]";
        } else if (const std::size_t sign = line.find('='); sign != Text::npos && !line.starts_with(";")) {
            line = trimmed(Text(line).substr(0, sign)) + "=" + trimmed(Text(line).substr(sign + 1));
        }
        if (!line.empty()) result += line + "\n";
    }
    return result;
}

// The part of `before` that `after` lacks.
std::string replacedPart(Text before, Text after) {
    std::size_t front = 0;
    while (front < before.size() && front < after.size() && before[front] == after[front]) ++front;
    std::size_t back = 0;
    while (back < before.size() - front && back < after.size() - front &&
           before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
        ++back;
    }
    return std::string(before.substr(front, before.size() - front - back));
}

std::string written(const tests::ReferenceRow& row) {
    return withProfileString(row["file_before"], row["section"], optionalField(row, "key"),
                             optionalField(row, "default_or_value"));
}

// The recorded calls rewrote the file in a form of their own; Windows leaves all other bytes. Where the file had that
// form before, the bytes have to agree, otherwise the lines.
TEST(ProfileText, WritesAsTheCallsDo) {
    const auto rows = tests::readReference("profile.tsv");
    const auto decisions = tests::readDecisions("profile_decisions.tsv");
    tests::ReferenceCheck check(decisions);
    for (const auto& row : rows) {
        if ((row["op"] != "write" && row["op"] != "delete") || startsWithMark(row)) continue;
        if (row.note().find("windows: only") != std::string::npos) {
            check.compare(row, essence(row["file_after"]), essence(written(row)));
        } else {
            check.compare(row, row["file_after"], written(row));
        }
    }
    EXPECT_GT(check.compared(), 1900U);
    EXPECT_EQ(check.report(), "");
    EXPECT_EQ(decisions.unknownIds(rows), "");
}

// Writing closes a last line that had no line end.
std::string closed(std::string file) {
    if (!file.empty() && file.back() != '\n' && file.back() != '\r') file += "\r\n";
    return file;
}

TEST(ProfileText, WritingTouchesOneLineAtMost) {
    for (const auto& row : tests::readReference("profile.tsv")) {
        if (row["op"] != "write" || row.isNull("key")) continue;
        EXPECT_EQ(replacedPart(closed(row["file_before"]), closed(written(row))).find_first_of("\r\n"),
                  std::string::npos)
            << row.id();
    }
}

TEST(ProfileText, RemovingAKeyTakesItsLineAndAddsNothing) {
    for (const auto& row : tests::readReference("profile.tsv")) {
        if (row["op"] != "delete") continue;
        const std::string before = closed(row["file_before"]);
        const std::string after = closed(written(row));
        EXPECT_EQ(replacedPart(after, before), "") << row.id();
        if (row.isNull("key")) continue;
        const std::string gone = replacedPart(before, after);
        EXPECT_LE(std::count(gone.begin(), gone.end(), '\n'), 1) << row.id();
    }
}

TEST(ProfileText, KeepsCommentsIndentationAndLineEnds) {
    const Text file = "; head\n\n  [a]  \n\tk = 1 ; kept\n\n[b]\r\nx=1\r\n\r\n";
    EXPECT_EQ(withProfileString(file, "A", "K", "2"), "; head\n\n  [a]  \n\tk =2\n\n[b]\r\nx=1\r\n\r\n");
    EXPECT_EQ(withProfileString(file, "a", "new", "2"),
              "; head\n\n  [a]  \n\tk = 1 ; kept\nnew=2\r\n\n[b]\r\nx=1\r\n\r\n");
    EXPECT_EQ(withProfileString(file, "c", "k", "2"), std::string(file) + "[c]\r\nk=2\r\n");
    EXPECT_EQ(withProfileString(file, "a", std::nullopt, std::nullopt), "; head\n\n[b]\r\nx=1\r\n\r\n");
    EXPECT_EQ(withProfileString(file, "b", "x", std::nullopt), "; head\n\n  [a]  \n\tk = 1 ; kept\n\n[b]\r\n\r\n");
    EXPECT_EQ(withProfileString(file, "b", "y", std::nullopt), file);
}

// Any bytes may stand in a file that somebody damaged.
TEST(ProfileText, WritesAValueInFrontOfANulThatWouldHideIt) {
    const std::string file("[a]\r\nkey\0\0=1\r\nother=2\r\n", 24);
    const std::string written = withProfileString(file, "a", "key", "new");
    EXPECT_EQ(get(written, "a", "key"), "new");
    EXPECT_EQ(get(written, "a", "other"), "2");
}

TEST(ProfileText, SurvivesBinaryFiles) {
    unsigned state = 1;
    for (int round = 0; round < 2000; ++round) {
        std::string file;
        for (int i = 0; i < 100; ++i) {
            state = state * 1664525U + 1013904223U;
            const unsigned pick = state >> 24;
            file += pick < 192 ? Text("[]=;\"' ak\r\n\0\x1A\xE4", 14)[pick % 14] : static_cast<char>(pick);
        }
        for (std::size_t size = 0; size < 12; ++size) {
            EXPECT_LT(profileString(file, "a", "k", "{ERR}", size).size(), std::max<std::size_t>(size, 1));
            EXPECT_LT(profileString(file, "a", std::nullopt, "", size).size(), std::max<std::size_t>(size, 1));
            EXPECT_LT(profileString(file, std::nullopt, std::nullopt, "", size).size(), std::max<std::size_t>(size, 1));
            EXPECT_LT(profileSection(file, "a", size).size(), std::max<std::size_t>(size, 1));
        }
        const std::string changed = withProfileString(file, "a", "k", "value");
        EXPECT_EQ(get(changed, "a", "k"), "value");
    }
}

TEST(ProfileText, ReadsAHugeFileOnce) {
    std::string file;
    file.reserve(100'000'100);
    const std::string entry = "some key=" + std::string(200, 'v') + "\n";
    for (int i = 0; file.size() < 100'000'000; ++i) file += i % 3 == 0 ? "[a]\n" : entry;
    file += "[last]\r\nk=v\r\n";
    EXPECT_EQ(get(file, "last", "k"), "v");
    EXPECT_EQ(get(std::string(100'000'000, '['), "last", "k"), "");
    EXPECT_EQ(get(std::string(10'000'000, '\r'), "last", "k"), "");
    EXPECT_EQ(get(std::string(100'000'000, '\0'), "last", "k"), "");
    EXPECT_EQ(withProfileString(file, "last", "k", "w").size(), file.size());
}

}  // namespace
}  // namespace tidvane::platform
