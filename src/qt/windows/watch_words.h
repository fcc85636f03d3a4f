// The states of the watch and of a watched row, as a screen reader says them.
#pragma once

#include <QString>

#include "controls/buttons.h"
#include "controls/list_item.h"

namespace velmora::qt {

/// "not watched", "not available", "short of space", "ok", or "not checked yet".
QString stateWords(const ListItem& row);
/// Whether the watch runs, by what its button offers.
QString stateWords(const CommandButton& pause);

}  // namespace velmora::qt
