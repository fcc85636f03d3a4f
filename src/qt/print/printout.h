// What is printed of a chart: words, its picture and its values.
#pragma once

#include <QPainter>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include "qt/surface/text_table.h"

namespace velmora::qt {

/// A picture on paper. All sizes are in units of pages, 1/96 inch.
class PrintedPicture {
  public:
    struct Heights {
        double least = 0;  ///< below it not all can be seen at once
        double best = 0;   ///< more of it gains nothing
    };

    virtual ~PrintedPicture() = default;
    virtual Heights heights(double width) const = 0;
    /// Takes that room, and as much of further pages as it needs besides. Gives the height that
    /// each piece takes, at least one.
    virtual std::vector<double> layOut(const QSizeF& room) = 0;
    /// Paints a piece, from 0, with its corner at (0, 0).
    virtual void paint(QPainter& painter, std::size_t piece) const = 0;
};

struct PrintedWords {
    QString title;
    QStringList lines = {};  ///< what the title doesn't say
};

struct Printout {
    PrintedWords words;
    std::unique_ptr<PrintedPicture> picture;
    TextTable table;
};

}  // namespace velmora::qt
