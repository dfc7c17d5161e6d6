// The clock of the host as Windows counts.
#pragma once

#include <chrono>

#include "platform/file_system.h"

namespace tidvane::platform::machine {

inline FileTime fileTimeNow() {
    constexpr FileTime kStepsTo1970 = 116'444'736'000'000'000u;
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return kStepsTo1970 +
           static_cast<FileTime>(std::chrono::duration_cast<std::chrono::nanoseconds>(since1970).count()) / 100u;
}

}  // namespace tidvane::platform::machine
