// The font that the system means for windows.
#pragma once

namespace velmora::qt {

/// Gives the application the system's font where Qt doesn't find it. Needs a QApplication without
/// windows.
void useSystemFont();

}  // namespace velmora::qt
