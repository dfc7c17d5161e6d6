// The pause that paces a run.
#pragma once

#include "settings/program.h"

namespace tidvane::settings {

// Sleeps the number of milliseconds in txtPurgeSpeed, read afresh. A text that is no number gives no pause.
void pauseByPurgeSpeed(Program& program);

}  // namespace tidvane::settings
