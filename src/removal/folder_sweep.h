// Emptying folders, and the walk that removes what matches the user's masks.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::removal {

// Removes a folder with everything in it, read-only content included. A path that is a file, or absent, changes
// nothing.
void DelAll(platform::Platform& platform, const std::string& Path);

// Empties a folder and leaves the folder itself. The kill method is read afresh for each entry; under the overwrite
// method only the files directly in the folder are overwritten, those of subfolders go without: intended. Nothing is
// logged, no event gets in, and a purge that has begun runs to its end. A path that cannot be opened does nothing.
void PurgeFolder(settings::Program& program, const std::string& Path);

// Walks a tree, a folder's own files before its subfolders, and removes what matches the masks of lstSearchMasks. A few
// files that such masks would take are set aside by a rename before, and put back behind. Events get in once a folder;
// a stop is seen at the next folder.
void SweepFolderByMasks(settings::Program& program, const std::string& Path);

}  // namespace tidvane::removal
