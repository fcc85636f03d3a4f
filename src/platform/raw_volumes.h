// Drives below their file systems: the raw volume, read only, and what a file system says of
// itself.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// An open volume.
using VolumeHandle = std::int64_t;

namespace raw_volume {
inline constexpr VolumeHandle invalid = -1;
inline constexpr std::uint32_t genericRead = 0x80000000;
inline constexpr std::uint32_t shareReadAndWrite = 3;
inline constexpr std::uint32_t openExisting = 3;
inline constexpr std::uint32_t fromStart = 0;  ///< method of SetFilePointer
}  // namespace raw_volume

/// What a file system is made of. Numbers that don't fit stop at the greatest one.
struct DiskFreeSpace {
    std::uint32_t sectorsPerCluster = 0;
    std::uint32_t bytesPerSector = 0;
    std::uint32_t numberOfFreeClusters = 0;
    std::uint32_t totalNumberOfClusters = 0;
};

/// Each call has the deadline of questions to drives; one that misses it fails.
class RawVolumes {
  public:
    virtual ~RawVolumes() = default;

    /// Opens a volume by its device path ("\\.\C:"), for reading; any other access is refused. -1
    /// on failure. On Linux it is the block device below the mount.
    virtual VolumeHandle CreateFileA(const std::string& path, std::uint32_t access,
                                     std::uint32_t share, std::uint32_t disposition) = 0;
    /// Reads from the present position, which moves on, over the front of `buffer`; no more than it
    /// holds. `read` becomes the number of bytes. False on failure.
    virtual bool ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                          std::uint32_t& read) = 0;
    /// Moves the position to a byte from the start (method 0). The new position, 0xFFFFFFFF on
    /// failure.
    virtual std::uint32_t SetFilePointer(VolumeHandle volume, std::int32_t low, std::int32_t high,
                                         std::uint32_t method) = 0;
    /// False for a handle that isn't one.
    virtual bool CloseHandle(VolumeHandle volume) = 0;
    /// Why the last CreateFileA or ReadFile failed, in words for a person ("the right to read
    /// /dev/sda1 is missing: ..."); empty when nothing more is known than that it failed.
    virtual std::string failure() = 0;

    /// The label and the file system's name ("NTFS", "FAT32", ...) of a root ("C:\"), each closed
    /// by a NUL over the front of its buffer, which must have room for it. False on failure; then
    /// the buffers stay as they are.
    virtual bool GetVolumeInformationA(const std::string& root, std::string& volumeName,
                                       std::string& fileSystemName) = 0;
    /// What kind of drive it is, by its root or its letter and colon: 0 unknown, 1 not there, 2
    /// removable, 3 fixed, 4 remote, 5 optical, 6 in memory.
    virtual std::uint32_t GetDriveTypeA(const std::string& root) = 0;
    /// False on failure; then the record stays as it is.
    virtual bool GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) = 0;
};

}  // namespace velmora
