// Which entries went, in the order of their removal, for a preview with details.
#pragma once

#include <iterator>
#include <utility>
#include <vector>

#include "platform/removal_counter.h"

namespace tidvane::console {

class EntryLog {
public:
    // Listens to the counter while it lives, if anybody wants the paths.
    EntryLog(platform::RemovalCounter& counter, bool wanted) : counter_(counter) {
        if (wanted) counter_.each = [this](const platform::RemovedEntry& entry) { entries_.push_back(entry); };
    }
    ~EntryLog() { counter_.each = nullptr; }
    EntryLog(const EntryLog&) = delete;
    EntryLog& operator=(const EntryLog&) = delete;

    // The last entries, as many as these totals count. What came before them stays.
    std::vector<platform::RemovedEntry> takeLast(const platform::RemovalTotals& totals) {
        const std::uint64_t count = totals.files + totals.folders + totals.keys + totals.values;
        const auto first =
            entries_.size() > count ? entries_.end() - static_cast<std::ptrdiff_t>(count) : entries_.begin();
        std::vector<platform::RemovedEntry> last(std::make_move_iterator(first),
                                                 std::make_move_iterator(entries_.end()));
        entries_.erase(first, entries_.end());
        return last;
    }
    std::vector<platform::RemovedEntry> takeAll() { return std::exchange(entries_, {}); }

private:
    platform::RemovalCounter& counter_;
    std::vector<platform::RemovedEntry> entries_;
};

}  // namespace tidvane::console
