#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {
QPainterPath folderOutline(const GlyphCanvas& canvas) {
    QPainterPath path(canvas.sharp({3, 19.5}));
    path.lineTo(canvas.sharp({3, 4.5}));
    path.lineTo(canvas.sharp({9, 4.5}));
    path.lineTo(canvas.sharp({11.4, 7.5}));
    path.lineTo(canvas.sharp({21, 7.5}));
    path.lineTo(canvas.sharp({21, 19.5}));
    path.closeSubpath();
    return path;
}

void drawAdd(GlyphCanvas& canvas) {
    const QPointF centre = canvas.sharp({12, 12});
    canvas.ring(centre, 9, canvas.ink());
    canvas.stroke({centre - QPointF(4.4, 0), centre + QPointF(4.4, 0)}, canvas.accent());
    canvas.stroke({centre - QPointF(0, 4.4), centre + QPointF(0, 4.4)}, canvas.accent());
}

void drawRemove(GlyphCanvas& canvas) {
    const QPointF centre = canvas.sharp({12, 12});
    canvas.ring(centre, 9, canvas.ink());
    canvas.stroke({centre - QPointF(4.4, 0), centre + QPointF(4.4, 0)}, canvas.accent());
}

void drawClear(GlyphCanvas& canvas) {
    canvas.ruled({{3.5, 5}, {20.5, 5}}, canvas.ink());
    canvas.ruled({{3.5, 11}, {13, 11}}, canvas.ink());
    canvas.ruled({{3.5, 17}, {9, 17}}, canvas.ink());
    canvas.stroke({{13.5, 13.5}, {20.5, 20.5}}, canvas.accent(), 1.15);
    canvas.stroke({{20.5, 13.5}, {13.5, 20.5}}, canvas.accent(), 1.15);
}

void drawRefresh(GlyphCanvas& canvas) {
    QPainterPath arc;
    const QRectF round(4, 4, 16, 16);
    arc.arcMoveTo(round, 35);
    arc.arcTo(round, 35, 300);
    canvas.stroke(arc, canvas.ink());
    canvas.stroke({{19.6, 3}, {19.6, 8.6}, {14, 8.6}}, canvas.accent());
}

void drawBrowse(GlyphCanvas& canvas) {
    canvas.stroke(folderOutline(canvas), canvas.ink());
    // Three pixels apart at the smallest size, so that they stay dots.
    for (const double x : {7.5, 12.0, 16.5}) {
        canvas.disc(canvas.sharp({x, 13.5}), 1.4, canvas.accent());
    }
}

void drawPlay(GlyphCanvas& canvas) {
    canvas.ring({12, 12}, 9, canvas.ink());
    const QPainterPath triangle = pathThrough({{10, 8.4}, {15.8, 12}, {10, 15.6}, {10, 8.4}});
    canvas.fill(triangle, canvas.accent());
    canvas.stroke(triangle, canvas.accent(), 0.6);
}

void drawSave(GlyphCanvas& canvas) {
    QPainterPath body(canvas.sharp({3.5, 3.5}));
    body.lineTo(canvas.sharp({16, 3.5}));
    body.lineTo(canvas.sharp({20.5, 8}));
    body.lineTo(canvas.sharp({20.5, 20.5}));
    body.lineTo(canvas.sharp({3.5, 20.5}));
    body.closeSubpath();
    canvas.stroke(body, canvas.ink());
    canvas.ruled({{8, 3.5}, {8, 8}, {14.5, 8}, {14.5, 3.5}}, canvas.ink());
    canvas.block({7.2, 13, 9.6, 7.5}, 0.8, canvas.accent());
}

void drawOpenFolder(GlyphCanvas& canvas) {
    const QPointF corner = canvas.sharp({3, 19.5});
    const QPointF hinge = canvas.sharp({6.4, 11});
    const QPointF lip = canvas.sharp({22, 11});
    const QPainterPath flap =
        pathThrough({corner, hinge, lip, {lip.x() - hinge.x() + corner.x(), corner.y()}, corner});
    canvas.fill(flap, canvas.tint());
    canvas.stroke(flap, canvas.ink());
    canvas.ruled({{3, 19.5}, {3, 4.5}, {8.6, 4.5}, {11, 7.5}, {18.6, 7.5}, {18.6, 11}},
                 canvas.ink());
}

}  // namespace velmora::qt
