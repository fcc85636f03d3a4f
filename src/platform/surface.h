// What a surface (window, console, test) provides to the program that it shows.
#pragma once

#include "platform/host.h"
#include "platform/notify_area.h"
#include "platform/shell_icons.h"
#include "platform/user32.h"
#include "platform/work_area.h"

namespace velmora {

struct Surface {
    Host& host;
    NotifyArea& notifyArea;
    User32& user32;
    ShellIcons& shellIcons;
    WorkArea& workArea;
};

}  // namespace velmora
