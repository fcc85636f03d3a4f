#include "qt/controls/chart_widget.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::qt {

namespace {

// So that a hundred wedges can still be told apart when the picture is enlarged.
constexpr int pictureScale = 2;

}  // namespace

ChartWidget::ChartWidget(Regional regional, QWidget* parent)
    : QAbstractScrollArea(parent), regional_(std::move(regional)), face_(makeEmptyFace()) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    describe();
}

void ChartWidget::setContent(const ChartData& content) {
    if (content_ == content) return;
    content_ = content;
    face_ = makeFace(content_, regional_);
    hot_ = -1;
    layOut();
    describe();
    viewport()->update();
}

void ChartWidget::describe() {
    setAccessibleDescription(content_.isEmpty() ? QStringLiteral("The watch list is empty.")
                             : content_.isPie
                                 ? content_.rows.front()
                                 : QStringLiteral("%1 by %2, %3 rows")
                                       .arg(content_.axisTitles[1], content_.axisTitles[0])
                                       .arg(content_.rows.size()));
}

void ChartWidget::layOut() {
    face_->layOut(viewport()->size(), font());
    const double visible = face_->window().height();
    const int beyond = std::max(0, static_cast<int>(std::ceil(face_->scrolledHeight() - visible)));
    verticalScrollBar()->setRange(0, beyond);
    verticalScrollBar()->setPageStep(std::max(1, static_cast<int>(visible)));
    verticalScrollBar()->setSingleStep(fontMetrics().height() + 6);
}

QImage ChartWidget::picture() const {
    const std::unique_ptr<ChartFace> whole = makeFace(content_, regional_);
    const double beyond = face_->scrolledHeight() - face_->window().height();
    const QSize size(viewport()->width(),
                     viewport()->height() + std::max(0, static_cast<int>(std::ceil(beyond))));
    whole->layOut(size, font());
    QImage image(size * pictureScale, QImage::Format_RGB32);
    image.setDevicePixelRatio(pictureScale);
    image.fill(palette().color(QPalette::Base));
    QPainter painter(&image);
    painter.setFont(font());
    whole->paint(painter, {.palette = palette()});
    return image;
}

int ChartWidget::partAt(const QPoint& place) const {
    return face_->partAt(place, verticalScrollBar()->value());
}

void ChartWidget::setHot(int part) {
    if (std::exchange(hot_, part) != part) viewport()->update();
}

void ChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.setFont(font());
    face_->paint(painter, {.palette = palette(),
                           .scroll = static_cast<double>(verticalScrollBar()->value()),
                           .hot = hot_});
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void ChartWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) layOut();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        viewport()->update();
    }
}

void ChartWidget::scrollContentsBy(int, int) {
    viewport()->update();
}

bool ChartWidget::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
            setHot(partAt(static_cast<QMouseEvent*>(event)->position().toPoint()));
            break;
        case QEvent::Leave:
            setHot(-1);
            break;
        case QEvent::ToolTip: {
            auto* help = static_cast<QHelpEvent*>(event);
            const int part = partAt(help->pos());
            if (part < 0) {
                QToolTip::hideText();
                event->ignore();
            } else {
                QToolTip::showText(help->globalPos(), face_->hint(part), viewport());
            }
            return true;
        }
        default:
            break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

}  // namespace velmora::qt
