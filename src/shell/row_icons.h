// The system's icons of files, drawn into a picture and shown in the rows of the watch list.
#pragma once

#include <string>

#include "controls/list_view.h"
#include "controls/picture_box.h"
#include "monitor/ports.h"
#include "platform/shell_icons.h"

namespace velmora {

enum class IconSize { large, small };

/// Draws the system's icon of a file or folder, known by its drive path. When the system has none,
/// false, and the picture stays as it is.
bool drawFileIcon(ShellIcons& icons, const std::string& path, IconSize size, PictureBox& picture);

class SystemRowIcons final : public RowIcons {
  public:
    /// `buffer` is the picture in which a row's icon is drawn.
    SystemRowIcons(PictureBox& buffer, ShellIcons& icons) : buffer_(buffer), icons_(icons) {}
    SystemRowIcons(const SystemRowIcons&) = delete;
    SystemRowIcons& operator=(const SystemRowIcons&) = delete;

    /// A row of which the system has no icon keeps the one it has.
    void prcRefreshRowIcon(ListItem& row) override;

  private:
    PictureBox& buffer_;
    ShellIcons& icons_;
};

}  // namespace velmora
