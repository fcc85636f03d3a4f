// One reading of a drive of this machine.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/measured_drive.h"
#include "platform/windows/drives/drive_questions.h"

namespace velmora::windows {

class WindowsDrive final : public MeasuredDrive {
  public:
    /// `path` is "C:" or "\\host\share".
    WindowsDrive(std::shared_ptr<DriveQuestions> questions, std::string path);

  private:
    std::optional<DriveSpace> measure() override;

    std::shared_ptr<DriveQuestions> questions_;
};

}  // namespace velmora::windows
