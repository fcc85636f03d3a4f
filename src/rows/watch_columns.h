// The columns of the watch list: their headers, and what is done to one column in all rows.
#pragma once

#include <string>

#include "controls/list_view.h"

namespace velmora {

/// Gives the watch list, which has no columns yet, the headers of the watch row's fields.
void addWatchColumns(ListView& list);

/// Puts the unit of the trigger into its header, in place of the header's last four characters
/// (every occurrence of them is removed): the first unit shortens the words in front, each later
/// one replaces the one before. Nothing without that column.
void showTriggerUnit(ListView& list, const std::string& unit);

/// What a row shows under that header, from 1.
const std::string& textUnder(const ListItem& row, int column);

/// Writes the trigger of every row, in the first column whose header holds "Trigger"; nothing
/// without one.
void writeTriggers(ListView& list, const std::string& text);

}  // namespace velmora
