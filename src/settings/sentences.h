// What the program asks, warns and refuses in whole sentences. Each one is an entry of the language files; where these
// lack it (a file of an older version, or none at all) its English words here hold, so that no question comes up empty.
#pragma once

#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::settings {

enum class Sentence {
    // in front of a cleaning
    EveryNameMatches,  // its end is left open
    CleanAllTheSame,
    LineIsReadAs,
    MoreLinesAreReadSo,
    CleanWithTheseEntries,
    StoreTheseLines,
    NoThreeMethods,
    FirstMethodInstead,
    NoMethod,
    ChooseAMethod,
    NoBanFile,
    // own lists
    BanFileGone,
    NotInCodePage,
    TakenApart,
    AddAllTheSame,
    IdleMask,
    IdleFolder,
    IdleFile,
    ListKept,
    LineMakesSeveral,
    MoreLinesMakeSeveral,
    LastLineIsOpen,
    ListNotWritten,
    // other settings
    SeveralLinesInBox,
    BoxWasEmptied,
    BanFileTooLong,
    NoProfileFolder,
    NewerFiles,
    MoreNewerFiles,
    ReplaceAllTheSame,
    SettingsNotStored,
    ListNotStored,
    ProgramCannotStart,
    NoPageOfTheList,
    // runs and searches
    FolderStays,
    ProgramNotStarted,
    NoTray,
    RecycleBinRefused,
    EmptyRecycleBin,
    RecycleBinIsEmpty,
    NothingShows,
    NoFolderGiven,
    MaskMatchesEveryName,
    DeleteBelow,
    DeleteOnAllDrives,
    // what floors that know no language tell in English
    WineServerRuns,
    MayNotBeWritten,
    AnotherTidvane,
    NoLocks,
    MachineWasReplaced,
    RegistryUnusable,
    RegistryNotWritten,
    RegistryChangedMeanwhile,
    KeyIsProtected,
    PlaceIsProtected,
    PathIsRelative,
    PathNamesNothing,
    FailedBehindRemovals,
    FailedBeforeRemovals,
};

// In the language of the program. "%1" to "%9" in the words stand for `values`.
std::string sentence(const Program& program, Sentence which, const std::vector<std::string>& values = {});

// In English whatever language is loaded: for the front end whose own words are English.
std::string englishSentence(Sentence which, const std::vector<std::string>& values = {});

// A text that a floor without a language told, in the language of the program; one that is no sentence of the table as
// it came.
std::string inLanguageOf(const Program& program, const std::string& told);

}  // namespace tidvane::settings
