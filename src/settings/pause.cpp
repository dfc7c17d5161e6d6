#include "settings/pause.h"

#include "base/numbers.h"
#include "settings/frmOptions.h"

namespace tidvane::settings {

void pauseByPurgeSpeed(Program& program) {
    const auto milliseconds = base::toInt32(program.get<frmOptions>().txtPurgeSpeed.Text(), program.locale());
    // A negative number would be read as "for ever".
    if (milliseconds && *milliseconds > 0) program.platform.clock.Sleep(*milliseconds);
}

}  // namespace tidvane::settings
