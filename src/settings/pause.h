// The pause that paces a run.
#pragma once

#include "settings/program.h"

namespace tidvane::settings {

// Sleeps the number of milliseconds in txtPurgeSpeed, read afresh. A text that is no number gives no pause.
void pauseByPurgeSpeed(Program& program);

// The same where nothing passes over the failed conversion: throws base::RuntimeError 13 for a text that is no number,
// 6 for one that does not fit.
void pauseByPurgeSpeedOrFail(Program& program);

}  // namespace tidvane::settings
