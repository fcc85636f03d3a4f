// Drives, folders and files of this machine. Every question that reaches a drive has a deadline.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/file_system_object.h"
#include "platform/windows/drives/drive_questions.h"
#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/files/entry_reading.h"

namespace velmora::windows {

class WindowsFileSystemObject final : public FileSystemObject {
  public:
    explicit WindowsFileSystemObject(std::shared_ptr<DriveQuestions> questions =
                                         std::make_shared<DriveQuestions>(driveDeadline));

    std::unique_ptr<Drive> GetDrive(const std::string& designator) override;
    bool DriveExists(const std::string& designator) override;
    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    std::unique_ptr<Folder> GetFolder(const std::string& path) override;
    std::unique_ptr<File> GetFile(const std::string& path) override;

  private:
    /// The attribute bits of what lies at the path, which is on that drive; all bits set when
    /// nothing does, or when the drive doesn't answer.
    std::uint32_t attributesOf(const std::string& path, const std::string& drive);
    /// What lies at the path; the error `missing` when it isn't of that kind.
    EntryReading readingOf(const std::string& path, PathKind kind, int missing);

    std::shared_ptr<DriveQuestions> questions_;
};

}  // namespace velmora::windows
