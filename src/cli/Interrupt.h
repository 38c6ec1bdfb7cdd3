#pragma once

namespace tml {

/// From now on Ctrl+C, and the signals that end or hang up a program, ask the running command to stop at its
/// next safe place; a second one of the same kind ends the program at once.
void WatchInterrupts();
bool Interrupted();

}  // namespace tml
