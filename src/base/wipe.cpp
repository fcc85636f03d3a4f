#include "base/wipe.h"

namespace velmora {

void wipe(std::string& text) {
    // Behind the text may stand what is left of a longer one. Growing to the capacity stays in the
    // same storage.
    text.resize(text.capacity());
    // Volatile, or the stores would go: nobody reads them.
    volatile char* bytes = text.data();
    for (std::size_t i = 0; i < text.size(); ++i) bytes[i] = '\0';
    text.clear();
}

}  // namespace velmora
