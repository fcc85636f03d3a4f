// Drives below their file systems. Each call runs on its drive's thread, with the deadline of
// questions to drives.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/raw_volumes.h"
#include "platform/windows/drives/drive_questions.h"
#include "platform/windows/volumes/volume_calls.h"

namespace velmora::windows {

class WindowsRawVolumes final : public RawVolumes {
  public:
    explicit WindowsRawVolumes(std::shared_ptr<DriveQuestions> questions,
                               std::shared_ptr<VolumeCalls> calls = systemVolumeCalls());
    /// Closes what is open.
    ~WindowsRawVolumes() override;
    WindowsRawVolumes(const WindowsRawVolumes&) = delete;
    WindowsRawVolumes& operator=(const WindowsRawVolumes&) = delete;

    /// Opens nothing but the volume of a letter, and only as it is ("\\.\C:", disposition 3).
    VolumeHandle CreateFileA(const std::string& path, std::uint32_t access, std::uint32_t share,
                             std::uint32_t disposition) override;
    /// The system reads whole sectors at their own places and refuses others. After a read that
    /// missed the deadline the volume can only be closed.
    bool ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                  std::uint32_t& read) override;
    std::uint32_t SetFilePointer(VolumeHandle volume, std::int32_t low, std::int32_t high,
                                 std::uint32_t method) override;
    bool CloseHandle(VolumeHandle volume) override;
    std::string failure() override { return failure_; }
    /// A label that is too long for its buffer is cut.
    bool GetVolumeInformationA(const std::string& root, std::string& volumeName,
                               std::string& fileSystemName) override;
    std::uint32_t GetDriveTypeA(const std::string& root) override;
    bool GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) override;

  private:
    struct OpenVolume;
    struct Opening;

    template <typename Answer, typename Question>
    std::optional<Answer> ask(const std::string& drive, Question question);
    std::shared_ptr<OpenVolume> opened(VolumeHandle volume) const;
    /// Keeps `why` as the failure; no handle.
    VolumeHandle fail(const std::string& why);
    /// Whether a call was done; keeps the failure otherwise. A null error: it missed the deadline.
    bool succeeds(const std::string& drive, const DWORD* error);

    std::shared_ptr<DriveQuestions> questions_;
    std::shared_ptr<VolumeCalls> calls_;
    std::map<VolumeHandle, std::shared_ptr<OpenVolume>> open_;
    VolumeHandle last_ = 0;
    std::string failure_;
};

}  // namespace velmora::windows
