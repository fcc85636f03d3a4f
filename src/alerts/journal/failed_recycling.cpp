#include "alerts/journal/failed_recycling.h"

#include "alerts/journal/alert_time.h"
#include "base/resume_next.h"

namespace velmora {

namespace {

// The system's codes, as far as they say more than their number.
std::string reasonOf(std::int32_t code) {
    switch (code) {
        case 2:
            return "it is not there";
        case 5:
            return "it may not be removed, or its drive has no recycle bin";
        case 32:
            return "a program has it open";
        case 112:
            return "the disk is full";
        case 206:
            return "its path is too long";
        case 1223:
            return "it was cancelled";
        default:
            return "the system refused it";
    }
}

}  // namespace

std::string whyNotRecycled(const std::string& path, std::int32_t code) {
    if (code == 0) return {};
    return "Not sent to the recycle bin: " + path + ": " + reasonOf(code) + " (" +
           std::to_string(code) + ")";
}

void noteFailedRecycling(Host& host, Platform& platform, AlertList& alerts, const std::string& path,
                         std::int32_t code) {
    if (code == 0) return;
    const std::string why = whyNotRecycled(path, code);
    host.Note(why);
    if (!platform.app.Options.keepRunning) return;
    resumeNext([&] {
        alerts.prcAlertInfo(Format(platform.clock.Now(), alert_time::minutes), rating::high, why,
                            {}, nullptr);
    });
}

}  // namespace velmora
