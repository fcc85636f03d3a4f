#include "rows/watch_row.h"

namespace velmora {

void WatchRow::addColumns(ListView& list) {
    list.addColumn({"Drive Path", 2000});
    list.addColumn({"Free Space", 1500, Alignment::right});
    list.addColumn({"Total Size", 1500, Alignment::right});
    list.addColumn({"Trigger Space", 1400, Alignment::right});
    list.addColumn({"Time Last Checked", 1480});
}

}  // namespace velmora
