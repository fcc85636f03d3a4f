// System calls of the other system's kernel, answered from this host's drives.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/kernel32.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/files/linux_find.h"
#include "platform/linux/system/listed_times.h"

namespace velmora::linuxhost {

class LinuxKernel32 final : public Kernel32 {
  public:
    /// `listed` takes the times of what is listed; it must outlive this object. It may be null.
    explicit LinuxKernel32(Volumes& volumes, ListedTimes* listed = nullptr)
        : volumes_(volumes), listed_(listed) {}
    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;
    std::string GetWindowsDirectoryA() override;
    /// Of this host's environment, where names have a case.
    std::string GetEnvironmentVariableA(const std::string& name) override;

    /// What can be had without swapping counts as available.
    void GlobalMemoryStatus(MemoryStatus& status) override;
    std::int32_t GetVersionExA(OsVersionInfo& version) override;

    /// Attributes by mode and name: read-only without the owner's right to write, hidden with a
    /// point in front. The folder itself may be reached through links.
    FindHandle FindFirstFileA(const std::string& pattern, FindData& entry) override;
    bool FindNextFileA(FindHandle listing, FindData& entry) override;
    void FindClose(FindHandle listing) override { listings_.erase(listing); }
    std::uint32_t GetLastError() override { return lastError_; }
    std::int32_t MoveFileA(const std::string& from, const std::string& to) override;

    // No handle of a notification is given out here, so each of them fails.
    std::uint32_t WaitForSingleObject(std::uint32_t, std::uint32_t) override { return waitFailed; }
    bool FindNextChangeNotification(std::uint32_t) override { return false; }
    bool FindCloseChangeNotification(std::uint32_t) override { return false; }

  private:
    FolderListing beginListing(const std::string& folder);
    void noteTimes(const FindData& entry);

    Volumes& volumes_;
    ListedTimes* listed_;
    std::uint32_t lastError_ = 0;
    std::map<FindHandle, FolderListing> listings_;
    FindHandle lastListing_ = 0;
};

}  // namespace velmora::linuxhost
