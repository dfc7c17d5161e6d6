// Giving an entry another name without ever replacing one, on volumes of every kind.
#pragma once

#include <string>

namespace tidvane::platform::machine {

// Moves an entry to a name that must not exist yet. 0 or an errno: EEXIST, EXDEV, EINVAL (a folder into itself), ...
//
// Where the volume cannot do that in one step (NFS, 9p, sshfs, ntfs-3g), a file gets the new name first and loses the
// old one then; a folder, and a file where further names are refused, is renamed after a look that the name is free.
// Only the last way could replace a file that somebody else makes in between; a folder it could replace is empty.
int renameNoReplace(int fromFolder, const std::string& from, int toFolder, const std::string& to);

// What the volumes of this process are taken to be able to do. For tests, which have no such volumes.
enum class VolumeAbility { All, NoExclusiveRename, NoFurtherNames };
void limitVolumes(VolumeAbility ability);
// Whether a file without a name may be asked for.
bool mayMakeNamelessFiles();

}  // namespace tidvane::platform::machine
