// The question before the help is opened.
#pragma once

#include "forms/form1.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// Opens the help on the maker's site or, when the user doesn't want that, the local page.
void askForHelp(const Form1& form1, Platform& platform, Host& host);

}  // namespace velmora
