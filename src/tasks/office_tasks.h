// The five tasks of the group Office.
#pragma once

#include <array>
#include <span>

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

// What a task is called in its first lines; all of these texts are the same in every language.
struct OfficeWords {
    int step;
    const char* panel;          // behind the word for "working on"
    const char* untickedLog;    // in front of the word for "not ticked", without a further blank
    const char* untickedPanel;  // the same for panel 1
};

// Below HKEY_CURRENT_USER. An empty subkey means the key itself.
struct OfficeKey {
    const char* key;
    const char* subKey = "";
};

// One generation's keys, in the order of removal. The last one decides what the block reports.
struct OfficeBlock {
    static constexpr std::size_t kMostKeys = 7;
    int step;
    const char* label;
    std::array<OfficeKey, kMostKeys> keys;  // behind the last one: null
};

std::span<const OfficeWords> officeWords();
std::span<const OfficeBlock> officeBlocks();

void cleanOffice(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
