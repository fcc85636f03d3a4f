#include "qt/system/print_job.h"

#include <algorithm>
#include <cmath>

namespace velmora::qt {

namespace {

constexpr double margin = 0.6 * unitsPerInch;  // 15 mm
constexpr double finest = 300;                 // dots an inch: more isn't seen in charts
constexpr double mostDots = 20e6;              // of a picture: a poster isn't painted that finely

QRectF inUnits(const QRectF& dots, const QSizeF& dotsPerInch) {
    const double x = unitsPerInch / dotsPerInch.width();
    const double y = unitsPerInch / dotsPerInch.height();
    return {dots.x() * x, dots.y() * y, dots.width() * x, dots.height() * y};
}

// The dots that a room takes, from the corner of the printable ones.
QRect dotsOf(const QRectF& room, const Paper& paper) {
    const double x = paper.dotsPerInch.width() / unitsPerInch;
    const double y = paper.dotsPerInch.height() / unitsPerInch;
    return QRectF(room.x() * x, room.y() * y, room.width() * x, room.height() * y)
        .toRect()
        .intersected(paper.printable)
        .translated(-paper.printable.topLeft());
}

// How many dots of a picture make a unit.
double scaleFor(const QSizeF& room, const QSizeF& dotsPerInch) {
    const double scale =
        std::min({finest, dotsPerInch.width(), dotsPerInch.height()}) / unitsPerInch;
    const double dots = room.width() * scale * room.height() * scale;
    return dots <= mostDots ? scale : scale * std::sqrt(mostDots / dots);
}

QImage pictureOf(const Pages& pages, int page, const QSizeF& room, double scale) {
    QImage picture((room * scale).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    if (picture.isNull()) return picture;  // no memory
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    pages.paint(painter, page);
    return picture;
}

class Job {
  public:
    Job(PageDevice& device, const Pages& pages)
        : device_(device),
          pages_(pages),
          room_(roomOn(device.paper())),
          place_(dotsOf(room_, device.paper())),
          scale_(scaleFor(room_.size(), device.paper().dotsPerInch)) {}

    PrintResult print(int first, int last) {
        if (!device_.startDoc(pages_.title())) return device_.failure();
        for (int page = first; page <= last; ++page) {
            PrintResult result = printPage(page - 1);
            if (result.end == PrintEnd::printed) continue;
            result.page = page;
            device_.abortDoc();
            return result;
        }
        if (device_.endDoc()) return {};
        PrintResult result = device_.failure();
        device_.abortDoc();
        return result;
    }

  private:
    PrintResult printPage(int page) {
        const QImage picture = pictureOf(pages_, page, room_.size(), scale_);
        if (picture.isNull()) {
            return {.end = PrintEnd::failed, .reason = QStringLiteral("Out of memory")};
        }
        const bool done = device_.startPage() && device_.draw(picture, place_) && device_.endPage();
        return done ? PrintResult{} : device_.failure();
    }

    PageDevice& device_;
    const Pages& pages_;
    QRectF room_;
    QRect place_;
    double scale_;
};

}  // namespace

QRectF roomOn(const Paper& paper) {
    const QRectF whole = inUnits(QRectF(QPointF(0, 0), QSizeF(paper.size)), paper.dotsPerInch);
    // Small labels keep half of their size.
    const double x = std::min(margin, whole.width() / 4);
    const double y = std::min(margin, whole.height() / 4);
    return whole.adjusted(x, y, -x, -y)
        .intersected(inUnits(QRectF(paper.printable), paper.dotsPerInch));
}

PrintResult noSuchPage(int count) {
    return {.end = PrintEnd::failed,
            .reason = count == 1 ? QStringLiteral("It has only one page")
                                 : QStringLiteral("It has only %1 pages").arg(count)};
}

PrintResult printOn(PageDevice& device, Pages& pages, const PageRange& range) {
    const int count = pages.layOut(roomOn(device.paper()).size());
    const int first = std::max(1, range.first);
    const int last = std::min(count, range.last);
    if (first > last) return noSuchPage(count);
    return Job(device, pages).print(first, last);
}

}  // namespace velmora::qt
