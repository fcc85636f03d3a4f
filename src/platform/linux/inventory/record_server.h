// The reading process's side.
#pragma once

#include "platform/linux/inventory/record_reader.h"

namespace velmora::linuxhost {

/// Answers requests at the socket until its other end is closed.
void serveRecords(int socket, const SourceOpener& open);

}  // namespace velmora::linuxhost
