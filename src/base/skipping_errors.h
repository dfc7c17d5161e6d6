// Steps that each are taken whatever became of the one before.
#pragma once

#include "base/runtime_error.h"

namespace tidvane::base {

template <class Step>
void skippingErrors(Step step) {
    try {
        step();
    } catch (const RuntimeError&) {
        // Passed over on purpose; a bug (bad_alloc, a broken invariant) is not of this type and goes on.
    }
}

}  // namespace tidvane::base
