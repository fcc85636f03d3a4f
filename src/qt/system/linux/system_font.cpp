#include "qt/system/system_font.h"

namespace velmora::qt {

void useSystemFont() {
    // Qt asks the desktop and fontconfig, which never name a font that isn't there.
}

}  // namespace velmora::qt
