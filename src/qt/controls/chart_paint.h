// Pieces that bar chart and pie have in common.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QString>

namespace velmora::qt {

/// Space around a chart, in pixels.
inline constexpr double chartMargin = 12;

/// The colour of headings, ticks and other words of lesser weight.
QColor quietInk(const QPalette& palette);
/// The colour of thin lines behind the figures.
QColor gridInk(const QPalette& palette);
/// The ground of the part under the pointer.
QColor hotGround(const QPalette& palette);
QFont boldFont(const QFont& font);
/// A square of a colour, as legends show it.
void paintSwatch(QPainter& painter, const QRectF& line, const QColor& colour);
/// The width that a swatch takes at the left of its words, in pixels.
double swatchWidth(const QFont& font);
/// Text in a box of one line, shortened in the middle when it doesn't fit.
void paintShortened(QPainter& painter, const QRectF& box, int alignment, const QString& text);

}  // namespace velmora::qt
