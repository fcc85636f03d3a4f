// One program for its user: later starts are handed over to it.
#pragma once

#include "platform/platform.h"

namespace velmora {

/// To be called before anything is shown. Takes the command lines of later starts from now on,
/// unless another program does so. With the option "--single", this start is handed over to that
/// program where it answers: true then, and this program has nothing more to do.
bool isHandedOver(Platform& platform, OtherStarts::Taken taken);

}  // namespace velmora
