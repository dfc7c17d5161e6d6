#include "settings/sentences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tidvane::settings {

namespace {

struct SentenceRow {
    Sentence which;
    int text;  // its entry of the language files
    const char* english;
};

// In the order of the enumeration.
// clang-format off
constexpr std::array kSentences{
    SentenceRow{Sentence::EveryNameMatches, 940,
        "The junk search would remove every file of its drives, since every name matches %1"},
    SentenceRow{Sentence::CleanAllTheSame, 941,
        "Clean all the same?"},
    SentenceRow{Sentence::LineIsReadAs, 942,
        "%1: the line \"%2\" is read as:"},
    SentenceRow{Sentence::MoreLinesAreReadSo, 943,
        "and so are %1 more line(s)."},
    SentenceRow{Sentence::CleanWithTheseEntries, 944,
        "Clean with these entries?"},
    SentenceRow{Sentence::StoreTheseLines, 945,
        "The list would be stored with these as its lines. Store it?"},
    SentenceRow{Sentence::NoThreeMethods, 946,
        "The language file gives the ways of removing files (entries 732 to 734) no three different names, so "
        "that the chosen one cannot be honoured; put a whole language file into the program folder, or %1."},
    SentenceRow{Sentence::FirstMethodInstead, 947,
        "choose the first way in the options (removal method)"},
    SentenceRow{Sentence::NoMethod, 948,
        "No way of removing files is chosen; %1."},
    SentenceRow{Sentence::ChooseAMethod, 949,
        "choose one in the options (removal method)"},
    SentenceRow{Sentence::NoBanFile, 950,
        "%1 is missing in the program folder, so that no own entry is checked against the list of protected "
        "places; put it back from the delivery."},
    SentenceRow{Sentence::BanFileGone, 951,
        "%1 is missing from the program's folder: only the places that are protected everywhere are refused."},
    SentenceRow{Sentence::NotInCodePage, 952,
        "This entry has a character that the system's code page lacks. The list's file would keep it as \"?\", "
        "which stands for any character."},
    SentenceRow{Sentence::TakenApart, 953,
        "A comma or a quotation mark takes this entry apart when the list is loaded again:"},
    SentenceRow{Sentence::AddAllTheSame, 954,
        "Add it all the same?"},
    SentenceRow{Sentence::IdleMask, 955,
        "\"%1\" can match no file; a mask is a name with \"*\" and \"?\" in it, as \"*.tmp\"."},
    SentenceRow{Sentence::IdleFolder, 956,
        "\"%1\" is not a full path with a drive or a share; a run does nothing with it."},
    SentenceRow{Sentence::IdleFile, 957,
        "\"%1\" is not a full path with a drive or a share, nor a key from its root's full name on "
        "(\"%2\\...\"); a run does nothing with it."},
    SentenceRow{Sentence::ListKept, 958,
        "%1 cannot be read. It is kept as it is."},
    SentenceRow{Sentence::LineMakesSeveral, 959,
        "%1: a comma or a quotation mark makes several entries of the line %2"},
    SentenceRow{Sentence::MoreLinesMakeSeveral, 960,
        "%1: so it is with %2 more line(s)."},
    SentenceRow{Sentence::LastLineIsOpen, 961,
        "%1: the last line has no line end and may have been cut: %2"},
    SentenceRow{Sentence::ListNotWritten, 962,
        "%1 could not be read and is not written."},
    SentenceRow{Sentence::SeveralLinesInBox, 963,
        "%1 holds several lines and is not stored."},
    SentenceRow{Sentence::BoxWasEmptied, 964,
        "\"%1\" was emptied and keeps its last value: %2"},
    SentenceRow{Sentence::BanFileTooLong, 965,
        "%1 is longer than %2 bytes: what stands behind these is not read, and its places are not refused."},
    SentenceRow{Sentence::NoProfileFolder, 966,
        "\"%1\" in %2 is no folder of a profile of %3; nothing is cleaned there."},
    SentenceRow{Sentence::NewerFiles, 933,
        "These files are newer than those that would replace them:"},
    SentenceRow{Sentence::MoreNewerFiles, 934,
        "and %1 more."},
    SentenceRow{Sentence::ReplaceAllTheSame, 935,
        "Replace them all the same?"},
    SentenceRow{Sentence::SettingsNotStored, 936,
        "The settings could not be stored: %1 cannot be written."},
    SentenceRow{Sentence::ListNotStored, 937,
        "%1 could not be written and keeps its old content."},
    SentenceRow{Sentence::ProgramCannotStart, 938,
        "This system cannot start %1."},
    SentenceRow{Sentence::NoPageOfTheList, 939,
        "\"%1\" is none of the pages of the list, and only these are stored: from now on it is the first one."},
    SentenceRow{Sentence::FolderStays, 967,
        "\"%1\" ends in a backslash: it was emptied, and the folder itself stays."},
    SentenceRow{Sentence::ProgramNotStarted, 968,
        "A plug-in may start a program by its full path, or one in Tidvane's own folder; \"%1\" was not started."},
    SentenceRow{Sentence::NoTray, 969,
        "This desktop shows no tray icons: Tidvane is minimised to the task bar instead."},
    SentenceRow{Sentence::RecycleBinRefused, 970,
        "The recycle bin refused %1 file(s); a second attempt removed them for good."},
    SentenceRow{Sentence::EmptyRecycleBin, 889,
        "Empty the recycle bin? What lies in it is removed for good."},
    SentenceRow{Sentence::RecycleBinIsEmpty, 890,
        "The recycle bin is empty."},
    SentenceRow{Sentence::NothingShows, 891,
        "This desktop has no program that shows \"%1\"."},
    SentenceRow{Sentence::NoFolderGiven, 971,
        "No folder is given: the whole drive will be searched."},
    SentenceRow{Sentence::MaskMatchesEveryName, 972,
        "The mask %1 matches every file name."},
    SentenceRow{Sentence::DeleteBelow, 973,
        "Delete all files that match %1 below %2?"},
    SentenceRow{Sentence::DeleteOnAllDrives, 974,
        "Delete all files that match %1 on all fixed drives?"},
    SentenceRow{Sentence::WineServerRuns, 975,
        "The registry of \"%1\" is in use by a running Wine server; end its programs (wineserver -k), then start "
        "again."},
    SentenceRow{Sentence::MayNotBeWritten, 976,
        "\"%1\" may not be written to; check its rights, or run as its owner."},
    SentenceRow{Sentence::AnotherTidvane, 977,
        "The registry of \"%1\" is in use by another Tidvane; wait until it has finished, then start again."},
    SentenceRow{Sentence::NoLocks, 978,
        "The registry of \"%1\" cannot be locked against other programs, as its volume knows no locks; copy the "
        "directory to a local disk, or mount the volume with locks."},
    SentenceRow{Sentence::MachineWasReplaced, 979,
        "\"%1\" was moved or replaced meanwhile; start again."},
    SentenceRow{Sentence::RegistryUnusable, 980,
        "The registry of \"%1\" cannot be used any more: %2"},
    SentenceRow{Sentence::RegistryNotWritten, 981,
        "The registry of \"%1\" was not written back: %2"},
    SentenceRow{Sentence::RegistryChangedMeanwhile, 982,
        "Another program changed the registry of \"%1\" meanwhile, so that the last changes of keys and values "
        "were not stored; clean again."},
    SentenceRow{Sentence::KeyIsProtected, 983,
        "This registry key is protected and was not removed: %1"},
    SentenceRow{Sentence::PlaceIsProtected, 984,
        "\"%1\" is a place that is never emptied; it was left as it is."},
    SentenceRow{Sentence::PathIsRelative, 985,
        "\"%1\" is not a full path with a drive or a share; nothing was done with it."},
    SentenceRow{Sentence::PathNamesNothing, 986,
        "\"%1\" does not name anything behind its last backslash; nothing was done with it."},
    SentenceRow{Sentence::FailedBehindRemovals, 987,
        "The program failed (%1); what was removed before is removed."},
    SentenceRow{Sentence::FailedBeforeRemovals, 988,
        "The program failed (%1); nothing was removed."},
};
// clang-format on

constexpr auto kFirstTold = static_cast<std::size_t>(Sentence::WineServerRuns);

constexpr bool isInOrder() {
    for (std::size_t at = 0; at < kSentences.size(); ++at) {
        if (static_cast<std::size_t>(kSentences.at(at).which) != at) return false;
    }
    return true;
}
static_assert(isInOrder() && kSentences.back().which == Sentence::FailedBeforeRemovals, "a row is lost or misplaced");

constexpr char kMark = '%';

// The number of the value that the sign at `at` begins the place of, from 0.
std::optional<std::size_t> valueAt(std::string_view words, std::size_t at) {
    if (words[at] != kMark || at + 1 == words.size() || words[at + 1] < '1' || words[at + 1] > '9') return std::nullopt;
    return static_cast<std::size_t>(words[at + 1] - '1');
}

// Once through the words: a mark within a value is text.
std::string filled(std::string_view words, const std::vector<std::string>& values) {
    std::string text;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const auto value = valueAt(words, at);
        if (value && *value < values.size()) {
            text += values[*value];
            ++at;
        } else {
            text += words[at];
        }
    }
    return text;
}

