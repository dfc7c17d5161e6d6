#include "console/plug_in_choice.h"

#include <algorithm>
#include <numeric>

#include "app/plug_in_files.h"
#include "base/text.h"
#include "console/console_display.h"

namespace tidvane::console {

namespace {

constexpr std::size_t kMostNear = 5;
constexpr std::size_t kLettersForOneSlip = 4;  // one wrong letter for so many

// How many letters have to be changed, added or left out to make the one of the other.
std::size_t slips(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row[b.size()];
}

}  // namespace

const std::string* findName(const std::vector<std::string>& names, const std::string& typed) {
    const auto exact = std::find(names.begin(), names.end(), typed);
    if (exact != names.end()) return &*exact;
    const auto any =
        std::find_if(names.begin(), names.end(), [&](const auto& name) { return base::equalNoCase(name, typed); });
    return any == names.end() ? nullptr : &*any;
}

std::vector<std::string> nearNames(const std::vector<std::string>& names, const std::string& typed) {
    const std::string wanted = base::upperCase(base::trimBlanks(typed));
    std::vector<std::string> near;
    if (wanted.empty()) return near;
    for (const bool holding : {true, false}) {
        for (const std::string& name : names) {
            const std::string upper = base::upperCase(name);
            const bool holds = upper.find(wanted) != std::string::npos;
            const bool close = slips(upper, wanted) <= 1 + wanted.size() / kLettersForOneSlip;
            if (holding ? holds : close && !holds) near.push_back(name);
            if (near.size() == kMostNear) return near;
        }
    }
    return near;
}

std::vector<std::string> plugInNames(settings::Program& program) {
    std::vector<std::string> names;
    for (const std::string& file : app::plugInFiles(program, app::plugInFolder(program))) {
        names.push_back(app::plugInName(file));
    }
    return names;
}

std::string noSuchPlugIn(const std::vector<std::string>& names, const std::string& typed) {
    std::string sentence = "There is no plug-in \"" + typed + "\"; ";
    std::string list;
    for (const std::string& name : nearNames(names, typed)) list += (list.empty() ? "\"" : ", \"") + name + "\"";
    if (!list.empty()) sentence += "did you mean " + list + "? ";
    return printable(sentence + (list.empty() ? "the" : "The") + " command \"plugins\" lists all of them.");
}

}  // namespace tidvane::console
