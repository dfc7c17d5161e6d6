// The marks around headings in the log.
#pragma once

#include <string>

namespace tidvane::app {

inline std::string decorated(int equalSignsBefore, const std::string& text, int equalSignsBehind) {
    return std::string(static_cast<std::size_t>(equalSignsBefore), '=') + " " + text + " " +
           std::string(static_cast<std::size_t>(equalSignsBehind), '=');
}
// Plug-ins, and the disk figures of a plug-in run.
inline std::string sectionHead(const std::string& text) {
    return decorated(22, text, 25);
}
// Summary of a run.
inline std::string summaryHead(const std::string& text) {
    return decorated(25, text, 27);
}
// Disk figures of a run: two signs more in front than a section has, intended.
inline std::string diskHead(const std::string& text) {
    return decorated(24, text, 25);
}

inline const std::string kThinRule(90, '-');
inline const std::string kWideRule(116, '-');

}  // namespace tidvane::app
