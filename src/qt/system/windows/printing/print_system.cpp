// The system's print dialog, and pages as pictures: Qt's print module isn't there.
#include "qt/system/print_system.h"

#include <QGuiApplication>

#include "qt/system/windows/printing/gdi_device.h"
#include "qt/system/windows/printing/print_dialog.h"

namespace velmora::qt {

namespace {

class GdiPrintSystem final : public PrintSystem {
  public:
    PrintResult print(QWidget* window, Pages& pages) override {
        const PrinterChoice choice =
            choosePrinter(reinterpret_cast<HWND>(window->window()->winId()));
        if (choice.result.end != PrintEnd::printed) return choice.result;
        GdiDevice device(choice.context);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const PrintResult result = printOn(device, pages, choice.range);
        QGuiApplication::restoreOverrideCursor();
        return result;
    }
};

}  // namespace

std::unique_ptr<PrintSystem> makePrintSystem() {
    return std::make_unique<GdiPrintSystem>();
}

}  // namespace velmora::qt
