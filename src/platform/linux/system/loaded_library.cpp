#include "platform/linux/system/loaded_library.h"

#include <dlfcn.h>

namespace velmora::linuxhost {

LoadedLibrary::LoadedLibrary(const char* name)
    : library_(dlopen(name, RTLD_NOW | RTLD_LOCAL)), isWhole_(library_ != nullptr) {}

void* LoadedLibrary::address(const char* name) {
    void* const found = library_ ? dlsym(library_, name) : nullptr;
    if (!found) isWhole_ = false;
    return found;
}

}  // namespace velmora::linuxhost
