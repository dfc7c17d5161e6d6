// The attributes of Windows on files of the host.
//
// Read-only is a file that no one may write to. Hidden, system and archive lie in the extended attribute
// "user.DOSATTRIB" as text "0x2", the form in which Wine and Samba keep them. Where it cannot be read, the file counts
// as hidden: it must not turn into a visible one that a mask takes. A leading dot hides nothing: that is a custom of
// the host and not of the system that is looked at.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "platform/status.h"

namespace tidvane::platform::machine {

// The bits of the extended attribute alone; 0 where there is none. Costs one system call.
unsigned storedAttributes(int parent, const std::string& name);

// All attributes of an entry whose state is known already.
unsigned attributesOf(int parent, const std::string& name, const struct stat& info);

Status changeAttributes(int parent, const std::string& name, const struct stat& info, unsigned attributes);
// What changeAttributes would answer, as far as it can be known without trying, and the attributes that would be read
// then. `readOnly`: as a preview has set it.
Status wouldChangeAttributes(int parent, const std::string& name, const struct statx& state, unsigned attributes,
                             std::optional<bool> readOnly, unsigned& becomes);

// Gives a new file that is open for writing the stored bits of the one it replaces, as far as the volume can hold them.
void giveStoredAttributes(int file, unsigned stored);

// Whether the link at this place points to a folder. The target is looked at and nothing more.
bool linksToFolder(int parent, const std::string& name);

}  // namespace tidvane::platform::machine
