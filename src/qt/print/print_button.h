// The button that prints a chart.
#pragma once

#include <QPushButton>
#include <functional>

#include "qt/print/printing.h"

namespace velmora::qt {

/// `what` makes a printout of the chart as it is when the button is clicked, or when its window
/// gets the keys for printing. Where nothing can be printed, the button is hidden.
QPushButton* makePrintButton(Printing& printing, UserHand& hand, std::function<Printout()> what);

}  // namespace velmora::qt
