// What a sample machine holds, as tables.
#pragma once

#include <span>

#include "platform/file_system.h"

namespace tidvane::console {

// What becomes of a trace when all tasks of the group "windows" have run, files being removed the plain way.
enum class Fate { Goes, Stays };

struct SampleFile {
    const char* path;  // below the machine's directory; <user> and <sid> are replaced
    unsigned bytes;
    int ageDays;
    Fate fate;
    unsigned attributes = 0;
};

struct SampleLink {
    const char* path;
    const char* target;  // relative to the link
    Fate fate;
};

// A unit of a recycle bin and what it was before. `record`: 1 or 2 for a "$I" record of that version, 0 for an old bin.
struct SampleUnit {
    const char* folder;
    const char* name;  // of what was removed: "$R...", "D<drive><number>..."
    const char* formerPath;
    unsigned bytes;
    int ageDays;
    int record;
};

enum class SampleHive { User, Machine };

struct SampleValue {
    SampleHive hive;
    const char* key;
    const char* name;
    const char* text;
    Fate fate;
};

std::span<const SampleFile> sampleFiles();
std::span<const SampleLink> sampleLinks();
std::span<const SampleUnit> sampleUnits();
std::span<const SampleValue> sampleValues();

}  // namespace tidvane::console
