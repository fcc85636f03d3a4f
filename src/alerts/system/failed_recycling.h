// What the reports of the recycle bin don't say: they have the words of a success, whatever became
// of the order.
#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace velmora {

/// Why a file isn't in the recycle bin, by the code of the shell; empty for 0.
std::string whyNotRecycled(const std::string& path, std::int32_t code);

/// Says so beside the report: a note of the host. Nothing for code 0.
void noteFailedRecycling(Host& host, const std::string& path, std::int32_t code);

}  // namespace velmora
