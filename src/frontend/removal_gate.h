// What stands between a button of the windows and what it removes.
#pragma once

#include "frontend/open_machine.h"
#include "settings/program.h"

namespace tidvane::frontend {

// Has the program ask in front of every act that removes something: a box tells why the machine cannot be cleaned now
// (a Wine server has it open) or why the settings cannot be honoured, questions are asked with No as their default, and
// the machine is taken. Behind the act HeldMachine::settle() stores and gives it free; that is the front end's own
// call, once nothing runs any more. Both live as long as the program does.
void connectRemovalGate(settings::Program& program, HeldMachine& machine);

}  // namespace tidvane::frontend
