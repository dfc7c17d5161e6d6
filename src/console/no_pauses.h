// A clock without pauses: where nobody reads the log as it comes, nobody has to wait for it.
#pragma once

#include "platform/clock.h"

namespace tidvane::console {

class NoPauses final : public platform::Clock {
public:
    explicit NoPauses(platform::Clock& clock) : clock_(clock) {}
    base::DateTime now() override { return clock_.now(); }
    double timer() override { return clock_.timer(); }
    void Sleep(int) override {}

private:
    platform::Clock& clock_;
};

}  // namespace tidvane::console
