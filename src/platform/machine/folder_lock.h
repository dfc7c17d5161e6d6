// Locks that keep a second Tidvane out of a folder, and what it means when there are none.
#pragma once

namespace tidvane::platform::machine {

enum class LockAnswer {
    Taken,
    Held,         // by somebody else
    Unsupported,  // the volume knows no such lock: nothing is known about others
};

// Locks an open folder. The lock leaves nothing behind and ends with the descriptor.
LockAnswer lockFolder(int folder);
void unlockFolder(int folder);
// Locks an open file, which has to be open for writing. For volumes that lock files but no folders (NFS).
LockAnswer lockFile(int file);

// What the volumes of this process are taken to lock. For tests, which have no such volumes.
enum class LockAbility { All, FilesOnly, Nothing };
void limitLocks(LockAbility ability);

}  // namespace tidvane::platform::machine
