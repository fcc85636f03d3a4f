// The wish from outside that the program ends: a signal of the service manager, of a terminal or,
// on Linux, of the system's shutdown, the end of its console, or the wish of an installer. Windows
// ends it without a word when its user logs off.
#pragma once

namespace velmora {

/// From now on the first such wish is noted; a signal after it ends the program.
void noteEndRequests();

/// Whether one has come.
bool isEndRequested();

}  // namespace velmora
