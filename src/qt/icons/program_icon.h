// The program's own icon and its two states for the notification area.
#pragma once

#include <QIcon>

namespace velmora::qt {

/// Pictures of 16 to 256 pixels each.
QIcon programIcon();
QIcon alertIcon();
QIcon pausedIcon();

}  // namespace velmora::qt
