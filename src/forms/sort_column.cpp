#include "forms/sort_column.h"

#include "base/resume_next.h"

namespace velmora {

void prcSortColumn(ListView& list, int column) {
    resumeNext([&] { list.sortBy(column - 1, list.SortOrder() == 0 ? 1 : 0); });
}

}  // namespace velmora
