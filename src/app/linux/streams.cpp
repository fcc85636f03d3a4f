#include "app/streams.h"

#include <csignal>

namespace velmora {

void prepareSystemStreams() {
    // A reader that goes away ends the program through a failed write, not by surprise in a check.
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace velmora
