#include "rows/watch_columns.h"

#include "base/text.h"

namespace velmora {

namespace {
constexpr int triggerColumn = 4;
}

void addWatchColumns(ListView& list) {
    list.addColumn({"Drive Path", 2000});
    list.addColumn({"Free Space", 1500, Alignment::right});
    list.addColumn({"Total Size", 1500, Alignment::right});
    list.addColumn({"Trigger Space", 1400, Alignment::right});
    list.addColumn({"Time Last Checked", 1480});
}

void showTriggerUnit(ListView& list, const std::string& unit) {
    if (list.ColumnCount() < triggerColumn) return;
    const std::string header = list.ColumnHeaders(triggerColumn).Text;
    list.setColumnText(triggerColumn, replaceAll(header, right(header, 4), "") + unit);
}

void writeTriggers(ListView& list, const std::string& text) {
    for (int column = 2; column <= list.ColumnCount(); ++column) {
        if (!contains(list.ColumnHeaders(column).Text, "Trigger")) continue;
        for (int i = 1; i <= list.Count(); ++i) list.ListItems(i).setSubItems(column - 1, text);
        return;
    }
}

const std::string& textUnder(const ListItem& row, int column) {
    return column == 1 ? row.Text() : row.SubItems(column - 1);
}

}  // namespace velmora
