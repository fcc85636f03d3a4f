// The system's print dialog.
#pragma once

#include <windows.h>

#include "qt/system/print_job.h"

namespace velmora::qt {

struct PrinterChoice {
    PrintResult result = {};  ///< `printed` when there is a printer to print on
    HDC context = nullptr;    ///< the caller's to delete
    PageRange range = {};
};

/// Asks in front of a window. With `byDefault` the default printer is taken without a question.
PrinterChoice choosePrinter(HWND window, bool byDefault = false);

}  // namespace velmora::qt
