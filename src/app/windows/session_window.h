// A window that nobody sees. Windows tells of the end of a user's session by windows, and a program
// that has loaded user32 isn't told as a console.
#pragma once

namespace velmora::windows {

/// From now on the end of the session, by a logoff or a shutdown, calls `note` on another thread,
/// and is then held up until the program has ended by itself. The same holds where the system ends
/// it for an installer that replaces its files. An end that somebody takes back calls nothing. A
/// request to close the window (`taskkill` without force) calls `note` too. Where no window can be
/// made, as without a desktop, nothing is told. To be called once.
void openSessionWindow(void (*note)());

}  // namespace velmora::windows
