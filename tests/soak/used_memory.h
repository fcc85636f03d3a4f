// The memory that the program has asked for and not given back.
#pragma once

#include <malloc.h>

#include <cstddef>

namespace velmora::soak {

/// Bytes of the heap that are in use, with the blocks that the system maps apart. Zero where a
/// sanitizer keeps the heap: this is for plain builds.
inline std::size_t usedMemory() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

}  // namespace velmora::soak
