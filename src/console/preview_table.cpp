#include "console/preview_table.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "console/console_display.h"
#include "console/options.h"
#include "removal/modKillMethod.h"

namespace tidvane::console {

namespace {

using platform::RemovalTotals;

struct Row {
    std::string number;
    std::string name;
    RemovalTotals removed;
    const std::vector<platform::RemovedEntry>* entries = nullptr;
};

struct Column {
    const char* head;
    std::uint64_t RemovalTotals::*count;
};
constexpr std::array kColumns{
    Column{"Files", &RemovalTotals::files}, Column{"Folders", &RemovalTotals::folders},
    Column{"Keys", &RemovalTotals::keys},   Column{"Values", &RemovalTotals::values},
    Column{"Bytes", &RemovalTotals::bytes}, Column{"Failed", &RemovalTotals::failed},
};

constexpr const char* kGap = "  ";
constexpr const char* kForGood = "  (for good)";

std::string right(const std::string& text, std::size_t width) {
    return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

std::vector<Row> rowsOf(const Report& report) {
    std::vector<Row> rows;
    RemovalTotals rest = report.total;
    for (const ReportedStep& step : report.steps) {
        rest -= step.removed;
        if (step.removed == RemovalTotals()) continue;
        rows.push_back({std::to_string(step.number), step.key, step.removed, &step.entries});
    }
    if (report.search && rest != RemovalTotals()) {
        rows.push_back({"", report.search->mask + " below " + report.search->folder, rest, &report.otherEntries});
    } else if (rest != RemovalTotals()) {
        rows.push_back({"", "Before and behind the run", rest, &report.otherEntries});
    }
    return rows;
}

// Who chose the recycle bin has to see what does not go there; without that choice everything goes for good.
void writeEntries(std::ostream& out, const std::vector<platform::RemovedEntry>& entries, bool markForGood) {
    for (const platform::RemovedEntry& entry : entries) {
        const bool folder = entry.kind == platform::RemovedKind::Folder;
        out << "      " << printable(folder ? base::withBackslash(entry.path) : entry.path)
            << (markForGood && !entry.recycled ? kForGood : "") << "\n";
    }
}

}  // namespace

void writePreviewTable(std::ostream& out, const Report& report) {
    const bool markForGood = report.method == methodName(removal::KillRecycle);
    std::vector<Row> rows = rowsOf(report);
    rows.push_back({"", "Total", report.total, nullptr});

    std::size_t nameWidth = 4;
    std::array<std::size_t, kColumns.size()> widths{};
    for (std::size_t at = 0; at < kColumns.size(); ++at) widths[at] = std::string(kColumns[at].head).size();
    for (const Row& row : rows) {
        nameWidth = std::max(nameWidth, base::characterCount(row.name));
        for (std::size_t at = 0; at < kColumns.size(); ++at) {
            widths[at] = std::max(widths[at], std::to_string(row.removed.*kColumns[at].count).size());
        }
    }

    out << "Step" << kGap << "Name" << std::string(nameWidth - 4, ' ');
    for (std::size_t at = 0; at < kColumns.size(); ++at) out << kGap << right(kColumns[at].head, widths[at]);
    out << "\n";
    for (const Row& row : rows) {
        out << right(row.number, 4) << kGap << printable(row.name)
            << std::string(nameWidth - base::characterCount(row.name), ' ');
        for (std::size_t at = 0; at < kColumns.size(); ++at) {
            out << kGap << right(std::to_string(row.removed.*kColumns[at].count), widths[at]);
        }
        out << "\n";
        if (report.details && row.entries != nullptr) writeEntries(out, *row.entries, markForGood);
    }
    out << "This was a preview: nothing was removed, and nothing was stored." << std::endl;
}

}  // namespace tidvane::console
