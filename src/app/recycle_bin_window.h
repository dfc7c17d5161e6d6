// The window in which the shell shows the recycle bin.
#pragma once

namespace tidvane::app {

inline constexpr const char* kRecycleBinWindow = "explorer.exe ::{645FF040-5081-101B-9F08-00AA002F954E}";

}  // namespace tidvane::app
