#include "alerts/lists/specified_path.h"

#include "base/text.h"

namespace velmora {

void chooseSpecifiedPath(TextBox& txtDrive, Host& host) {
    const std::string chosen =
        host.OpenFileDialog({.DialogTitle = "Select Path by choosing a file within the folder",
                             .Filter = "All Files (*.*)|*.*"});
    if (!chosen.empty()) txtDrive.setText(left(chosen, lastPosition(chosen, "\\")));
}

}  // namespace velmora
