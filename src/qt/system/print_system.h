// The printers of the system. The user chooses one in the system's own dialog, and it takes pages.
#pragma once

#include <QPainter>
#include <QSizeF>
#include <QString>
#include <QWidget>
#include <memory>

namespace velmora::qt {

/// The unit of pages is 1/96 inch, a pixel of a usual screen: what windows show has the same size
/// on paper.
inline constexpr double unitsPerInch = 96;

/// What is printed: pages that lay themselves out for any paper.
class Pages {
  public:
    virtual ~Pages() = default;
    /// The name of the job.
    virtual QString title() const = 0;
    /// Takes pages of that size, in units, without their margins. Gives their number, at least 1.
    virtual int layOut(const QSizeF& room) = 0;
    /// Paints a page, from 0. The painter is at its corner, and 1 is a unit.
    virtual void paint(QPainter& painter, int page) const = 0;
};

enum class PrintEnd {
    printed,
    cancelled,  ///< by the user
    noPrinter,  ///< the system has none
    failed
};

struct PrintResult {
    PrintEnd end = PrintEnd::printed;
    QString reason = {};  ///< of a failure, in words
    int page = 0;         ///< the page that failed, from 1; 0 for the job as a whole
};

class PrintSystem {
  public:
    virtual ~PrintSystem() = default;
    /// Asks in front of a window for a printer, then prints. Returns once the system has all pages.
    virtual PrintResult print(QWidget* window, Pages& pages) = 0;
};

/// Null where the program was built without printing.
std::unique_ptr<PrintSystem> makePrintSystem();

}  // namespace velmora::qt
