#include "app/plug_in_step.h"

#include "app/frmMain.h"

namespace tidvane::app {

void cleanPlugIns(settings::Program& program, const tasks::CleaningTask& /*task*/) {
    program.get<frmMain>().CleanPlugins();
}

}  // namespace tidvane::app
