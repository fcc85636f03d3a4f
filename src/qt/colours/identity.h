// The program's own colours on every desktop: navy and orange, as its label buttons have them. The
// desktop's theme still chooses between light and dark.
#pragma once

#include <QColor>
#include <QPalette>

namespace velmora::qt {

/// The orange of captions, bars and pictures.
QColor identityOrange();

/// Whether a palette is that of a dark theme.
bool isDark(const QPalette& palette);

/// Selections in navy with white letters, on dark themes in orange with black ones. All other
/// colours stay those of the desktop.
QPalette withIdentity(QPalette palette);

/// The colour of a rim around something that can be used: a contrast of at least 3 to 1 to the
/// window.
QColor rimColour(const QPalette& palette);

}  // namespace velmora::qt
