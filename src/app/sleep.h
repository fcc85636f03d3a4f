// The sleep of a console that waits, which the wish for its end can end early.
#pragma once

#include <cstdint>

namespace velmora {

/// From now on `endSleep` has its effect.
void prepareSleep();
/// Lets that many milliseconds pass, on Linux those in which the machine sleeps among them. May end
/// early, and does so by `endSleep` and on Windows by another program's wish, also by one that came
/// before.
void sleepUnlessEnded(std::int64_t milliseconds);
/// Ends the present sleep or the next one. For signal handlers too.
void endSleep();
/// Milliseconds of the longest single sleep: few where a wish for the end doesn't end it, or where
/// the time in which the machine sleeps isn't counted.
std::int64_t longestSleep();

}  // namespace velmora
