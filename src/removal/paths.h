// Taking paths apart and putting them together.
#pragma once

#include <string>

namespace tidvane::removal {

// Everything before the last backslash; "C:\" keeps its own. Without a backslash: empty.
std::string FolderOf(const std::string& Path);
// Everything behind the last backslash. Without one the first character is dropped: intended.
std::string FileNameOf(const std::string& Path);
// With a backslash between, unless the folder ends in ":\".
std::string JoinPath(const std::string& Folder, const std::string& Name);
// Whether an attribute value includes the bit of a folder (16).
bool IsDirectoryAttr(int Attributes);

}  // namespace tidvane::removal
