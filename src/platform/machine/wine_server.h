// Whether a Wine server has a prefix open. It keeps the registry in memory and writes it back when it ends, so that
// whatever somebody else writes into the files meanwhile is lost.
#pragma once

#include <string>

namespace tidvane::platform::machine {

// The server of a prefix lies in a directory of its own, "server-<device>-<inode>" of the prefix in hexadecimal, and
// holds a write lock on the file "lock" in it. The directory lies in "/tmp/.wine-<user>", or in the directory below
// /tmp that the prefix's own file "wineserver" names. A server directory that may not be looked into counts as one in
// use.
bool hasWineServer(const std::string& prefix, const std::string& temporaryFolder = "/tmp");

}  // namespace tidvane::platform::machine
