// The colours of bars and wedges, each with a contrast of at least 3 to 1 to the ground.
#pragma once

#include <QColor>
#include <vector>

namespace velmora::qt {

/// The colour of a column of bars, from 0.
QColor seriesColour(int column, const QColor& ground);
/// The colour of a line beside others, from 0: no two of the first twenty are alike.
QColor lineColour(int line, const QColor& ground);
/// A colour for each value: different hues for the greatest ones, one scale for the others.
std::vector<QColor> wedgeColours(const std::vector<double>& values, const QColor& ground);

}  // namespace velmora::qt
