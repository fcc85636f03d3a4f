#include "qt/system/linux/printing/print_to.h"

#include <QFile>
#include <QPageRanges>
#include <algorithm>
#include <vector>

#include "qt/system/linux/printing/print_service.h"
#include "qt/system/print_job.h"

namespace velmora::qt {

namespace {

std::vector<int> chosenPages(const QPrinter& printer, int count) {
    const bool isOurs =
        printer.printRange() == QPrinter::PageRange && !serviceChoosesPages(printer);
    const QPageRanges ranges = isOurs ? printer.pageRanges() : QPageRanges();
    std::vector<int> chosen;
    for (int page = 1; page <= count; ++page) {
        if (ranges.isEmpty() || ranges.contains(page)) chosen.push_back(page);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::ranges::reverse(chosen);
    return chosen;
}

PrintResult failed(const QString& reason, int page = 0) {
    return {.end = PrintEnd::failed, .reason = reason, .page = page};
}

// On a full disk it isn't.
bool isWholePdf(const QString& path) {
    constexpr qint64 tail = 32;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    file.seek(std::max<qint64>(0, file.size() - tail));
    return file.read(tail).trimmed().endsWith("%%EOF");
}

// What became of the pages, which Qt doesn't say.
PrintResult checkDelivery(const QString& file) {
    if (!file.isEmpty()) {
        return isWholePdf(file) ? PrintResult{}
                                : failed(QStringLiteral("%1 isn't whole").arg(file));
    }
    const QString refusal = serviceRefusal();
    if (refusal.isEmpty()) return {};
    return failed(QStringLiteral("The printing service didn't take it (%1)").arg(refusal));
}

}  // namespace

void setFairMargins(QPrinter& printer) {
    constexpr double margin = 15;
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
}

PrintResult printTo(QPrinter& printer, Pages& pages) {
    const double scale = printer.resolution() / unitsPerInch;
    const QRectF room = printer.pageRect(QPrinter::DevicePixel);
    const int count = pages.layOut(room.size() / scale);
    const std::vector<int> chosen = chosenPages(printer, count);
    if (chosen.empty()) return noSuchPage(count);
    printer.setDocName(pages.title());
    QPainter painter;
    if (!painter.begin(&printer)) {
        return failed(printer.outputFileName().isEmpty()
                          ? QStringLiteral("The printer takes nothing")
                          : QStringLiteral("%1 can't be written").arg(printer.outputFileName()));
    }
    painter.scale(scale, scale);
    for (const int page : chosen) {
        if (page != chosen.front() && !printer.newPage()) {
            printer.abort();
            return failed(QStringLiteral("The printer takes no further page"), page);
        }
        painter.save();
        pages.paint(painter, page - 1);
        painter.restore();
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        return failed(QStringLiteral("The printer reports an error"));
    }
    return checkDelivery(printer.outputFileName());
}

}  // namespace velmora::qt
