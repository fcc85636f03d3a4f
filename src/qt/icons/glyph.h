// The small pictures of tool bars, buttons and rows. They are drawn when they are shown, so that
// they are crisp at any size and follow the palette.
#pragma once

#include <QIcon>

namespace velmora::qt {

enum class Glyph {
    start,
    pause,
    wizard,
    driveInfo,
    functions,
    viewLess,
    viewMore,
    help,
    exit,
    add,
    remove,
    clear,
    drive,
    refresh,
    browse,
    play,
    save,
    translucent,
    menu,
    openFolder,
    stateOk,
    stateAlert,
    stateNeutral,
    question,
    information,
    critical,
    folder,
    networkDrive
};

/// The glyph as an icon; the same icon at each call. It takes the application's palette each time
/// that it is painted: a widget that repaints after a change of palette shows the new colours.
QIcon glyphIcon(Glyph glyph);

}  // namespace velmora::qt
