// The program's colours as Qt's: 0x00BBGGRR, or the number of a system colour, which is taken from
// the palette.
#pragma once

#include <QColor>
#include <QPalette>

#include "controls/buttons.h"

namespace velmora::qt {

QColor shownColour(Colour value, const QPalette& palette);

/// `text` if it is legible on `background` (a contrast of at least 3 to 1), otherwise black or
/// white, whichever is more legible: the colours of the strips are fixed, the desktop's are not.
QColor legible(const QColor& text, const QColor& background);

/// `colour` if its contrast to `ground` is at least 3 to 1, otherwise one of the same hue that is
/// as much lighter or darker as that takes.
QColor visibleOn(const QColor& ground, QColor colour);

/// Contrast of two opaque colours, 1 to 21, after WCAG 2.
double contrast(const QColor& a, const QColor& b);

}  // namespace velmora::qt
