// What the parts of a box are in Qt.
#pragma once

#include <QMessageBox>

#include "platform/host.h"

namespace velmora::qt {

QMessageBox::Icon shownIcon(BoxIcon icon);
QMessageBox::StandardButtons shownButtons(BoxButtons buttons);

}  // namespace velmora::qt
