// The words of the window in which a system is chosen. It stands in front of every program folder, and so of every
// language file: its few words are kept here, in the language of the host.
#pragma once

#include <string>

#include "frontend/find_systems.h"

namespace tidvane::view {

enum class Tongue { English, German };

// By the variables that tell a process the language of its messages: LC_ALL, LC_MESSAGES, LANG, the first one that is
// set.
Tongue tongueOfHost();

enum class Word {
    Title,
    Question,
    Name,
    Kind,
    Windows,
    User,
    FreeSpace,
    Folder,
    Reading,
    CannotBeOpened,
    Of,  // between free and whole space
    NoneFound,
    WhatToDo,
    Open,
    Cancel,
    CreateSample,
    OtherFolder,
    ChooseFolder,
    Sample,
    SampleTitle,
    SampleAbout,
    SampleFolder,
    Browse,
    Create,
    Yes,
    No,
    Ok,
    // of the dialogs that ask for files and folders
    ChooseFile,
    SaveAs,
    ReplaceFile,  // behind a line with its name
    OutsideTheSystem,
};

const char* word(Tongue tongue, Word which);
const char* kindWord(Tongue tongue, frontend::SystemKind kind);

// "12.3 GB", with the sign that the language puts in front of decimals.
std::string sizeWords(Tongue tongue, std::uint64_t bytes);

}  // namespace tidvane::view
