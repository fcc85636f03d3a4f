// Lines over time, each with a level as a dashed line. What the pointer is over says its figure.
#pragma once

#include <QWidget>

#include "base/regional.h"
#include "controls/line_chart.h"

namespace velmora::qt {

class LineChartWidget : public QWidget {
    Q_OBJECT
  public:
    LineChartWidget(LineChart& field, Regional regional, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {560, 300}; }
    QSize minimumSizeHint() const override { return {280, 160}; }
    /// Where a point is painted.
    QPointF placeOf(const LineChart::Point& point) const;
    /// The names that the legend shows in the order of the lines; where not all have room the last
    /// one says how many are left out. None for a single line.
    QStringList legend() const;
    /// Paints it all but its ground, also elsewhere than in its window.
    void paint(QPainter& painter) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void refresh();
    /// Where figures lie, worked out once for many of them.
    struct Scale {
        QRectF plot;
        QRectF legend;
        std::vector<double> marks;
        double span = 0;  ///< seconds from the oldest point to now

        double yOf(double value) const {
            return plot.bottom() - value / marks.back() * plot.height();
        }
        QPointF placeOf(const LineChart::Point& point) const;
    };
    Scale scale() const;
    double legendWidth() const;
    QColor colourOf(std::size_t line) const;
    void paintAxis(QPainter& painter, const Scale& scale) const;
    void paintLevels(QPainter& painter, const Scale& scale) const;
    void paintLine(QPainter& painter, const Scale& scale, std::size_t line) const;
    void paintLegend(QPainter& painter, const Scale& scale) const;
    QString words(const LineChart::Line& line) const;
    QString hint(const LineChart::Point& point) const;
    QString hintAt(const QPointF& place) const;

    const LineChart& field_;
    Regional regional_;
    std::vector<LineChart::Line> lines_;
};

}  // namespace velmora::qt
