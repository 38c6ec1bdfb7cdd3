#pragma once

namespace tml {

/// From now on Ctrl+C asks the running command to stop at its next safe place; a second one ends the
/// program at once.
void WatchInterrupts();
bool Interrupted();

}  // namespace tml
