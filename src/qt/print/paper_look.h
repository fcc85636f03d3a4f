// Colours and letters on paper, whatever theme the desktop has.
#pragma once

#include <QFont>
#include <QPalette>

namespace velmora::qt {

/// Dark on white.
QPalette paperPalette();
/// The application's font in 9 points. Its letters keep their proportions at any resolution.
QFont paperFont();
QFont boldPaperFont();
/// That of the title.
QFont titlePaperFont();

/// The colours of what matters less, and of thin lines.
QColor quietPaperInk();
QColor paperLineInk();

}  // namespace velmora::qt
