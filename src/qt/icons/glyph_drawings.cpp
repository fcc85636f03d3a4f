#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {

// A switch, so that the compiler warns of a glyph without a drawing.
GlyphDrawing drawingOf(Glyph glyph) {
    switch (glyph) {
        case Glyph::start:
            return drawStart;
        case Glyph::pause:
            return drawPause;
        case Glyph::wizard:
            return drawWizard;
        case Glyph::driveInfo:
            return drawDriveInfo;
        case Glyph::functions:
            return drawFunctions;
        case Glyph::viewLess:
            return drawViewLess;
        case Glyph::viewMore:
            return drawViewMore;
        case Glyph::help:
            return drawHelp;
        case Glyph::exit:
            return drawExit;
        case Glyph::add:
            return drawAdd;
        case Glyph::remove:
            return drawRemove;
        case Glyph::clear:
            return drawClear;
        case Glyph::drive:
            return drawDrive;
        case Glyph::refresh:
            return drawRefresh;
        case Glyph::browse:
            return drawBrowse;
        case Glyph::play:
            return drawPlay;
        case Glyph::save:
            return drawSave;
        case Glyph::translucent:
            return drawTranslucent;
        case Glyph::menu:
            return drawMenu;
        case Glyph::openFolder:
            return drawOpenFolder;
        case Glyph::stateOk:
            return drawStateOk;
        case Glyph::question:
            return drawQuestion;
        case Glyph::information:
            return drawInformation;
        case Glyph::critical:
            return drawCritical;
        case Glyph::stateNeutral:
            return drawStateNeutral;
        case Glyph::stateAlert:
            return drawStateAlert;
        case Glyph::folder:
            return drawFolder;
        case Glyph::networkDrive:
            return drawNetworkDrive;
    }
    return drawHelp;
}

}  // namespace velmora::qt
