// The directory look-up by mask and attributes, on top of the plain operations of a file system.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace tidvane::platform {

// Names in a folder that match the mask behind the last backslash, sorted without regard to case, as the volumes of
// Windows deliver them. With `attributes` 0: files that are neither hidden nor system, read-only and archive ones
// included. attribute::Hidden, attribute::System and attribute::Directory add those kinds. Links are files unless the
// system says that they stand for a folder. "." and ".." are never delivered.
// A path without a wildcard gives its last part as it was spelled. Nothing for an empty last part, a relative path, or
// a folder that cannot be read.
std::vector<std::string> findMatches(FileSystem& files, const std::string& folderAndMask, unsigned attributes = 0);

// The same question without the list: stops at the first match.
bool anyMatch(FileSystem& files, const std::string& folderAndMask, unsigned attributes = 0);

// Whether the look-up takes this entry of a listing as far as its kind and attributes go. `folder` with or without a
// trailing backslash. For callers that match many masks against one listing.
bool lookUpTakes(FileSystem& files, const std::string& folder, const FolderEntry& entry, unsigned attributes = 0);

}  // namespace tidvane::platform
