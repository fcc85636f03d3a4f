#include "qt/windows/watch_words.h"

#include "forms/form_numbers.h"
#include "rows/watch_row.h"

namespace velmora::qt {

QString stateWords(const ListItem& row) {
    const ConstWatchRow watched(row);
    if (!watched.watched()) return QStringLiteral("not watched");
    if (!watched.isAvailable()) return QStringLiteral("not available");
    if (watched.isInAlert()) return QStringLiteral("short of space");
    return watched.stateIcon() == state_icon::ok ? QStringLiteral("ok")
                                                 : QStringLiteral("not checked yet");
}

QString stateWords(const CommandButton& pause) {
    return pause.Caption() == watch_caption::pause ? QStringLiteral("The watch is running")
                                                   : QStringLiteral("The watch is paused");
}

}  // namespace velmora::qt
