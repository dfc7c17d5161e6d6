// What a sample machine holds, as tables, one file a group of tasks.
#pragma once

#include <span>
#include <vector>

#include "platform/file_system.h"

namespace tidvane::frontend {

// What <user> stands for in the tables.
inline constexpr const char* kSampleUser = "Anna";

// Who takes a trace: a bit for every group of tasks that does. Several may take the same one. With everything of a
// group ticked (see sampleGroups()) all that bears its bit goes, and nothing else.
namespace taken_by {
inline constexpr unsigned Nobody = 0;  // it has to stay, whatever is ticked
inline constexpr unsigned Search = 1;
inline constexpr unsigned Custom = 2;
inline constexpr unsigned Windows = 4;
inline constexpr unsigned Explorer = 8;
inline constexpr unsigned Firefox = 16;
inline constexpr unsigned Opera = 32;
inline constexpr unsigned Chrome = 64;
inline constexpr unsigned Safari = 128;
inline constexpr unsigned Office = 256;
inline constexpr unsigned PlugIns = 512;

// By these groups too, but only while files go to the recycle bin, or while they are overwritten.
inline constexpr unsigned kGroupBits = 10;
constexpr unsigned recycling(unsigned groups) {
    return groups << kGroupBits;
}
constexpr unsigned overwriting(unsigned groups) {
    return groups << 2 * kGroupBits;
}
}  // namespace taken_by

struct SampleGroup {
    unsigned bit;
    const char* word;          // what --tick takes; null for the plug-ins, which are ticked one by one
    const char* furtherBoxes;  // boxes that tick no task but let one do more, with blanks between them
};

struct SampleFile {
    const char* path;  // below the machine's directory; <user> and <sid> are replaced
    unsigned bytes;
    int ageDays;
    unsigned takenBy;
    unsigned attributes = 0;
};

// A file with a content that some program reads. It has to stay.
struct SampleText {
    const char* path;
    int ageDays;
    const char* text;
};

// A folder that goes, or one that nothing else makes. The folders on the way to a file stay unless they stand here.
struct SampleFolder {
    const char* path;
    unsigned takenBy;
};

struct SampleLink {
    const char* path;
    const char* target;  // relative to the link
    unsigned takenBy;
};

// A unit of a recycle bin and what it was before. `record`: 1 or 2 for a "$I" record of that version, 0 for an old bin.
// All of them go with the group Windows.
struct SampleUnit {
    const char* folder;
    const char* name;  // of what was removed: "$R...", "D<drive><number>..."
    const char* formerPath;
    unsigned bytes;
    int ageDays;
    int record;
};

// An entry in an index of the cache of Internet Explorer. It goes with the group Explorer, and the index with it.
struct SampleUrl {
    const char* store;  // the folder of the index
    const char* url;
    const char* file;  // the cached file, below the store; empty for a visit
    unsigned bytes;    // of the file
    int ageDays;
};

enum class SampleHive { User, Machine };

// A text. A key goes when everything in it and below it goes.
struct SampleValue {
    SampleHive hive;
    const char* key;
    const char* name;
    const char* text;
    unsigned takenBy;
};

const std::vector<SampleFile>& sampleFiles();
const std::vector<SampleText>& sampleTexts();
const std::vector<SampleFolder>& sampleFolders();
std::span<const SampleLink> sampleLinks();
std::span<const SampleUnit> sampleUnits();
std::span<const SampleUrl> sampleUrls();
const std::vector<SampleValue>& sampleValues();

std::span<const SampleGroup> sampleGroups();

// What the program folder of a sample brings along.
std::span<const char* const> sampleOwnFolders();  // <user> is replaced
std::span<const char* const> sampleOwnFiles();    // registry keys too
std::span<const char* const> sampleMasks();
std::span<const char* const> samplePlugIns();  // the delivered plug-ins that find something here, by name

}  // namespace tidvane::frontend
