// One program for its user: later starts are handed over to it.
#pragma once

#include "platform/platform.h"

namespace velmora {

enum class StartAs {
    ownProgram,
    handedOver,  ///< the running program has taken it, and there is nothing more to do
    refused,     ///< it is to put settings back, which the running program would undo
};

/// To be called before anything is shown. Takes later starts from now on, unless another program
/// does so. With the option "--single", this start is handed over to that program where it takes
/// it; a program that ends takes none.
StartAs startAs(Platform& platform, OtherStarts::Taken taken);

/// What a user is told whose start is refused. The running program has come to the front.
inline constexpr const char* whyRefused =
    "Velmora runs already in this folder and would write its own settings over those that are put "
    "back. End it first, then start with --restore-settings again.";

}  // namespace velmora
