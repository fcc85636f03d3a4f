// What the reports of the recycle bin don't say: they have the words of a success, whatever became
// of the order.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/journal/alert_list.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// Why a file isn't in the recycle bin, by the code of the shell; empty for 0.
std::string whyNotRecycled(const std::string& path, std::int32_t code);

/// Says so behind the report: a note of the host, and a "High" alert in a program that keeps
/// running. Nothing for code 0. A failing alert is passed over.
void noteFailedRecycling(Host& host, Platform& platform, AlertList& alerts, const std::string& path,
                         std::int32_t code);

}  // namespace velmora
