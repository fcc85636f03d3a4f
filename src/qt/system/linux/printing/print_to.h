// Pages to a printer of Qt's, which also is one that writes a PDF file.
#pragma once

#include <QPrinter>

#include "qt/system/print_system.h"

namespace velmora::qt {

/// Sets the margins that pages begin with; the user may choose others.
void setFairMargins(QPrinter& printer);

/// Prints with all that the user has set: paper, pages, their order.
PrintResult printTo(QPrinter& printer, Pages& pages);

}  // namespace velmora::qt
