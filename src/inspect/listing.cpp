#include "inspect/listing.h"

#include "base/resume_next.h"

namespace velmora {

std::string withBackSlash(const std::string& sPath) {
    return sPath.ends_with('\\') ? sPath : sPath + '\\';
}

Listing::Listing(Kernel32& kernel32, const std::string& folder)
    : kernel32_(kernel32), handle_(kernel32.FindFirstFileA(folder + "*.*", entry_)) {}

Listing::~Listing() {
    if (found()) resumeNext([this] { kernel32_.FindClose(handle_); });
}

bool Listing::next() {
    while (!kernel32_.FindNextFileA(handle_, entry_)) {
        if (kernel32_.GetLastError() == noMoreFiles) return false;
    }
    return true;
}

}  // namespace velmora
