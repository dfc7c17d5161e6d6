// What the guards of files and shell share: the check of a path, and what happens at a refusal.
#pragma once

#include <string>
#include <utility>

#include "platform/file_system.h"
#include "platform/guard/protected_places.h"
#include "platform/removal_counter.h"
#include "platform/status.h"
#include "platform/warnings.h"

namespace tidvane::platform {

class Guard {
public:
    // `files` is asked whether a refused target is there at all. The sink may be empty.
    Guard(ProtectedPlaces& places, FileSystem& files, RemovalCounter& counter, WarningSink warn)
        : places_(places), files_(files), counter_(counter), warn_(std::move(warn)) {}

    void setSink(WarningSink warn) { warn_ = std::move(warn); }

    // For an operation on one entry: PathNotFound for a path without a drive or share, InvalidName for an empty last
    // part. A few looks at the text, no more: it stands in front of every single delete.
    Status checkSingle(const std::string& path);

    // For an operation that removes what a folder holds. Besides: Denied for a protected place. With
    // `trailingBackslash` one at the end is left to the operation.
    Status checkTree(const std::string& path, bool trailingBackslash);

    // For an operation that takes a file or a folder with all below, whichever is there: a file is nobody's place, also
    // where every folder would be one ("C:\Users\desktop.ini").
    Status checkEntry(const std::string& path);

private:
    Status refuseName(const std::string& path, Status status);

    ProtectedPlaces& places_;
    FileSystem& files_;
    RemovalCounter& counter_;
    WarningSink warn_;
};

}  // namespace tidvane::platform
