#include "inspect/drive_attributes.h"

#include <array>

#include "base/convert.h"
#include "base/format_number.h"

namespace velmora {

const char* driveTypeName(std::uint32_t type) {
    constexpr std::array<const char*, 7> names{"Unknown", "Not Found", "Removable", "Fixed",
                                               "Remote",  "CD-ROM",    "Ram Disk"};
    return type < names.size() ? names[type] : nullptr;
}

std::string clustersInMB(const DiskFreeSpace& space, std::uint32_t clusters,
                         const Regional& regional) {
    constexpr double bytesPerMB = 1048576;
    const double bytes = static_cast<double>(space.sectorsPerCluster) * space.bytesPerSector *
                         static_cast<double>(clusters);
    return Format(bytes / bytesPerMB, "###,##0", regional);
}

std::vector<std::string> spaceTexts(const DiskFreeSpace& space, const Regional& regional) {
    return {toText(std::int64_t{space.sectorsPerCluster}),
            toText(std::int64_t{space.bytesPerSector}),
            toText(std::int64_t{space.numberOfFreeClusters}),
            toText(std::int64_t{space.totalNumberOfClusters}),
            clustersInMB(space, space.numberOfFreeClusters, regional),
            clustersInMB(space, space.totalNumberOfClusters, regional)};
}

}  // namespace velmora
