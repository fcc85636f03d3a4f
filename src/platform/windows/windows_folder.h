// A folder of this machine.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/windows/drive_questions.h"

namespace velmora::windows {

class WindowsFolder final : public Folder {
  public:
    /// `path` is absolute, without a back-slash behind unless it is a root; `drive` names the drive
    /// that is asked about it.
    WindowsFolder(std::shared_ptr<DriveQuestions> questions, std::string drive, std::string path);

    std::string Path() const override { return path_; }
    double FilesCount() override { return static_cast<double>(counts().files); }
    double SubFoldersCount() override { return static_cast<double>(counts().folders); }

  private:
    struct Counts {
        std::uint64_t files = 0;
        std::uint64_t folders = 0;
    };

    static std::optional<Counts> count(const std::string& path);
    const Counts& counts();

    std::shared_ptr<DriveQuestions> questions_;
    std::string drive_;
    std::string path_;
    std::optional<Counts> counts_;
};

}  // namespace velmora::windows
