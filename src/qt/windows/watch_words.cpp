#include "qt/windows/watch_words.h"

#include "forms/form_numbers.h"

namespace velmora::qt {

QString stateWords(const CommandButton& pause) {
    return pause.Caption() == watch_caption::pause ? QStringLiteral("The watch is running")
                                                   : QStringLiteral("The watch is paused");
}

}  // namespace velmora::qt
