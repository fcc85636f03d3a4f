// The system's calls to a volume. Each may keep its thread waiting for as long as the drive likes.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "platform/raw_volumes.h"
#include "platform/windows/volumes/cluster_counts.h"

namespace velmora::windows {

/// Calls that can fail return the system's error code, 0 when they were done. Used by the threads
/// of several drives at once.
class VolumeCalls {
  public:
    virtual ~VolumeCalls() = default;

    /// Opens what is there, for reading only.
    virtual DWORD open(const std::wstring& path, DWORD share, HANDLE& handle) = 0;
    virtual DWORD read(HANDLE handle, char* buffer, DWORD bytes, DWORD& read) = 0;
    /// Moves the position to a byte from the start.
    virtual DWORD seek(HANDLE handle, std::uint64_t position) = 0;
    virtual void close(HANDLE handle) = 0;

    virtual DWORD information(const std::wstring& root, std::wstring& label,
                              std::wstring& fileSystem) = 0;
    virtual std::uint32_t driveType(const std::wstring& root) = 0;
    /// `bytes` stays at 0 where the system doesn't say it.
    virtual DWORD space(const std::wstring& root, DiskFreeSpace& clusters, SpaceInBytes& bytes) = 0;
};

/// Those of the system.
std::shared_ptr<VolumeCalls> systemVolumeCalls();

}  // namespace velmora::windows
