#include "shell/row_icons.h"

#include <utility>

#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr std::uint32_t largeIcon = 26116;
constexpr std::uint32_t smallIcon = 26117;
constexpr std::uint32_t recordSize = 352;
constexpr std::uint32_t transparent = 1;

}  // namespace

bool drawFileIcon(ShellIcons& icons, const std::string& path, IconSize size, PictureBox& picture) {
    ShellFileInfo info;
    const std::uint64_t list = icons.SHGetFileInfoA(
        path, 0, info, recordSize, size == IconSize::large ? largeIcon : smallIcon);
    if (list == 0) return false;
    std::string drawn = picture.Picture();
    if (!icons.ImageList_Draw(list, info.iIcon, drawn, 0, 0, transparent)) return false;
    picture.setPicture(std::move(drawn));
    return true;
}

void SystemRowIcons::prcRefreshRowIcon(ListItem& item) {
    WatchRow row(item);
    if (drawFileIcon(icons_, row.path(), IconSize::small, buffer_)) {
        row.setPathIcon(buffer_.Picture());
    }
}

}  // namespace velmora
