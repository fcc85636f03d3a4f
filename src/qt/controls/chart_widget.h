// A chart, painted from its data alone. What doesn't fit scrolls; the part under the pointer says
// its figures in a tool-tip.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <memory>

#include "qt/controls/chart_data.h"
#include "qt/controls/chart_face.h"

namespace velmora::qt {

class ChartWidget : public QAbstractScrollArea {
    Q_OBJECT
  public:
    explicit ChartWidget(Regional regional, QWidget* parent = nullptr);

    /// Paints anew if the data are others.
    void setContent(const ChartData& content);
    const ChartData& content() const { return content_; }
    /// The whole chart, also what is scrolled out of view.
    QImage picture() const;
    /// The part at a place of the viewport, -1 for none.
    int partAt(const QPoint& place) const;
    const ChartFace& face() const { return *face_; }

    QSize sizeHint() const override { return {560, 280}; }
    QSize minimumSizeHint() const override { return {260, 150}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void layOut();
    void setHot(int part);
    void describe();

    Regional regional_;
    ChartData content_;
    std::unique_ptr<ChartFace> face_;
    int hot_ = -1;
};

}  // namespace velmora::qt
