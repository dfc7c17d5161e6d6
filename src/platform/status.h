// What an operation of the platform answers. Nothing throws: a missing target is routine, and a caller that goes on
// ignores the answer.
#pragma once

namespace tidvane::platform {

// The numbers are those of Win32, so that the code of a failed call passes through unchanged and one contract suite can
// compare codes on every platform.
enum class Status : int {
    Ok = 0,
    NotFound = 2,       // the last part of the path does not exist
    PathNotFound = 3,   // a folder on the way does not exist, or the path is not absolute
    Denied = 5,         // read-only, no right, a protected place, or a folder where a file is needed
    NotReady = 21,      // the drive has no medium
    InUse = 32,         // open elsewhere without sharing
    DiskFull = 112,     // no room left on the drive
    InvalidName = 123,  // an empty last part, a sign that no name may hold, a wildcard where none is allowed
    NotEmpty = 145,     // a folder that still holds something
    Exists = 183,       // the target of a rename or a creation is already there
    Failed = 1359,      // anything else
};

[[nodiscard]] constexpr bool ok(Status status) {
    return status == Status::Ok;
}

}  // namespace tidvane::platform
