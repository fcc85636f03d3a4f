// The specified path, to which files are moved.
#pragma once

#include "controls/text_box.h"
#include "platform/host.h"

namespace velmora {

/// Sets the path to the folder of a file that is chosen; it stays when the dialog is dismissed.
void chooseSpecifiedPath(TextBox& txtDrive, Host& host);

}  // namespace velmora