// The values of a text that has the form of these words, whose marks are numbered in their order.
std::optional<std::vector<std::string>> valuesIn(std::string_view text, std::string_view words) {
    const std::size_t first = words.find(kMark);
    if (text.substr(0, first) != words.substr(0, first)) return std::nullopt;
    std::vector<std::string> values;
    text.remove_prefix(first);
    words.remove_prefix(first);
    while (!words.empty()) {
        words.remove_prefix(2);
        const std::string_view between = words.substr(0, words.find(kMark));
        words.remove_prefix(between.size());
        // What stands last ends the text, whatever the value in front of it holds.
        const std::size_t end =
            words.empty() ? text.size() - std::min(text.size(), between.size()) : text.find(between);
        if (end == std::string_view::npos || text.substr(end, between.size()) != between) return std::nullopt;
        values.emplace_back(text.substr(0, end));
        text.remove_prefix(end + between.size());
    }
    return values;
}

const SentenceRow& rowOf(Sentence which) {
    return kSentences.at(static_cast<std::size_t>(which));
}

}  // namespace

std::string sentence(const Program& program, Sentence which, const std::vector<std::string>& values) {
    const std::string& words = program.LangText(rowOf(which).text);
    return words.empty() ? englishSentence(which, values) : filled(words, values);
}

std::string englishSentence(Sentence which, const std::vector<std::string>& values) {
    return filled(rowOf(which).english, values);
}

std::string inLanguageOf(const Program& program, const std::string& told) {
    for (std::size_t at = kFirstTold; at < kSentences.size(); ++at) {
        if (const auto values = valuesIn(told, kSentences.at(at).english)) {
            return sentence(program, kSentences.at(at).which, *values);
        }
    }
    return told;
}

}  // namespace tidvane::settings
