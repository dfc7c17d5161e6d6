#include "settings/pause.h"

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "settings/frmOptions.h"

namespace tidvane::settings {

namespace {

std::optional<std::int32_t> purgeSpeed(Program& program) {
    return base::toInt32(program.get<frmOptions>().txtPurgeSpeed.Text(), program.locale());
}

void sleep(Program& program, std::int32_t milliseconds) {
    // A negative number would be read as "for ever".
    if (milliseconds > 0) program.platform.clock.Sleep(milliseconds);
}

}  // namespace

void pauseByPurgeSpeed(Program& program) {
    if (const auto milliseconds = purgeSpeed(program)) sleep(program, *milliseconds);
}

void pauseByPurgeSpeedOrFail(Program& program) {
    const auto milliseconds = purgeSpeed(program);
    if (!milliseconds) {
        const std::string& text = program.get<frmOptions>().txtPurgeSpeed.Text();
        if (base::isNumeric(text, program.locale())) throw base::RuntimeError(6, "txtPurgeSpeed", "Overflow");
        throw base::RuntimeError(13, "txtPurgeSpeed", "Type mismatch");
    }
    sleep(program, *milliseconds);
}

}  // namespace tidvane::settings
