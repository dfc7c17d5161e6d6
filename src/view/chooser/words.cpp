#include "view/chooser/words.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tidvane::view {

namespace {

using frontend::SystemKind;

struct WordRow {
    Word which;
    const char* english;
    const char* german;
};

// clang-format off
constexpr std::array kWords{
    WordRow{Word::Title, "Tidvane", "Tidvane"},
    WordRow{Word::Question, "Which Windows system do you want to clean?", "Welches Windows-System möchten Sie reinigen?"},
    WordRow{Word::Name, "Name", "Name"},
    WordRow{Word::Kind, "Kind", "Art"},
    WordRow{Word::Windows, "Windows", "Windows"},
    WordRow{Word::User, "User", "Benutzer"},
    WordRow{Word::FreeSpace, "Free space", "Freier Platz"},
    WordRow{Word::Folder, "Folder", "Ordner"},
    WordRow{Word::Reading, "...", "..."},
    WordRow{Word::CannotBeOpened, "cannot be opened", "nicht zu öffnen"},
    WordRow{Word::Of, "of", "von"},
    WordRow{Word::NoneFound, "No Windows system was found on this computer.", "Auf diesem Rechner wurde kein Windows-System gefunden."},
    WordRow{Word::WhatToDo,
            "Try Tidvane on a sample machine: it is made for you in a folder of your own, and nothing else is touched. "
            "Or name the folder of a Wine prefix.",
            "Probieren Sie Tidvane an einer Beispielmaschine aus: Sie wird in einem eigenen Ordner angelegt, und nichts "
            "anderes wird angerührt. Oder nennen Sie den Ordner eines Wine-Präfixes."},
    WordRow{Word::Open, "&Open", "Ö&ffnen"},
    WordRow{Word::Cancel, "&Cancel", "&Abbrechen"},
    WordRow{Word::CreateSample, "Create a &sample machine...", "&Beispielmaschine anlegen..."},
    WordRow{Word::OtherFolder, "Other &folder...", "A&nderer Ordner..."},
    WordRow{Word::ChooseFolder, "Folder of a Wine prefix or of a machine of Tidvane", "Ordner eines Wine-Präfixes oder einer Maschine von Tidvane"},
    WordRow{Word::Sample, "Sample machine", "Beispielmaschine"},
    WordRow{Word::SampleTitle, "Create a sample machine", "Beispielmaschine anlegen"},
    WordRow{Word::SampleAbout,
            "A small Windows system with traces of every kind is made in this folder, which has to be new or empty.",
            "In diesem Ordner, der neu oder leer sein muss, wird ein kleines Windows-System mit Spuren aller Art angelegt."},
    WordRow{Word::SampleFolder, "Folder:", "Ordner:"},
    WordRow{Word::Browse, "&Browse...", "&Durchsuchen..."},
    WordRow{Word::Create, "C&reate", "An&legen"},
    WordRow{Word::Yes, "&Yes", "&Ja"},
    WordRow{Word::No, "&No", "&Nein"},
    WordRow{Word::Ok, "&OK", "&OK"},
    WordRow{Word::ChooseFile, "Choose a file", "Datei auswählen"},
    WordRow{Word::SaveAs, "Save as", "Speichern unter"},
    WordRow{Word::ReplaceFile,
            "There is a file of this name already. Do you want to replace it?",
            "Es gibt bereits eine Datei dieses Namens. Möchten Sie sie ersetzen?"},
    WordRow{Word::OutsideTheSystem,
            "This place lies outside the Windows system that is open. Choose one on its drives.",
            "Dieser Ort liegt außerhalb des geöffneten Windows-Systems. Wählen Sie einen auf dessen Laufwerken."},
};

struct KindRow {
    SystemKind kind;
    const char* english;
    const char* german;
};

// Names of programs are the same in both.
constexpr std::array kKinds{
    KindRow{SystemKind::Embedded, "Own machine", "Eigene Maschine"},
    KindRow{SystemKind::Volume, "Windows volume", "Windows-Volume"},
};
// clang-format on

bool isGerman(std::string_view locale) {
    return locale.starts_with("de") && (locale.size() == 2 || locale[2] == '_' || locale[2] == '.' || locale[2] == '@');
}

}  // namespace

Tongue tongueOfHost() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return isGerman(value) ? Tongue::German : Tongue::English;
    }
    return Tongue::English;
}

const char* word(Tongue tongue, Word which) {
    const auto* const row =
        std::find_if(kWords.begin(), kWords.end(), [&](const WordRow& known) { return known.which == which; });
    return tongue == Tongue::German ? row->german : row->english;
}

const char* kindWord(Tongue tongue, SystemKind kind) {
    const auto* const row =
        std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& known) { return known.kind == kind; });
    if (row == kKinds.end()) return frontend::kindName(kind);
    return tongue == Tongue::German ? row->german : row->english;
}

std::string sizeWords(Tongue tongue, std::uint64_t bytes) {
    constexpr std::array kUnits{"KB", "MB", "GB", "TB"};
    constexpr double kStep = 1024.0;
    double value = static_cast<double>(bytes) / kStep;
    std::size_t unit = 0;
    while (value >= kStep && unit + 1 < kUnits.size()) {
        value /= kStep;
        ++unit;
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    std::string words(text.data());
    // Whatever the host's locale puts there.
    for (char& sign : words) {
        if (sign < '0' || sign > '9') sign = tongue == Tongue::German ? ',' : '.';
    }
    return words + " " + kUnits[unit];
}

}  // namespace tidvane::view
