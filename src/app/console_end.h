// The end of the console that the program runs in: its window is closed, its user logs off, or the
// machine shuts down. Windows tells that to a thread of the program's own and ends the program once
// the thread is done, or after some seconds. Elsewhere such an end is a signal.
#pragma once

namespace velmora {

/// From now on such an end calls `note`, on another thread, and is then held up until the program
/// has ended by itself. That another session ends is no such end. On Windows a request to close the
/// program's windows calls `note` too. Only the first call has an effect.
void noteConsoleEnd(void (*note)());

}  // namespace velmora
