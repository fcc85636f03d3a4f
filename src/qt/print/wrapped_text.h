// A text over a few lines on paper.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <QStringList>

namespace velmora::qt {

class WrappedText {
  public:
    WrappedText() = default;
    /// Breaks a text between its words, and long words anywhere. What `mostLines` can't hold is cut
    /// out of the middle of the last one.
    WrappedText(const QString& text, const QFont& font, double width, int mostLines);

    const QStringList& lines() const { return lines_; }
    double height() const;
    /// Paints with the painter's pen, to the right and down of a place.
    void paint(QPainter& painter, const QPointF& place) const;

  private:
    QFont font_;
    QStringList lines_;
};

}  // namespace velmora::qt
