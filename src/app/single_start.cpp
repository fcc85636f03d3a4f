#include "app/single_start.h"

#include <utility>

namespace velmora {

namespace {

StartAs handOver(Platform& platform) {
    const Application& app = platform.app;
    if (!app.Options.single) return StartAs::ownProgram;
    const bool restores = app.Options.restoreSettings;
    if (!platform.otherStarts.handOver(restores ? std::string{} : app.ForOthers))
        return StartAs::ownProgram;
    return restores ? StartAs::refused : StartAs::handedOver;
}

}  // namespace

StartAs startAs(Platform& platform, OtherStarts::Taken taken) {
    const StartAs as = handOver(platform);
    if (as != StartAs::ownProgram) return as;
    if (platform.otherStarts.listen(std::move(taken))) return as;
    // Of two starts at once, the other one was faster.
    return handOver(platform);
}

}  // namespace velmora
