// The file masks that the window of ready-made masks offers.
#pragma once

#include <array>

namespace tidvane::settings {

// In the order in which they are listed. Four of them may take what somebody still needs, as the window's hint says:
// "*.dot" are templates, "*edb.log" belong to databases, "*Deleted Items.dbx" is mail, "*.old" what somebody put aside.
// clang-format off
inline constexpr std::array kBuiltInMasks{
    "*.---", "*.$$$", "*.~*", "*.bak", "*.chk", "*.dmp", "*.fts", "*.gid", "*.old", "*.tmp",
    "~*.*", "*.001", "*.002", "*.log", "*.nav", "*.syd", "*.err", "*.fix", "*.cpy", "*._mp",
    "*.alt", "*.cb", "*.cln", "*.cor", "*.dot", "*.prv", "*.qdk", "*.sc0", "*.sik", "*.ubk",
    "*.umb", "*.ump", "*0.log", "*modem.log", "*mscreate.dir", "*scandisk.log", "*setupact.log",
    "*setuperr.log", "*userenv.log", "*wbemess.log", "*wbemprox.log", "*wwmiprov.log",
    "*windowsupdate.log", "*wwmsetup.log", "*edb.log", "*0???????.nch", "*bootlog.txt",
    "*Deleted Items.dbx", "thumbcache*",
};
// clang-format on
static_assert(kBuiltInMasks.size() == 49, "a mask was lost or added");

}  // namespace tidvane::settings
