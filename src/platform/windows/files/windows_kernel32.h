// System calls under their own names: here they are just that.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/file_system_object.h"
#include "platform/kernel32.h"
#include "platform/windows/drives/drive_questions.h"

namespace velmora::windows {

class WindowsKernel32 final : public Kernel32 {
  public:
    explicit WindowsKernel32(std::shared_ptr<DriveQuestions> questions =
                                 std::make_shared<DriveQuestions>(driveDeadline));
    ~WindowsKernel32() override;

    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;
    std::string GetWindowsDirectoryA() override;
    std::string GetEnvironmentVariableA(const std::string& name) override;
    void GlobalMemoryStatus(MemoryStatus& status) override;
    std::int32_t GetVersionExA(OsVersionInfo& version) override;
    FindHandle FindFirstFileA(const std::string& pattern, FindData& entry) override;
    bool FindNextFileA(FindHandle listing, FindData& entry) override;
    void FindClose(FindHandle listing) override;
    std::uint32_t GetLastError() override { return lastError_; }
    std::int32_t MoveFileA(const std::string& from, const std::string& to) override;
    std::uint32_t WaitForSingleObject(std::uint32_t handle, std::uint32_t milliseconds) override;
    bool FindNextChangeNotification(std::uint32_t handle) override;
    bool FindCloseChangeNotification(std::uint32_t handle) override;

  private:
    struct Listing;

    std::shared_ptr<DriveQuestions> questions_;
    std::map<FindHandle, std::unique_ptr<Listing>> listings_;
    FindHandle lastListing_ = 0;
    std::uint32_t lastError_ = 0;
};

}  // namespace velmora::windows
