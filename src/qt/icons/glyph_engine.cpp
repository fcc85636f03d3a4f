#include "qt/icons/glyph_engine.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include "qt/icons/glyph_canvas.h"
#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {

void GlyphEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                        QIcon::State state) {
    // By way of a pixmap, since only there do the pixels of the device lie where the canvas
    // expects them, and since drawings take away what they drew before.
    const qreal ratio = painter->device()->devicePixelRatio();
    QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    picture.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect.topLeft(), picture);
}

QPixmap GlyphEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    if (size.isEmpty()) return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    GlyphCanvas canvas(painter, size, glyphColours(QGuiApplication::palette(), mode));
    drawingOf(glyph_)(canvas);
    painter.end();
    return QPixmap::fromImage(image);
}

}  // namespace velmora::qt
