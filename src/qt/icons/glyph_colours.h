// The colours that glyphs are drawn in, chosen from a palette.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

namespace velmora::qt {

struct GlyphColours {
    QColor ink;     ///< outlines
    QColor accent;  ///< the part that matters
    QColor good;
    QColor alert;
};

/// Colours that are legible on the palette's windows and lists, or, for QIcon::Selected, on its
/// selected rows. Those of QIcon::Disabled are all the same pale one.
GlyphColours glyphColours(const QPalette& palette, QIcon::Mode mode);

}  // namespace velmora::qt
