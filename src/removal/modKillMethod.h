// The one routine that removes a file, in one of three ways.
#pragma once

#include <string>

#include "platform/platform.h"

namespace tidvane::removal {

inline constexpr int KillPlain = 0;      // plain delete
inline constexpr int KillRecycle = 1;    // move to the recycle bin
inline constexpr int KillOverwrite = 2;  // one pass of blanks over the content, then the plain delete

// `Path`: a file, a path with a mask in its last part, or (method 1) a folder. Attributes are left alone: a read-only
// file stays, and under methods 0 and 2 a hidden or system file too, untouched. The result is no proof that the file is
// gone:
// - method 0: true, unless the delete failed and errors are not ignored;
// - method 1: true exactly when the shell's operation answered 0;
// - method 2: always true; what cannot be opened for writing (a mask, a locked file) is not overwritten, and the delete
//   is tried all the same;
// - any other method: false, and nothing happens.
bool KillFile(platform::Platform& platform, const std::string& Path, int Method, bool IgnoreErrors);

}  // namespace tidvane::removal
