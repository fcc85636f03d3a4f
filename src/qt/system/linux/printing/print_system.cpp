// Qt's print dialog, with the printers of the system and PDF files.
#include "qt/system/print_system.h"

#include <QDir>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "qt/system/linux/printing/print_to.h"

namespace velmora::qt {

namespace {

constexpr int mostPages = 9999;

QString fileFor(const QString& title) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(folder.isEmpty() ? QDir::homePath() : folder)
        .filePath(title + QStringLiteral(".pdf"));
}

class QtPrintSystem final : public PrintSystem {
  public:
    PrintResult print(QWidget* window, Pages& pages) override {
        QPrinter printer(QPrinter::HighResolution);
        printer.setDocName(pages.title());
        setFairMargins(printer);
        // The dialog offers a file, but has no name for it.
        if (QPrinterInfo::availablePrinterNames().isEmpty()) {
            printer.setOutputFileName(fileFor(pages.title()));
        }
        QPrintDialog dialog(&printer, window);
        dialog.setObjectName(QStringLiteral("PrintDialog"));
        // How many there are, the paper decides; without this the dialog refuses all lists of
        // pages.
        dialog.setMinMax(1, mostPages);
        dialog.setFromTo(1, 1);
        if (dialog.exec() != QDialog::Accepted) return {.end = PrintEnd::cancelled};
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        PrintResult result = printTo(printer, pages);
        QGuiApplication::restoreOverrideCursor();
        return result;
    }
};

}  // namespace

std::unique_ptr<PrintSystem> makePrintSystem() {
    return std::make_unique<QtPrintSystem>();
}

}  // namespace velmora::qt
