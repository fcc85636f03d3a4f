#include "qt/print/wrapped_text.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <cmath>

namespace velmora::qt {

namespace {

double heightOfLine(const QFont& font) {
    return std::ceil(QFontMetricsF(font).height());
}

}  // namespace

WrappedText::WrappedText(const QString& text, const QFont& font, double width, int mostLines)
    : font_(font) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines_.size() + 1 == mostLines) {
            lines_ << QFontMetricsF(font).elidedText(text.mid(line.textStart()), Qt::ElideMiddle,
                                                     width);
            break;
        }
        lines_ << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
}

double WrappedText::height() const {
    return static_cast<double>(lines_.size()) * heightOfLine(font_);
}

void WrappedText::paint(QPainter& painter, const QPointF& place) const {
    painter.setFont(font_);
    double baseline = place.y() + QFontMetricsF(font_).ascent();
    for (const QString& line : lines_) {
        painter.drawText(QPointF(place.x(), baseline), line);
        baseline += heightOfLine(font_);
    }
}

}  // namespace velmora::qt
