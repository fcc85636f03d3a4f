// A drive that is measured once, at the first question.
#pragma once

#include <optional>
#include <string>

#include "platform/file_system_object.h"

namespace velmora {

/// What one measurement of a drive gives, in bytes.
struct DriveSpace {
    double free = 0;  ///< that this user can still write
    double total = 0;
};

class MeasuredDrive : public Drive {
  public:
    bool IsReady() final { return reading().has_value(); }
    std::string Path() const final { return path_; }
    double FreeSpace() final { return readyReading().free; }
    double TotalSize() final { return readyReading().total; }
    bool renew() final;

  protected:
    /// `path` is "C:" with an upper-case letter, or "\\host\share".
    explicit MeasuredDrive(std::string path);

  private:
    /// Nothing when the drive isn't ready or doesn't answer in time.
    virtual std::optional<DriveSpace> measure() = 0;

    const std::optional<DriveSpace>& reading();
    const DriveSpace& readyReading();

    std::string path_;
    bool isMeasured_ = false;
    std::optional<DriveSpace> reading_;
};

}  // namespace velmora
