#include "platform/shell32.h"

namespace velmora {

bool Shell32::SHGetPathFromIDListA(const ItemIdList& list, std::string& buffer) {
    if (list.place.empty() || list.place.size() >= buffer.size()) return false;
    buffer.replace(0, list.place.size() + 1, list.place + '\0');
    return true;
}

}  // namespace velmora
