// What a screen reader is told of a list: a table with headings and cells, or a list of entries.
// Ticks can be toggled by it, with the same effect as by the user's hand.
#pragma once

#include <QAbstractItemView>

namespace velmora::qt {

/// To be called by the constructor of each of the program's lists.
void makeAccessible(QAbstractItemView& list);

/// The number of a cell among the children of its list, as the lists count them for focus events.
int accessibleChild(const QAbstractItemView& view, const QModelIndex& index);

/// Tells that the tick of a row has changed.
void reportTick(QAbstractItemView& view, const QModelIndex& index);

}  // namespace velmora::qt
