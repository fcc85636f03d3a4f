// A line over time, with a level as a dashed line. What the pointer is over says its figure.
#pragma once

#include <QWidget>

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

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void refresh();
    /// Where figures lie, worked out once for many of them.
    struct Scale {
        QRectF plot;
        std::vector<double> marks;
        double span = 0;  ///< seconds from the oldest point to now

        double yOf(double value) const {
            return plot.bottom() - value / marks.back() * plot.height();
        }
        QPointF placeOf(const LineChart::Point& point) const;
    };
    Scale scale() const;
    void paintAxis(QPainter& painter, const Scale& scale) const;
    void paintLevel(QPainter& painter, const Scale& scale) const;
    void paintLine(QPainter& painter, const Scale& scale) const;
    QString hint(const LineChart::Point& point) const;

    const LineChart& field_;
    Regional regional_;
    std::vector<LineChart::Point> points_;
    std::optional<double> level_;
};

}  // namespace velmora::qt
