#include "app/service_manager.h"

namespace velmora {

// The task scheduler, which starts the console there, listens to nothing.
ServiceManager serviceManagerOfProcess() {
    return {};
}

}  // namespace velmora
