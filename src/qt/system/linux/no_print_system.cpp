// Without Qt's print module.
#include "qt/system/print_system.h"

namespace velmora::qt {

std::unique_ptr<PrintSystem> makePrintSystem() {
    return nullptr;
}

}  // namespace velmora::qt
