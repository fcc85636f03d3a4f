#include "base/wipe.h"

namespace velmora {

void wipe(std::string& text) {
    // The storage after the text may hold the end of a longer one. Growing to the capacity keeps
    // the same storage.
    text.resize(text.capacity());
    // Volatile, or the compiler would drop the stores, since nothing reads them.
    volatile char* bytes = text.data();
    for (std::size_t i = 0; i < text.size(); ++i) bytes[i] = '\0';
    text.clear();
}

}  // namespace velmora
