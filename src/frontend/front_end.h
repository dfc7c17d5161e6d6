// Which front end speaks: what it tells is the same, what it names as a way out is not.
#pragma once

namespace tidvane::frontend {

enum class FrontEnd { Console, Windows };

}  // namespace tidvane::frontend
