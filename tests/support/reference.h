// Reads the tables of recorded answers in tests/reference and compares rows with what the program answers.
//
// A table is a TSV file: its first line is "# " and the column names, fields have the escapes \t \r \n \\ \xHH and are
// bytes of code page 1252, \N stands for a null pointer. The environment variable TIDVANE_REFERENCE names another
// directory with tables of the same names and columns, which is then read instead.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tidvane::tests {

class ReferenceRow {
public:
    using Columns = std::map<std::string, std::size_t, std::less<>>;
    struct Field {
        std::string text;
        bool null = false;
    };

    ReferenceRow(std::shared_ptr<const Columns> columns, std::vector<Field> fields)
        : columns_(std::move(columns)), fields_(std::move(fields)) {}

    // The unescaped bytes; empty for a null pointer. A column the table does not have throws: a mistake of the test.
    const std::string& operator[](std::string_view column) const { return field(column).text; }
    [[nodiscard]] bool isNull(std::string_view column) const { return field(column).null; }
    [[nodiscard]] const std::string& id() const { return field("id").text; }
    [[nodiscard]] const std::string& note() const { return field("note").text; }
    // The recorded answer is known to differ from Windows.
    [[nodiscard]] bool differsFromWindows() const { return note().starts_with("windows:"); }

private:
    [[nodiscard]] const Field& field(std::string_view column) const;

    std::shared_ptr<const Columns> columns_;
    std::vector<Field> fields_;
};

// Rows of a table in the order of the file. Throws when the file cannot be read or has a broken line.
std::vector<ReferenceRow> readReference(std::string_view file, std::string_view directory);

// True where TIDVANE_REFERENCE is set: the rows are then not the ones that the decisions were made for.
bool otherReferenceInUse();

// What we decided to answer in place of a recorded row, one line each: id, expected, reason. Always read from the
// project's own directory, since the decisions are ours. A table that is not there holds no decisions.
class Decisions {
public:
    Decisions(std::string_view file, std::string_view directory);

    // Null where the row stands as it is.
    [[nodiscard]] const std::string* expected(std::string_view id) const;
    // Lines whose id no row has, each with a reason; empty when all are known or another reference is in use.
    [[nodiscard]] std::string unknownIds(const std::vector<ReferenceRow>& rows) const;

private:
    std::map<std::string, std::string, std::less<>> expected_;
};

// Collects the rows that disagree. One comparison a row: join several results of one row into one text.
class ReferenceCheck {
public:
    using Equal = std::function<bool(const std::string&, const std::string&)>;

    explicit ReferenceCheck(const Decisions& decisions, Equal equal = std::equal_to<>())
        : decisions_(decisions), equal_(std::move(equal)) {}

    // `recorded` is what the row says, `actual` the program's answer. Where there is a decision it is expected instead,
    // and it has to differ from the row: otherwise the line is superfluous and counts as a failure.
    void compare(const ReferenceRow& row, const std::string& recorded, const std::string& actual);
    [[nodiscard]] std::size_t compared() const { return compared_; }
    // Empty when all rows agree; otherwise how many do not, with the first 20. No row at all is a failure too.
    [[nodiscard]] std::string report() const;

private:
    const Decisions& decisions_;
    Equal equal_;
    std::size_t compared_ = 0;
    std::vector<std::string> failures_;
};

// The form a table has, for messages: control signs and bytes beyond ASCII escaped.
std::string escaped(std::string_view bytes);

#ifdef TIDVANE_REFERENCE_DIR
// For test programs, which know where the tables are.
inline std::vector<ReferenceRow> readReference(std::string_view file) {
    return readReference(file, TIDVANE_REFERENCE_DIR);
}
inline Decisions readDecisions(std::string_view file) {
    return {file, TIDVANE_REFERENCE_DIR};
}
#endif

}  // namespace tidvane::tests
