// The program's colours as Qt's: 0x00BBGGRR, or the number of a system colour, which the palette
// answers.
#pragma once

#include <QColor>
#include <QPalette>

#include "controls/buttons.h"

namespace velmora::qt {

QColor shownColour(Colour value, const QPalette& palette);

/// `text` if it can be read on `background` (a contrast of 3 to 1 at least), otherwise black or
/// white, whichever reads better: a strip's colours are fixed, the desktop's theme is not.
QColor legible(const QColor& text, const QColor& background);

/// Contrast of two opaque colours, 1 to 21, after WCAG 2.
double contrast(const QColor& a, const QColor& b);

}  // namespace velmora::qt
