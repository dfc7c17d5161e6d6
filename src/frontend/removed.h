// What was removed since a moment.
#pragma once

#include "platform/removal_counter.h"

namespace tidvane::frontend {

inline platform::RemovalTotals removedSince(const platform::RemovalTotals& before,
                                            const platform::RemovalCounter& counter) {
    platform::RemovalTotals since = counter.totals;
    since -= before;
    return since;
}

inline bool removedSomething(const platform::RemovalTotals& totals) {
    return totals.files + totals.folders + totals.keys + totals.values > 0;
}

}  // namespace tidvane::frontend
