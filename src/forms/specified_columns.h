// The columns of the lists of specified files and programs, and the headings that these lists have
// in the mail.
#pragma once

#include "controls/list_view.h"

namespace velmora {

/// For a list without columns yet.
void addFileColumns(ListView& list);
void addProgramColumns(ListView& list);

}  // namespace velmora
