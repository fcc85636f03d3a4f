#include "app/console_end.h"

namespace velmora {

void noteConsoleEnd(void (*)()) {}

}  // namespace velmora
