// Pages as pictures, for a device that takes nothing else.
#pragma once

#include <QImage>
#include <QRect>
#include <climits>

#include "qt/system/print_system.h"

namespace velmora::qt {

/// The paper in a device, in dots.
struct Paper {
    QSize size;
    QRect printable;  ///< where dots can be, from the paper's corner
    QSizeF dotsPerInch;
};

/// The pages that the user has chosen, from 1.
struct PageRange {
    int first = 1;
    int last = INT_MAX;
};

/// The end of a job for which only pages were chosen that aren't among so many.
PrintResult noSuchPage(int count);

/// The calls of a print job. One that gives false has failed, and the job is over.
class PageDevice {
  public:
    virtual ~PageDevice() = default;
    virtual Paper paper() const = 0;
    virtual bool startDoc(const QString& title) = 0;
    virtual bool startPage() = 0;
    /// Fills a part of the printable dots with a picture.
    virtual bool draw(const QImage& picture, const QRect& place) = 0;
    virtual bool endPage() = 0;
    virtual bool endDoc() = 0;
    /// Drops what hasn't been printed.
    virtual void abortDoc() = 0;
    /// How the call that failed last ended: `failed` with the reason, or `cancelled`.
    virtual PrintResult failure() const = 0;
};

/// The room for pages on paper, in units from the paper's corner: what is within fair margins and
/// can be printed.
QRectF roomOn(const Paper& paper);

/// Prints the chosen ones of all pages. A job whose page has failed is dropped.
PrintResult printOn(PageDevice& device, Pages& pages, const PageRange& range);

}  // namespace velmora::qt
