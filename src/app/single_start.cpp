#include "app/single_start.h"

#include <utility>

namespace velmora {

bool isHandedOver(Platform& platform, OtherStarts::Taken taken) {
    const bool single = platform.app.Options.single;
    const std::string& command = platform.app.ForOthers;
    if (single && platform.otherStarts.handOver(command)) return true;
    if (platform.otherStarts.listen(std::move(taken))) return false;
    // Of two starts at once, the other one was faster.
    return single && platform.otherStarts.handOver(command);
}

}  // namespace velmora
