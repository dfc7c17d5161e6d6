#include "frontend/sample/sample_traces.h"

#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

// clang-format off
constexpr std::array kGroups{
    SampleGroup{taken_by::Search,   "search",  ""},
    SampleGroup{taken_by::Custom,   "custom",  ""},
    SampleGroup{taken_by::Windows,  "windows", ""},
    SampleGroup{taken_by::Explorer, "ie",      "chkIEIndexDatFiles"},
    SampleGroup{taken_by::Firefox,  "firefox", "chkMozillaINDepthCleanOfflineCache chkMozillaINDepthCleanTestPilotErrorLogs"},
    SampleGroup{taken_by::Opera,    "opera",   "chkOperaINDepthClean"},
    SampleGroup{taken_by::Chrome,   "chrome",  "chkChromeINDepthClean"},
    SampleGroup{taken_by::Safari,   "safari",  "chkSafariSavedForms"},
    SampleGroup{taken_by::Office,   "office",  ""},
    SampleGroup{taken_by::PlugIns,  nullptr,   ""},
};
// clang-format on

// In the order in which they are made.
constexpr std::array kParts{windowsTraces, internetExplorerTraces, firefoxTraces, operaTraces,  chromeTraces,
                            safariTraces,  officeTraces,           plugInTraces,  ownListTraces};

template <class Row>
std::vector<Row> joined(std::span<const Row> SampleTables::*table) {
    std::vector<Row> all;
    for (const auto part : kParts) {
        const std::span<const Row> rows = part().*table;
        all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
}

}  // namespace

std::span<const SampleGroup> sampleGroups() {
    return kGroups;
}

const std::vector<SampleFile>& sampleFiles() {
    static const std::vector<SampleFile> kAll = joined(&SampleTables::files);
    return kAll;
}

const std::vector<SampleText>& sampleTexts() {
    static const std::vector<SampleText> kAll = joined(&SampleTables::texts);
    return kAll;
}

const std::vector<SampleFolder>& sampleFolders() {
    static const std::vector<SampleFolder> kAll = joined(&SampleTables::folders);
    return kAll;
}

const std::vector<SampleValue>& sampleValues() {
    static const std::vector<SampleValue> kAll = joined(&SampleTables::values);
    return kAll;
}

}  // namespace tidvane::frontend
