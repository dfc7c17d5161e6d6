// Empties the history store of the browser through its programming interface.
#pragma once

#include "platform/browser_cache.h"

namespace tidvane::registry {

// `Done` is false when the history object cannot be made; nothing else happens then.
inline void hstDelete(platform::BrowserCache& cache, bool& Done) {
    Done = cache.ClearHistory();
}

}  // namespace tidvane::registry
