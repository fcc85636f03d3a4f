#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {

namespace {

void drawCase(GlyphCanvas& canvas) {
    const QPointF front = canvas.sharp({3, 12.5});
    const QPointF end = canvas.sharp({21, 12.5});
    const double top = canvas.sharp({0, 4.5}).y();
    canvas.frame({front, QPointF(21, 19.5)}, 2, canvas.ink());
    canvas.stroke({front + QPointF(0.2, 0.6), {6, top}, {18, top}, end + QPointF(-0.2, 0.6)},
                  canvas.ink());
    canvas.ruled({{6.8, 16}, {11, 16}}, canvas.ink());
}

}  // namespace

void drawDrive(GlyphCanvas& canvas) {
    drawCase(canvas);
    canvas.disc({17, 16}, 1.6, canvas.accent());
}

void drawDriveInfo(GlyphCanvas& canvas) {
    drawCase(canvas);
    const QPointF centre = canvas.sharp({17, 8});
    canvas.cut(circle(centre, 7.6));
    canvas.disc(centre, 6, canvas.accent());
    canvas.cutLine(pathThrough({centre + QPointF(0, 0.2), centre + QPointF(0, 3)}), 0.85);
    canvas.cut(circle(centre - QPointF(0, 3), 1.15));
}

void drawNetworkDrive(GlyphCanvas& canvas) {
    canvas.frame({3, 3.5, 18, 9}, 2, canvas.ink());
    canvas.ruled({{6.8, 8}, {11, 8}}, canvas.ink());
    canvas.disc({17, 8}, 1.6, canvas.accent());
    const QPointF node = canvas.sharp({12, 19.5});
    canvas.ruled({{12, 12.5}, {12, 16}}, canvas.ink());
    canvas.ruled({{3, 19.5}, {21, 19.5}}, canvas.ink());
    canvas.cut(circle(node, 4));
    canvas.disc(node, 2.8, canvas.accent());
}

void drawFolder(GlyphCanvas& canvas) {
    canvas.fill(folderOutline(canvas), canvas.tint());
    canvas.stroke(folderOutline(canvas), canvas.ink());
}

void drawStateOk(GlyphCanvas& canvas) {
    canvas.disc({12, 12}, 10, canvas.good());
    canvas.cutLine(pathThrough({{7.2, 12.4}, {10.6, 15.8}, {16.8, 8.8}}), 1.25);
}

// Nothing is known to be fine or wrong.
void drawStateNeutral(GlyphCanvas& canvas) {
    canvas.frame({3, 3, 18, 18}, 9, canvas.ink());
    canvas.disc({12, 12}, 2.6, canvas.ink());
}

void drawStateAlert(GlyphCanvas& canvas) {
    const QPointF middle = canvas.sharp({12, 12});
    const QPainterPath triangle = pathThrough({{0, -8.2}, {9.4, 7.8}, {-9.4, 7.8}, {0, -8.2}});
    const QPainterPath placed = triangle.translated(middle);
    canvas.fill(placed, canvas.alert());
    canvas.stroke(placed, canvas.alert(), 1.4);
    canvas.cutLine(pathThrough({middle + QPointF(0, -2.6), middle + QPointF(0, 2)}), 1.1);
    canvas.cut(circle(middle + QPointF(0, 5.7), 1.45));
}

}  // namespace velmora::qt
