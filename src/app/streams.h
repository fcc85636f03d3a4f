// The console's standard streams, made to carry UTF-8 bytes unchanged.
#pragma once

namespace velmora {

void prepareStreams();

}  // namespace velmora
