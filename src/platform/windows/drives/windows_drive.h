// One reading of a drive of this machine.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/windows/drives/drive_questions.h"

namespace velmora::windows {

class WindowsDrive final : public Drive {
  public:
    /// `path` is "C:" or "\\host\share".
    WindowsDrive(std::shared_ptr<DriveQuestions> questions, std::string path);

    bool IsReady() override;
    std::string Path() const override { return path_; }
    double FreeSpace() override;
    double TotalSize() override;

  private:
    struct Reading {
        double free = 0;
        double total = 0;
    };

    static std::optional<Reading> measure(const std::string& path);
    const Reading& readingOrError();

    std::shared_ptr<DriveQuestions> questions_;
    std::string path_;
    bool measured_ = false;
    std::optional<Reading> reading_;  // nothing when the drive isn't ready
};

}  // namespace velmora::windows
