// The wish from outside that the program ends: a signal of the service manager, of a terminal or of
// the system's shutdown.
#pragma once

namespace velmora {

/// From now on the first such signal is noted instead of ending the program; the next one ends it.
void noteEndRequests();

/// Whether one has come.
bool isEndRequested();

}  // namespace velmora
