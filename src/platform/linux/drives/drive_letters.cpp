#include "platform/linux/drives/drive_letters.h"

#include <algorithm>

namespace velmora::linuxhost {

int DriveLetters::find(const std::string& mountPoint) const {
    const auto owner = std::find(owners_.begin(), owners_.end(), mountPoint);
    return owner == owners_.end() ? -1 : static_cast<int>(owner - owners_.begin());
}

char DriveLetters::letterOf(const std::string& mountPoint) const {
    const int index = mountPoint.empty() ? -1 : find(mountPoint);
    return index < 0 ? '\0' : static_cast<char>('C' + index);
}

void DriveLetters::update(const std::vector<std::string>& mountPoints) {
    const auto isMounted = [&mountPoints](const std::string& owner) {
        return owner == "/" ||
               std::find(mountPoints.begin(), mountPoints.end(), owner) != mountPoints.end();
    };
    for (const std::string& mountPoint : mountPoints) {
        if (find(mountPoint) >= 0) continue;
        auto letter = std::find(owners_.begin(), owners_.end(), "");
        if (letter == owners_.end())
            letter = std::find_if_not(owners_.begin(), owners_.end(), isMounted);
        if (letter != owners_.end()) *letter = mountPoint;
    }
}

}  // namespace velmora::linuxhost
