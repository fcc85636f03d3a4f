#include "app/line_editor.h"

namespace velmora {

// The console of the system edits lines and keeps its own history.
LineEditor terminalEditor() {
    return {};
}

}  // namespace velmora
