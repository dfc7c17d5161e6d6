// The look-up by mask and the delete by mask against recorded directories, on every platform.
#include <algorithm>
#include <map>

#include "base/code_page.h"
#include "base/wildcard.h"
#include "contract/contract_platform.h"
#include "platform/common/directory_lookup.h"
#include "support/reference.h"

namespace tidvane::contract {
namespace {

std::string joined(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : "|") + name;
    return text;
}

// Rows that a look-up of the program can ask for: a mask with a wildcard, in the folder itself.
bool canBeAsked(const tests::ReferenceRow& row) {
    return row["derived_long"] != "-" && base::hasWildcard(row["mask"]) &&
           row["mask"].find_first_of("\\/:") == std::string::npos;
}

TEST_P(FileSystemContract, LookUpFindsWhatWasRecorded) {
    const base::CodePage page(1252);
    const auto rows = tests::readReference("wildcard.tsv", TIDVANE_REFERENCE_DIR);
    const tests::Decisions decisions("wildcard_decisions.tsv", TIDVANE_REFERENCE_DIR);
    tests::ReferenceCheck check(decisions);
    std::map<std::string, std::string> folders;  // by what they hold
    for (const tests::ReferenceRow& row : rows) {
        if (!canBeAsked(row)) continue;
        std::string& folder = folders[row["names"]];
        if (folder.empty()) {
            folder = "C:\\Scratch\\" + std::to_string(folders.size());
            machine->putFolder(folder);
            for (std::string name : base::split(row["names"], "|")) {
                if (name.empty()) continue;
                const bool isFolder = name.back() == '/';
                if (isFolder) name.pop_back();
                if (isFolder) {
                    machine->putFolder(folder + "\\" + page.toUtf8(name));
                } else {
                    machine->putRawName(folder, page.toUtf8(name), "1");
                }
            }
        }
        std::vector<std::string> found;
        for (const std::string& name :
             platform::findMatches(files, folder + "\\" + page.toUtf8(row["mask"]), platform::attribute::Directory)) {
            found.push_back(page.fromUtf8(name));
        }
        check.compare(row, row["derived_long"], joined(found));
    }
    EXPECT_EQ(check.report(), "");
    EXPECT_TRUE(tests::otherReferenceInUse() || check.compared() > 1500) << check.compared();
}

TEST_P(FileSystemContract, KillFilesRemovesWhatTheLookUpFinds) {
    const base::CodePage page(1252);
    const auto rows = tests::readReference("wildcard.tsv", TIDVANE_REFERENCE_DIR);
    std::size_t asked = 0;
    for (std::size_t i = 0; i < rows.size(); i += 20) {
        if (!canBeAsked(rows[i])) continue;
        const std::string folder = "C:\\Scratch\\" + std::to_string(i);
        machine->putFolder(folder);
        for (const std::string& name : base::split(page.toUtf8(rows[i]["names"]), "|")) {
            if (!name.empty() && name.back() != '/') machine->putRawName(folder, name, "1");
        }
        const std::string mask = folder + "\\" + page.toUtf8(rows[i]["mask"]);
        const std::vector<std::string> before = listing(folder);
        std::vector<std::string> matches = platform::findMatches(files, mask);
        std::sort(matches.begin(), matches.end());
        std::vector<std::string> left;
        std::set_difference(before.begin(), before.end(), matches.begin(), matches.end(), std::back_inserter(left));

        EXPECT_EQ(files.KillFiles(mask), matches.empty() ? platform::Status::NotFound : platform::Status::Ok) << mask;

        EXPECT_EQ(listing(folder), left) << mask;
        ++asked;
    }
    EXPECT_TRUE(tests::otherReferenceInUse() || asked > 50) << asked;
}

}  // namespace
}  // namespace tidvane::contract
