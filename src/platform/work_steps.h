// Steps of long work. Who watches over the program from outside can't know otherwise whether it
// hangs or only copies a large file.
#pragma once

#include <functional>

namespace velmora {

/// Calls `heard` at each step that is made on this thread, until it is given another; an empty one
/// ends that. It may be called a million times a second, and must make no step itself.
void hearWorkSteps(std::function<void()> heard);

/// A step is done: a turn of the program's loop, a piece of a file, an entry of a folder.
void noteWorkStep();

}  // namespace velmora
