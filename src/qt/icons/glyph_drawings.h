// The drawings of the glyphs, one function each, on a canvas of 24 x 24 units.
#pragma once

#include "qt/icons/glyph.h"
#include "qt/icons/glyph_canvas.h"

namespace velmora::qt {

using GlyphDrawing = void (*)(GlyphCanvas&);

GlyphDrawing drawingOf(Glyph glyph);

// glyphs_toolbar.cpp: what the program does
void drawStart(GlyphCanvas& canvas);
void drawPause(GlyphCanvas& canvas);
void drawWizard(GlyphCanvas& canvas);
void drawFunctions(GlyphCanvas& canvas);
void drawViewLess(GlyphCanvas& canvas);
void drawViewMore(GlyphCanvas& canvas);
void drawMenu(GlyphCanvas& canvas);
void drawTranslucent(GlyphCanvas& canvas);
void drawHelp(GlyphCanvas& canvas);
void drawExit(GlyphCanvas& canvas);

// glyphs_editing.cpp: what is done to a list or a file
void drawAdd(GlyphCanvas& canvas);
void drawRemove(GlyphCanvas& canvas);
void drawClear(GlyphCanvas& canvas);
void drawRefresh(GlyphCanvas& canvas);
void drawBrowse(GlyphCanvas& canvas);
void drawPlay(GlyphCanvas& canvas);
void drawSave(GlyphCanvas& canvas);
void drawOpenFolder(GlyphCanvas& canvas);
/// The outline of a closed folder, sharp on this canvas.
QPainterPath folderOutline(const GlyphCanvas& canvas);

// glyphs_boxes.cpp: what a message is about
void drawQuestion(GlyphCanvas& canvas);
void drawInformation(GlyphCanvas& canvas);
void drawCritical(GlyphCanvas& canvas);

// glyphs_rows.cpp: what is watched, and its state
void drawDrive(GlyphCanvas& canvas);
void drawDriveInfo(GlyphCanvas& canvas);
void drawNetworkDrive(GlyphCanvas& canvas);
void drawFolder(GlyphCanvas& canvas);
void drawStateOk(GlyphCanvas& canvas);
void drawStateAlert(GlyphCanvas& canvas);
void drawStateNeutral(GlyphCanvas& canvas);

}  // namespace velmora::qt
