#include "qt/system/windows/printing/print_dialog.h"

#include <cderr.h>
#include <commdlg.h>
#include <winspool.h>

namespace velmora::qt {

namespace {

// What the dialog was left with. 0 is the user's cancelling.
PrintResult resultOf(DWORD error) {
    switch (error) {
        case 0:
            return {.end = PrintEnd::cancelled};
        case PDERR_NODEVICES:
            return {.end = PrintEnd::noPrinter};
        case PDERR_NODEFAULTPRN:
            return {.end = PrintEnd::failed, .reason = QStringLiteral("No printer is the default")};
        default:
            return {.end = PrintEnd::failed,
                    .reason = QStringLiteral("The print dialog reports error %1").arg(error)};
    }
}

// Asked first, since the dialog may have a box of its own where there is none.
bool hasPrinters() {
    DWORD needed = 0;
    DWORD count = 0;
    ::EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &needed,
                    &count);
    return needed > 0;
}

}  // namespace

PrinterChoice choosePrinter(HWND window, bool byDefault) {
    if (!hasPrinters()) return {.result = {.end = PrintEnd::noPrinter}};
    constexpr WORD mostPages = 9999;  // how many there are, the paper decides
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window;
    dialog.Flags = PD_RETURNDC | PD_ALLPAGES | PD_NOSELECTION | PD_HIDEPRINTTOFILE |
                   PD_USEDEVMODECOPIESANDCOLLATE | PD_NOWARNING;
    if (byDefault) dialog.Flags |= PD_RETURNDEFAULT;
    dialog.nFromPage = dialog.nToPage = dialog.nMinPage = 1;
    dialog.nMaxPage = mostPages;
    dialog.nCopies = 1;
    const bool isChosen = ::PrintDlgW(&dialog) != FALSE;
    const DWORD error = isChosen ? 0 : ::CommDlgExtendedError();
    ::GlobalFree(dialog.hDevMode);
    ::GlobalFree(dialog.hDevNames);
    if (!isChosen) return {.result = resultOf(error)};
    if (dialog.hDC == nullptr) return {.result = {.end = PrintEnd::noPrinter}};
    PrinterChoice choice{.context = dialog.hDC};
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        choice.range = {.first = dialog.nFromPage, .last = dialog.nToPage};
    }
    return choice;
}

}  // namespace velmora::qt
