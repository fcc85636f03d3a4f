// Paints a glyph wherever Qt wants an icon, in the colours of the palette of that moment.
#pragma once

#include <QIconEngine>

#include "qt/icons/glyph.h"

namespace velmora::qt {

class GlyphEngine : public QIconEngine {
  public:
    explicit GlyphEngine(Glyph glyph) : glyph_(glyph) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    /// The glyph on a transparent ground; `size` is in pixels of the device.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override { return new GlyphEngine(*this); }
    QString key() const override { return QStringLiteral("velmora-glyph"); }
    bool isNull() override { return false; }

  private:
    Glyph glyph_;
};

}  // namespace velmora::qt
