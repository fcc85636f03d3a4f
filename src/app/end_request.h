// The wish from outside that the program ends: a signal of the service manager, of a terminal or of
// the system's shutdown, the end of its console or of its user's session, or the wish of an
// installer.
#pragma once

namespace velmora {

/// From now on the first such wish is noted; a signal after it ends the program.
void noteEndRequests();

/// Whether one has come.
bool isEndRequested();

}  // namespace velmora
