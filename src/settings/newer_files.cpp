#include "settings/newer_files.h"

#include <algorithm>

#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

constexpr std::size_t kTold = 10;
constexpr const char* kLineEnd = "\r\n";

// 0: there is no such file, or it does not tell.
platform::FileTime lastWritten(platform::FileSystem& files, const std::string& path) {
    platform::FileTimes times;
    return files.FileExists(path) && platform::ok(files.GetFileTimes(path, times)) ? times.lastWrite : 0;
}

}  // namespace

std::string questionOfNewerFiles(Program& program, const std::vector<PlannedCopy>& copies) {
    platform::FileSystem& files = program.platform.files;
    std::vector<std::string> newer;
    for (const PlannedCopy& copy : copies) {
        const platform::FileTime source = lastWritten(files, copy.from);
        if (source != 0 && lastWritten(files, copy.to) > source) newer.push_back(copy.to);
    }
    if (newer.empty()) return {};
    std::string text = sentence(program, Sentence::NewerFiles) + kLineEnd + kLineEnd;
    const std::size_t told = std::min(newer.size(), kTold);
    for (std::size_t at = 0; at < told; ++at) text += newer[at] + kLineEnd;
    if (newer.size() > told) {
        text += sentence(program, Sentence::MoreNewerFiles, {std::to_string(newer.size() - told)}) + kLineEnd;
    }
    return text + kLineEnd + sentence(program, Sentence::ReplaceAllTheSame);
}

}  // namespace tidvane::settings
